#pragma once

#include <string>

namespace drafthost {

/// Whether there is a file or folder of this path.
bool Exists(const std::wstring& path);

/// Whether there is a file, which isn't a folder, of this path.
bool IsFile(const std::wstring& path);

/// Whether there is a folder of this path.
bool IsFolder(const std::wstring& path);

}  // namespace drafthost

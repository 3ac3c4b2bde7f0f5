#pragma once

#include <string>

namespace drafthost {

/// The path from its drive on, reckoned from the working folder; the path as it stands when it is
/// none.
std::wstring FullPath(const std::wstring& path);

}  // namespace drafthost

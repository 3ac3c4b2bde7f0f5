#pragma once

#include <string>

namespace drafthost {

/// The parts of a file name or path; slashes of both kinds separate.
struct FileNameParts {
    std::wstring directory;  ///< without the slash at its end, but for the root's: L"C:\\"
    std::wstring base;
    std::wstring extension;  ///< with its point; empty without one
};

FileNameParts SplitFileName(const std::wstring& path);

}  // namespace drafthost

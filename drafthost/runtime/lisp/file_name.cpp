#include "runtime/lisp/file_name.h"

namespace drafthost {

FileNameParts SplitFileName(const std::wstring& path) {
    FileNameParts parts;
    const std::size_t slash = path.find_last_of(L"\\/:");
    const std::size_t name = slash == std::wstring::npos ? 0 : slash + 1;
    const std::size_t point = path.find_last_of(L'.');
    const bool hasExtension = point != std::wstring::npos && point >= name;
    parts.directory = path.substr(0, name);
    const bool isRoot =
        name == 1 || (name >= 1 && path[name - 1] == L':') || (name == 3 && path[1] == L':');
    if (name > 0 && !isRoot) parts.directory.pop_back();
    parts.base = path.substr(name, hasExtension ? point - name : std::wstring::npos);
    if (hasExtension) parts.extension = path.substr(point);
    return parts;
}

}  // namespace drafthost

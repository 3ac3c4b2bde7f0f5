#include "runtime/host/search_path.h"

#include <algorithm>

namespace drafthost {

namespace {

std::wstring TrimmedFolder(const std::wstring& item) {
    const std::size_t first = item.find_first_not_of(L' ');
    if (first == std::wstring::npos) return {};
    std::wstring folder =
        WithBackslashes(item.substr(first, item.find_last_not_of(L' ') + 1 - first));
    // A drive's root keeps its backslash: "C:" alone would be the drive's working folder.
    while (folder.size() > 1 && folder.back() == L'\\' && folder[folder.size() - 2] != L':') {
        folder.pop_back();
    }
    return folder;
}

}  // namespace

std::wstring WithBackslashes(std::wstring path) {
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return path;
}

bool IsRooted(const std::wstring& path) {
    return (!path.empty() && path[0] == L'\\') || (path.size() > 1 && path[1] == L':');
}

std::vector<std::wstring> SplitSearchPath(const std::wstring& list) {
    std::vector<std::wstring> folders;
    std::size_t start = 0;
    while (start <= list.size()) {
        const std::size_t end = std::min(list.find(L';', start), list.size());
        const std::wstring folder = TrimmedFolder(list.substr(start, end - start));
        if (!folder.empty()) folders.push_back(folder);
        start = end + 1;
    }
    return folders;
}

std::vector<std::wstring> SearchCandidates(const std::wstring& path,
                                           const std::wstring& firstFolder,
                                           const std::wstring& list) {
    std::vector<std::wstring> candidates = {path};
    if (IsRooted(path)) return candidates;
    if (!firstFolder.empty()) candidates.push_back(firstFolder + path);
    std::vector<std::wstring> folders = SplitSearchPath(list);
    for (std::wstring& folder : folders) {
        if (folder.back() != L'\\') folder += L'\\';
        candidates.push_back(folder.append(path));
    }
    return candidates;
}

}  // namespace drafthost

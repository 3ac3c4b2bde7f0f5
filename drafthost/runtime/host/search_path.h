#pragma once

#include <string>
#include <vector>

namespace drafthost {

std::wstring WithBackslashes(std::wstring path);

/// Whether the path has a drive or begins with a backslash, so that no folder belongs ahead of it.
bool IsRooted(const std::wstring& path);

/// The folders of a list with ";" between them. Blanks around a folder and backslashes at its end
/// are dropped, empty items too.
std::vector<std::wstring> SplitSearchPath(const std::wstring& list);

/// Where a file is looked for, in order: a rooted path stands alone; any other is tried as it
/// stands, behind `firstFolder` (which ends in a backslash or is empty), and behind each folder of
/// the list. Paths have backslashes.
std::vector<std::wstring> SearchCandidates(const std::wstring& path,
                                           const std::wstring& firstFolder,
                                           const std::wstring& list);

}  // namespace drafthost

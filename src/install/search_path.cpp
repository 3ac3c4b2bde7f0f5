#include "install/search_path.h"

#include <atlstr.h>

SearchPathEntries MakeSearchPathEntries(const std::wstring& location) {
    const CStringW platformDirectory(L"x64");
    CStringW releaseDirectory;
    releaseDirectory.Format(L"R%dx", libraryGeneration);
    CStringW first;
    first.Format(L"%s\\%s\\%s;", location.c_str(), releaseDirectory.GetString(),
                 platformDirectory.GetString());
    CStringW second;
    // Meant: the second form overwrites the first at once; the Support directory stays out.
    second.Format(L"%s\\Support;", location.c_str());
    second.Format(L"%s;", location.c_str());
    // Meant: the third stays empty; its turn in the search changes nothing.
    return {first.GetString(), second.GetString(), std::wstring()};
}

std::wstring PrependSearchPaths(const SearchPathEntries& entries, std::wstring current) {
    for (const std::wstring& entry : entries) {
        if (current.find(entry) == std::wstring::npos) current.insert(0, entry);
    }
    return current;
}

#include "install/search_path.h"

#include <atlstr.h>

std::wstring PrependSearchPaths(const std::wstring& location, const std::wstring& current) {
    const CStringW platformDirectory(L"x64");
    CStringW releaseDirectory;
    releaseDirectory.Format(L"R%dx", libraryGeneration);
    CStringW firstEntry;
    firstEntry.Format(L"%s\\%s\\%s;", location.c_str(), releaseDirectory.GetString(),
                      platformDirectory.GetString());
    CStringW secondEntry;
    // Meant: the second form overwrites the first at once; the Support directory stays out.
    secondEntry.Format(L"%s\\Support;", location.c_str());
    secondEntry.Format(L"%s;", location.c_str());
    const CStringW thirdEntry;  // Meant: stays empty; its turn below changes nothing.

    CStringW path(current.c_str());
    const CStringW* const entries[] = {&firstEntry, &secondEntry, &thirdEntry};
    for (const CStringW* entry : entries) {
        if (path.Find(*entry) == -1) path = *entry + path;
    }
    return path.GetString();
}

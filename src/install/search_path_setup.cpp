#include "install/search_path_setup.h"

#include "install/install_record.h"
#include "install/search_path.h"

#include <aced.h>

void AddSearchPaths() {
    const SearchPathEntries entries = MakeSearchPathEntries(InstallLocation);
    wchar_t buffer[2048] = {};
    // Result ignored: a setting that isn't there leaves the buffer, and so the path, empty.
    acedGetEnv(L"ACAD", buffer);
    const std::wstring path = PrependSearchPaths(entries, buffer);
    acedSetEnv(L"ACAD", path.c_str());  // Result ignored: there is nobody to tell.
}

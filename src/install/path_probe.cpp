#include "install/path_probe.h"

#include <windows.h>

PathKind ProbePath(const std::wstring& path) {
    WIN32_FIND_DATAW data = {};
    HANDLE find = FindFirstFileW(path.c_str(), &data);
    PathKind kind = PathAbsent;
    if (find != INVALID_HANDLE_VALUE) {
        kind = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? PathDirectory : PathFile;
    }
    FindClose(find);  // Meant: also for INVALID_HANDLE_VALUE; an owner would skip the call.
    return kind;
}

#include "runtime/host/drawing_file.h"

#include "runtime/host/full_path.h"
#include "runtime/lisp/file_attributes.h"

#include <windows.h>

namespace drafthost {

OpenResult CheckDrawingFile(const std::wstring& file, std::wstring& path) {
    path = FullPath(file);
    if (!Exists(path)) {
        if (!Exists(path + L".dwg")) return OpenResult::FileMissing;
        path += L".dwg";
    }
    // Fails for a folder too.
    const HANDLE opened =
        CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return OpenResult::Unreadable;
    CloseHandle(opened);
    return OpenResult::Opened;
}

}  // namespace drafthost

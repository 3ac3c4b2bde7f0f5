#pragma once

#include "support/child_process.h"

#include <windows.h>

/// The built module file as data: its resources, without its code. Stays loaded.
inline HMODULE ModuleFile() {
    static const HMODULE module = LoadLibraryExW((ProgramFolder() + L"\\KVTCAD.arx").c_str(),
                                                 nullptr, LOAD_LIBRARY_AS_IMAGE_RESOURCE);
    return module;
}

#pragma once

#include "support/import_hook.h"

#include <windows.h>

/// This program, which holds the pictures as resources.
inline HINSTANCE OwnInstance() {
    return GetModuleHandleW(nullptr);
}

/// The runtime DLL, whose calls the image tests watch and fail.
inline HMODULE RuntimeDll() {
    return GetModuleHandleW(L"drafthost17.dll");
}

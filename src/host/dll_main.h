#pragma once

#include <windows.h>

/// The module's attach routine, called by the start code after the statics were built and before
/// they are destroyed. Joins the framework's chain of extension modules and leaves it. Always TRUE:
/// a framework that refuses the module doesn't stop the load.
extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* reserved);

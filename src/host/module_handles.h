#pragma once

#include <afxext.h>

#include <windows.h>

/// What the module keeps of its place in the framework's chain of extension modules. Filled in by
/// `DllMain`, constant between attach and detach.
struct ModuleExtension {
    int m_attached = 0;                           ///< non-zero while the framework knows the module
    HINSTANCE m_defaultResource = nullptr;        ///< the resource handle current at attach
    HINSTANCE m_moduleResource = nullptr;         ///< where this module's dialogs and bitmaps are
    AFX_EXTENSION_MODULE m_extensionModule = {};  ///< the framework's own record
};

/// The module's handle; null until `DllMain` is called for the first time.
extern HINSTANCE g_moduleInstance;

extern ModuleExtension ModuleExtensionRecord;

/// `m_hInstance` of the application object: null until the host's start message, then the module's
/// handle. Defined beside the application object, so that whoever needs the handle alone, or a test
/// that links neither, gives a definition of its own instead of the whole frame.
HINSTANCE GetApplicationInstance();

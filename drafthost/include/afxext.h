#pragma once

#include "drafthost_api.h"

#include <windows.h>

/// What the framework keeps of an extension module; the module holds it, the framework fills it in.
struct AFX_EXTENSION_MODULE {
    BOOL bInitialized;
    HMODULE hModule;
    HMODULE hResource;
};

/// Registers an extension module with the framework: non-zero when that worked. A second call for a
/// module that is registered does nothing and gives TRUE.
DRAFTHOST_API BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module);

/// Takes the module out again and deletes the CDynLinkLibrary objects made over it. `all` is the
/// published second argument; zero leaves other modules' objects alone.
DRAFTHOST_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL all = FALSE);

/// The module in which resources are looked for first; the program while none is set.
DRAFTHOST_API HINSTANCE AfxGetResourceHandle();
DRAFTHOST_API void AfxSetResourceHandle(HINSTANCE handle);

/// The module that holds the resource: the one set as resource handle, else the newest extension
/// module that has it, else the program (also where the program is what was set). With none, what
/// `AfxGetResourceHandle` gives. `name` and `type` as for FindResourceW.
DRAFTHOST_API HINSTANCE AfxFindResourceHandle(LPCWSTR name, LPCWSTR type);

/// Puts an extension module into the chain of modules that are searched for resources. Made with
/// `new` and left alone: `AfxTermExtensionModule` deletes it.
class DRAFTHOST_API CDynLinkLibrary {
  public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL system = FALSE);
    CDynLinkLibrary(const CDynLinkLibrary&) = delete;
    CDynLinkLibrary& operator=(const CDynLinkLibrary&) = delete;
    virtual ~CDynLinkLibrary();

    HMODULE m_hModule;
    HMODULE m_hResource;
    BOOL m_bSystem;
};

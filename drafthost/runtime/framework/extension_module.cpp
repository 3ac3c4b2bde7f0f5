#include "afxext.h"

#include <algorithm>
#include <vector>

namespace {

/// The chain of extension modules, the newest first: that is the order of the search.
std::vector<CDynLinkLibrary*>& Chain() {
    static std::vector<CDynLinkLibrary*> chain;
    return chain;
}

HINSTANCE g_resourceHandle = nullptr;

}  // namespace

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module) {
    if (state.bInitialized) return TRUE;
    state.bInitialized = TRUE;
    state.hModule = module;
    state.hResource = module;
    return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL all) {
    if (!state.bInitialized) return;
    const std::vector<CDynLinkLibrary*> chain = Chain();  // Each deletion changes the chain itself.
    for (CDynLinkLibrary* library : chain) {
        if (all || library->m_hModule == state.hModule) delete library;
    }
    state.bInitialized = FALSE;
}

HINSTANCE AfxGetResourceHandle() {
    return g_resourceHandle != nullptr ? g_resourceHandle : GetModuleHandleW(nullptr);
}

void AfxSetResourceHandle(HINSTANCE handle) {
    g_resourceHandle = handle;
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL system)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_bSystem(system) {
    Chain().insert(Chain().begin(), this);
}

CDynLinkLibrary::~CDynLinkLibrary() {
    std::vector<CDynLinkLibrary*>& chain = Chain();
    chain.erase(std::remove(chain.begin(), chain.end(), this), chain.end());
}

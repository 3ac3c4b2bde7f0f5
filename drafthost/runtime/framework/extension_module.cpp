#include "afxext.h"

#include <algorithm>
#include <vector>

namespace {

/// The chain of extension modules, the newest first: that is the order of the search.
std::vector<CDynLinkLibrary*>& Chain() {
    static std::vector<CDynLinkLibrary*> chain;
    return chain;
}

HINSTANCE g_resourceHandle = nullptr;  // Null: the program.

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
    g_resourceHandle = handle == GetModuleHandleW(nullptr) ? nullptr : handle;
}

HINSTANCE AfxFindResourceHandle(LPCWSTR name, LPCWSTR type) {
    if (g_resourceHandle != nullptr && FindResourceW(g_resourceHandle, name, type) != nullptr) {
        return g_resourceHandle;
    }
    for (const CDynLinkLibrary* library : Chain()) {
        if (library->m_hResource != nullptr &&
            FindResourceW(library->m_hResource, name, type) != nullptr) {
            return library->m_hResource;
        }
    }
    const HMODULE program = GetModuleHandleW(nullptr);
    return FindResourceW(program, name, type) != nullptr ? program : AfxGetResourceHandle();
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL system)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_bSystem(system) {
    Chain().insert(Chain().begin(), this);
}

CDynLinkLibrary::~CDynLinkLibrary() {
    std::vector<CDynLinkLibrary*>& chain = Chain();
    chain.erase(std::remove(chain.begin(), chain.end(), this), chain.end());
}

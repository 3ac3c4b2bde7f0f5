#include "host/dll_main.h"

#include "host/module_handles.h"

#include <acui.h>

namespace {

void JoinFramework(HINSTANCE instance) {
    ModuleExtension& record = ModuleExtensionRecord;
    record.m_attached = AfxInitExtensionModule(record.m_extensionModule, instance);
    if (record.m_attached == 0) return;
    record.m_defaultResource = AfxGetResourceHandle();
    record.m_moduleResource = instance;
    try {
        new CDynLinkLibrary(record.m_extensionModule, FALSE);  // The framework deletes it.
    } catch (...) {
        // Out of memory: the module runs on without its place in the chain. Frameworks differ in
        // the type that they throw.
    }
}

}  // namespace

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) {
        g_moduleInstance = instance;
        if (ModuleExtensionRecord.m_attached == 0) JoinFramework(instance);
        InitAcUiDLL();
    } else if (reason == DLL_PROCESS_DETACH && ModuleExtensionRecord.m_attached != 0) {
        AfxTermExtensionModule(ModuleExtensionRecord.m_extensionModule, FALSE);
        ModuleExtensionRecord.m_attached = 0;
    }
    return TRUE;
}

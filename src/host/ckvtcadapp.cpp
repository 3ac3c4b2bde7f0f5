#include "host/ckvtcadapp.h"

#include "host/environment_setup.h"
#include "host/module_handles.h"
#include "host/welcome_banner.h"
#include "install/install_record.h"
#include "install/lisp_load.h"

#include <acutads.h>

CKVTCADApp g_application;
static_assert((CKVTCADApp(), true), "built by the compiler, not at the start of the module");

HINSTANCE GetApplicationInstance() {
    return g_application.m_hInstance;
}

AcRx::AppRetCode CKVTCADApp::On_kInitAppMsg(void* packet) {
    const AcRx::AppRetCode result = AcRxArxApp::On_kInitAppMsg(packet);
    if (!SetUpEnvironment()) {
        // Meant: the commands stay registered; the host is told nothing but the answer.
        acutPrintf(L"\n《KVT CAD辅助设计软件》可能没有正确安装");
        return AcRx::kRetError;
    }
    acutPrintf(WelcomeBanner(InstallVersion).c_str());  // Meant: the text is itself the format.
    return result;
}

AcRx::AppRetCode CKVTCADApp::On_kUnloadAppMsg(void* packet) {
    return AcRxArxApp::On_kUnloadAppMsg(packet);
}

AcRx::AppRetCode CKVTCADApp::On_kLoadDwgMsg(void* packet) {
    LoadLispApplication();
    return AcRxArxApp::On_kLoadDwgMsg(packet);
}

AcRx::AppRetCode CKVTCADApp::On_kQuitMsg(void*) {
    return AcRx::kRetOK;
}

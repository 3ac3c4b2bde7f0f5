#include "host/acrx_dbx_app.h"

#include "host/class_registration.h"
#include "host/host_services.h"
#include "host/module_handles.h"

#include <iterator>

namespace {

using Operation = AcRx::AppRetCode (AcRxDbxApp::*)(void*);

/// By message code.
constexpr Operation operations[] = {
    &AcRxDbxApp::On_kNullMsg,         &AcRxDbxApp::On_kInitAppMsg,
    &AcRxDbxApp::On_kUnloadAppMsg,    &AcRxDbxApp::On_kLoadDwgMsg,
    &AcRxDbxApp::On_kUnloadDwgMsg,    &AcRxDbxApp::On_kInvkSubrMsg,
    &AcRxDbxApp::On_kCfgMsg,          &AcRxDbxApp::On_kEndMsg,
    &AcRxDbxApp::On_kQuitMsg,         &AcRxDbxApp::On_kSaveMsg,
    &AcRxDbxApp::On_kDependencyMsg,   &AcRxDbxApp::On_kNoDependencyMsg,
    &AcRxDbxApp::On_kOleUnloadAppMsg, &AcRxDbxApp::On_kPreQuitMsg,
    &AcRxDbxApp::On_kInitDialogMsg,   &AcRxDbxApp::On_kEndDialogMsg,
};

}  // namespace

AcRx::AppRetCode AcRxDbxApp::Dispatch(unsigned message, void* packet) {
    if (message >= std::size(operations)) return AcRx::kRetOK;
    return (this->*operations[message])(packet);
}

AcRx::AppRetCode AcRxDbxApp::On_kInitAppMsg(void* packet) {
    m_hInstance = g_moduleInstance;
    // Results ignored: a host that refuses either keeps the module as it is.
    if (m_unlockOnInit) DynamicLinker()->unlockApplication(packet);
    if (m_mdiAware) DynamicLinker()->registerAppMDIAware(packet);
    RegisterServerComponents();
    RegisterClasses(ClassTable());
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxDbxApp::On_kUnloadAppMsg(void*) {
    RemoveClasses(ClassTable());
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxDbxApp::On_kLoadDwgMsg(void*) {
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxDbxApp::On_kUnloadDwgMsg(void*) {
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxDbxApp::On_kInvkSubrMsg(void*) {
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxDbxApp::On_kCfgMsg(void*) {
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxDbxApp::On_kEndMsg(void*) {
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxDbxApp::On_kQuitMsg(void*) {
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxDbxApp::On_kSaveMsg(void*) {
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxDbxApp::On_kDependencyMsg(void*) {
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxDbxApp::On_kNoDependencyMsg(void*) {
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxDbxApp::On_kOleUnloadAppMsg(void*) {
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxDbxApp::On_kPreQuitMsg(void*) {
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxDbxApp::On_kInitDialogMsg(void*) {
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxDbxApp::On_kEndDialogMsg(void*) {
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxDbxApp::On_kNullMsg(void*) {
    return AcRx::kRetOK;
}

void AcRxDbxApp::RegisterServerComponents() {}

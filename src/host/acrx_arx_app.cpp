#include "host/acrx_arx_app.h"

#include "host/command_registration.h"
#include "host/lisp_functions.h"

AcRx::AppRetCode AcRxArxApp::On_kInitAppMsg(void* packet) {
    const AcRx::AppRetCode result = AcRxDbxApp::On_kInitAppMsg(packet);
    RegisterCommands(CommandTable(), m_hInstance);
    return result;
}

AcRx::AppRetCode AcRxArxApp::On_kUnloadAppMsg(void* packet) {
    // Meant: the classes go first here too, not in the reverse order of the start.
    const AcRx::AppRetCode result = AcRxDbxApp::On_kUnloadAppMsg(packet);
    RemoveCommands(CommandTable());
    return result;
}

AcRx::AppRetCode AcRxArxApp::On_kLoadDwgMsg(void*) {
    DefineLispFunctions(LispTable(), m_hInstance);
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxArxApp::On_kUnloadDwgMsg(void*) {
    UndefineLispFunctions(LispTable(), m_hInstance);
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxArxApp::On_kInvkSubrMsg(void*) {
    InvokeLispFunction(LispTable());
    return AcRx::kRetOK;
}

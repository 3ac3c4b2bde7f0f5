// A module that does all it should and tells of it: every message and reactor call becomes a line,
// and its commands and LISP functions show what the host hands over. A copy under another name puts
// that name ahead of what it tells.

#include "modules/fixture_exports.h"

#include "aced.h"

#include <windows.h>

#include <string>

namespace {

const ACHAR* TitleOf(const AcApDocument* document) {
    return document == nullptr ? L"-" : document->docTitle();
}

const ACHAR* CurrentTitle() {
    return acDocManagerPtr() == nullptr ? L"-" : TitleOf(acDocManagerPtr()->curDocument());
}

/// The file's name up to its extension and a blank; empty for the recorder under its own name.
std::wstring TellerName() {
    HMODULE own = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<const wchar_t*>(&TellerName), &own);
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(own, path, MAX_PATH);
    const std::wstring file = path;
    const std::size_t start = file.rfind(L'\\') + 1;
    const std::wstring name = file.substr(start, file.rfind(L'.') - start);
    return name == L"recorder" ? L"" : name + L" ";
}

void Tell(const ACHAR* what, const ACHAR* about) {
    static const std::wstring teller = TellerName();
    acutPrintf(L"\n[%s%s %s]", teller.c_str(), what, about);
}

class Reactor : public AcApDocManagerReactor {
    void documentCreateStarted(AcApDocument* document) override {
        Tell(L"documentCreateStarted", TitleOf(document));
    }
    void documentCreated(AcApDocument* document) override {
        Tell(L"documentCreated", TitleOf(document));
    }
    void documentToBeDestroyed(AcApDocument* document) override {
        Tell(L"documentToBeDestroyed", TitleOf(document));
    }
    void documentBecameCurrent(AcApDocument* document) override {
        Tell(L"documentBecameCurrent", TitleOf(document));
    }
    void documentToBeActivated(AcApDocument* document) override {
        Tell(L"documentToBeActivated", TitleOf(document));
    }
    void documentToBeDeactivated(AcApDocument* document) override {
        Tell(L"documentToBeDeactivated", TitleOf(document));
    }
    void documentActivated(AcApDocument* document) override {
        Tell(L"documentActivated", TitleOf(document));
    }
    void documentDestroyed(const ACHAR* fileName) override { Tell(L"documentDestroyed", fileName); }
};

Reactor g_reactor;

AcRxDynamicLinker* Linker() {
    return static_cast<AcRxDynamicLinker*>(acrxSysRegistry()->at(L"DynamicLinker"));
}

AcEdCommandStack* Commands() {
    return static_cast<AcEdCommandStack*>(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"));
}

void Hello() {
    acutPrintf(L"\nhello from %s", CurrentTitle());
}

void Session() {
    acutPrintf(L"\nsession command in %s", CurrentTitle());
}

void Queue() {
    ads_queueexpr(L"(princ \"\\nqueued by a command\")");
    acutPrintf(L"\ncommand done");
}

int Direct() {
    acedRetInt(acedGetFunCode());
    return RSRSLT;
}

int DirectFailure() {
    return RSERR;
}

void RegisterAll() {
    acDocManagerPtr()->addReactor(&g_reactor);
    Commands()->addCommand(L"REC", L"RecHello", L"招呼", ACRX_CMD_MODAL, Hello);
    Commands()->addCommand(L"REC", L"RecSession", L"RecSession", ACRX_CMD_SESSION, Session);
    Commands()->addCommand(L"REC", L"RecQueue", L"_RecQueue", ACRX_CMD_MODAL, Queue);
    acedRegFunc(Direct, 1);
    acedRegFunc(DirectFailure, 2);
}

constexpr const ACHAR* functions[] = {L"rec-arguments", L"rec-direct", L"rec-direct-failure",
                                      L"rec-failure",   L"rec-queue",  L"C:RecLisp",
                                      L"rec-nothing",   L"rec-void"};

AcRx::AppRetCode Invoke() {
    switch (acedGetFunCode()) {
        case 0: {
            resbuf* arguments = acedGetArgs();
            acedRetList(arguments);
            acutRelRb(arguments);
            break;
        }
        case 3:
            return AcRx::kRetError;
        case 4:
            ads_queueexpr(L"(princ \"\\nqueued by a function\")");
            acedRetStr(L"function done");
            break;
        case 5:
            Tell(L"C:RecLisp", CurrentTitle());
            acedRetVoid();
            break;
        case 7:
            acedRetVoid();
            break;
    }
    return AcRx::kRetOK;
}

void DefineAll() {
    short code = 0;
    for (const ACHAR* name : functions)
        acedDefun(name, code++);
}

void UndefineAll() {
    short code = 0;
    for (const ACHAR* name : functions)
        acedUndef(name, code++);
}

}  // namespace

AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) {
    switch (message) {
        case AcRx::kInitAppMsg:
            Linker()->unlockApplication(packet);
            Linker()->registerAppMDIAware(packet);
            RegisterAll();
            Tell(L"kInitAppMsg", CurrentTitle());
            break;
        case AcRx::kUnloadAppMsg:
            Tell(L"kUnloadAppMsg", CurrentTitle());
            Commands()->removeGroup(L"REC");
            acDocManagerPtr()->removeReactor(&g_reactor);
            break;
        case AcRx::kLoadDwgMsg:
            Tell(L"kLoadDwgMsg", CurrentTitle());
            DefineAll();
            ads_queueexpr(L"(princ (strcat \"\\nqueued for \" (getvar \"DWGNAME\")))");
            break;
        case AcRx::kUnloadDwgMsg:
            Tell(L"kUnloadDwgMsg", CurrentTitle());
            UndefineAll();
            break;
        case AcRx::kInvkSubrMsg:
            return Invoke();
        case AcRx::kPreQuitMsg:
            Tell(L"kPreQuitMsg", CurrentTitle());
            break;
        case AcRx::kQuitMsg:
            Tell(L"kQuitMsg", CurrentTitle());
            break;
        default:
            acutPrintf(L"\n[message %d]", message);
    }
    return AcRx::kRetOK;
}

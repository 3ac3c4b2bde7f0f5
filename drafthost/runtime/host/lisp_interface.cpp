#include "runtime/host/calling_module.h"
#include "runtime/host/lisp_call.h"
#include "runtime/host/offences.h"
#include "runtime/host/result_buffers.h"
#include "runtime/host/services.h"

#include "acedads.h"
#include "acutads.h"

#include <cstdint>

using drafthost::CallingModule;
using drafthost::IsHostThread;
using drafthost::LispCall;

namespace {

drafthost::Document* CurrentDocument() {
    drafthost::Services* services = drafthost::HostServices();
    return services == nullptr ? nullptr : services->documents.Current();
}

bool IsEmpty(const ACHAR* text) {
    return text == nullptr || *text == 0;
}

/// Gives `result` to the running call, if `service` may be used now.
int Return(const wchar_t* service, resbuf* result) {
    LispCall* call = IsHostThread(service) ? LispCall::Innermost() : nullptr;
    if (call == nullptr) {
        acutRelRb(result);
        return RTERROR;
    }
    call->SetResult(result);
    return RTNORM;
}

}  // namespace

int acedDefun(const ACHAR* sname, short funcno) {
    const void* caller = __builtin_return_address(0);
    if (!IsHostThread(L"acedDefun")) return RTERROR;
    drafthost::Document* document = CurrentDocument();
    if (IsEmpty(sname) || document == nullptr) return RTERROR;
    document->Define(sname, funcno, CallingModule(caller));
    return RTNORM;
}

int acedUndef(const ACHAR* sname, short funcno) {
    const void* caller = __builtin_return_address(0);
    if (!IsHostThread(L"acedUndef")) return RTERROR;
    drafthost::Document* document = CurrentDocument();
    if (IsEmpty(sname) || document == nullptr) return RTERROR;
    return document->Undefine(sname, funcno, CallingModule(caller)) ? RTNORM : RTERROR;
}

int acedRegFunc(int (*fhdl)(), int fcode) {
    const void* caller = __builtin_return_address(0);
    if (!IsHostThread(L"acedRegFunc") || fhdl == nullptr) return RTERROR;
    drafthost::RegisterDirectFunction(CallingModule(caller), fcode, fhdl);
    return RTNORM;
}

int acedGetFunCode() {
    if (!IsHostThread(L"acedGetFunCode")) return RTERROR;
    const LispCall* call = LispCall::Innermost();
    return call == nullptr ? RTERROR : call->Code();
}

resbuf* acedGetArgs() {
    if (!IsHostThread(L"acedGetArgs")) return nullptr;
    const LispCall* call = LispCall::Innermost();
    return call == nullptr ? nullptr : drafthost::CopyResultBuffers(call->Arguments());
}

int acedRetStr(const ACHAR* s) {
    return s == nullptr ? RTERROR : Return(L"acedRetStr", acutBuildList(RTSTR, s, 0));
}

int acedRetInt(int ival) {
    return Return(L"acedRetInt", acutBuildList(RTLONG, ival, 0));
}

int acedRetReal(ads_real rval) {
    return Return(L"acedRetReal", acutBuildList(RTREAL, rval, 0));
}

int acedRetNil() {
    return Return(L"acedRetNil", acutBuildList(RTNIL, 0));
}

int acedRetT() {
    return Return(L"acedRetT", acutBuildList(RTT, 0));
}

int acedRetVoid() {
    return Return(L"acedRetVoid", acutBuildList(RTVOID, 0));
}

int acedRetList(const resbuf* rbuf) {
    if (rbuf == nullptr) return RTERROR;
    // In brackets of its own, whatever the list holds: it comes back as one LISP list.
    resbuf* result = acutNewRb(RTLB);
    result->rbnext = drafthost::CopyResultBuffers(rbuf);
    resbuf* last = result;
    while (last->rbnext != nullptr)
        last = last->rbnext;
    last->rbnext = acutNewRb(RTLE);
    return Return(L"acedRetList", result);
}

int ads_queueexpr(const ACHAR* expression) {
    if (!IsHostThread(L"ads_queueexpr")) return RTERROR;
    drafthost::Document* document = CurrentDocument();
    if (expression == nullptr || document == nullptr) return RTERROR;
    document->m_queue.push_back(expression);
    return RTNORM;
}

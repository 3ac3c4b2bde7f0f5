#include "runtime/host/module_call.h"

#include "runtime/host/crash.h"
#include "runtime/host/offences.h"
#include "runtime/host/services.h"

#include <exception>

namespace drafthost {

namespace {

const ModuleCall* g_innermost = nullptr;

std::size_t PushedHandles() {
    const Services* services = HostServices();
    return services == nullptr ? 0 : services->documents.m_resourceHandles.Depth();
}

}  // namespace

ModuleCall::ModuleCall(HMODULE module, const wchar_t* what)
    : m_module(module),
      m_what(what),
      m_outer(g_innermost),
      m_resourceHandles(PushedHandles()),
      m_uncaughtExceptions(std::uncaught_exceptions()) {
    g_innermost = this;
    RenewCrashFilter();
}

ModuleCall::~ModuleCall() {
    EndAfterSwallowedException(m_uncaughtExceptions);
    g_innermost = m_outer;
    const std::size_t pushed = PushedHandles();
    if (pushed == m_resourceHandles) return;
    const std::wstring what = m_what;
    if (pushed < m_resourceHandles) {
        ReportOffence(m_module, L"popResourceHandle of what it hadn't pushed, during " + what);
        return;
    }
    ReportOffence(m_module, L"pushResourceHandle without popResourceHandle during " + what);
    HostServices()->documents.m_resourceHandles.PopTo(m_resourceHandles);
}

const ModuleCall* ModuleCall::Innermost() {
    return g_innermost;
}

}  // namespace drafthost

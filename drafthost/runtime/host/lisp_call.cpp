#include "runtime/host/lisp_call.h"

#include "acutads.h"

namespace drafthost {

namespace {

LispCall* g_innermost = nullptr;

std::map<std::pair<HMODULE, int>, DirectFunction>& DirectFunctions() {
    static std::map<std::pair<HMODULE, int>, DirectFunction> functions;
    return functions;
}

}  // namespace

LispCall::LispCall(int code, const resbuf* arguments)
    : m_code(code), m_arguments(arguments), m_outer(g_innermost) {
    g_innermost = this;
}

LispCall::~LispCall() {
    g_innermost = m_outer;
    acutRelRb(m_result);
}

LispCall* LispCall::Innermost() {
    return g_innermost;
}

void LispCall::SetResult(resbuf* result) {
    acutRelRb(m_result);
    m_result = result;
}

void RegisterDirectFunction(HMODULE module, int code, DirectFunction function) {
    DirectFunctions()[{module, code}] = function;
}

DirectFunction FindDirectFunction(HMODULE module, int code) {
    const auto found = DirectFunctions().find({module, code});
    return found == DirectFunctions().end() ? nullptr : found->second;
}

void ForgetDirectFunctionsOf(HMODULE module) {
    auto& functions = DirectFunctions();
    for (auto entry = functions.begin(); entry != functions.end();) {
        entry = entry->first.first == module ? functions.erase(entry) : std::next(entry);
    }
}

}  // namespace drafthost

#include "runtime/host/external_call.h"

#include "runtime/host/document.h"
#include "runtime/host/lisp_call.h"
#include "runtime/host/lisp_values.h"
#include "runtime/host/module_call.h"
#include "runtime/host/module_table.h"
#include "runtime/lisp/error.h"

#include "acutads.h"

#include <memory>

namespace drafthost {

namespace {

struct BufferReleaser {
    void operator()(resbuf* buffers) const noexcept { acutRelRb(buffers); }
};

std::wstring FunctionName(const Document& document, HMODULE owner, int code) {
    for (const LispDefinition& definition : document.Definitions()) {
        if (definition.owner == owner && definition.code == code) return definition.name;
    }
    return L"code " + std::to_wstring(code);
}

/// Whether the module did what was asked.
bool Invoke(const Document& document, HMODULE owner, int code) {
    const std::wstring name = FunctionName(document, owner, code);
    if (const DirectFunction direct = FindDirectFunction(owner, code)) {
        const std::wstring what = L"LISP function " + name;
        return CallModule(owner, what.c_str(), direct) != RSERR;
    }
    const Module* module = ModuleTable::Instance().FindImage(owner);
    if (module == nullptr) return false;
    return Send(*module, AcRx::kInvkSubrMsg, L", LISP function " + name) != AcRx::kRetError;
}

}  // namespace

LispValue CallModuleFunction(Document& document, const LispExternal& function,
                             const std::vector<LispValue>& arguments) {
    const std::unique_ptr<resbuf, BufferReleaser> buffers(ToResultBuffers(arguments));
    const LispCall call(function.code, buffers.get());
    const auto owner = reinterpret_cast<HMODULE>(function.owner);
    if (!Invoke(document, owner, function.code)) throw LispError(L"ADS request error");
    return ToLispValue(call.Result(), document.Lisp());
}

}  // namespace drafthost

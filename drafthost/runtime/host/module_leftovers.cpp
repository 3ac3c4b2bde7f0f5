#include "runtime/host/module_leftovers.h"

#include "runtime/host/class_registry.h"
#include "runtime/host/lisp_call.h"
#include "runtime/host/services.h"

namespace drafthost {

namespace {

void Add(std::vector<std::wstring>& texts, const std::wstring& kind,
         const std::vector<std::wstring>& names, const std::wstring& tail = L"") {
    for (const std::wstring& name : names) {
        texts.emplace_back(kind).append(L" ").append(name).append(tail);
    }
}

}  // namespace

std::vector<std::wstring> RemoveLeftovers(HMODULE module) {
    Services& services = *HostServices();
    std::vector<std::wstring> texts;
    Add(texts, L"command", services.commands.RemoveCommandsOf(module));
    for (const auto& document : services.documents.Documents()) {
        Add(texts, L"LISP function", document->UndefineAllOf(module),
            std::wstring(L" in ") + document->docTitle());
    }
    ForgetDirectFunctionsOf(module);  // They have no operation that takes them back.
    for (std::size_t count = services.documents.RemoveReactorsOf(module); count > 0; --count) {
        texts.push_back(L"document reactor");
    }
    Add(texts, L"class", DeleteClassesOf(module));
    Add(texts, L"system registry entry", services.registry.RemoveEntriesOf(module));
    return texts;
}

}  // namespace drafthost

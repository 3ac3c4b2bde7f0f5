#include "runtime/host/calling_module.h"

#include "runtime/host/module_call.h"

namespace drafthost {

namespace {

HMODULE OwnModule() {
    static const HMODULE own = ModuleAt(reinterpret_cast<const void*>(&OwnModule));
    return own;
}

}  // namespace

HMODULE ModuleAt(const void* address) {
    HMODULE module = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        static_cast<const wchar_t*>(address), &module);
    return module;
}

bool IsInModule(HMODULE module, const void* address) {
    const auto* base = reinterpret_cast<const BYTE*>(module);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto* byte = static_cast<const BYTE*>(address);
    return byte >= base && byte < base + nt->OptionalHeader.SizeOfImage;
}

bool IsDraftingModule(HMODULE image) {
    return GetProcAddress(image, "acrxEntryPoint") != nullptr;
}

HMODULE CallingModule(const void* returnAddress) {
    const ModuleCall* running = ModuleCall::Innermost();
    if (running != nullptr && running->Module() != nullptr &&
        IsInModule(running->Module(), returnAddress)) {
        return running->Module();
    }
    const HMODULE caller = ModuleAt(returnAddress);
    if (caller != OwnModule()) return caller;
    return running == nullptr ? nullptr : running->Module();
}

HMODULE CallingModuleOnStack() {
    void* frames[62] = {};
    const USHORT count = RtlCaptureStackBackTrace(0, 62, frames, nullptr);
    for (USHORT index = 0; index < count; ++index) {
        const HMODULE image = ModuleAt(frames[index]);
        if (image != nullptr && IsDraftingModule(image)) return image;
    }
    return nullptr;
}

std::wstring ModuleName(HMODULE module) {
    wchar_t path[MAX_PATH] = {};
    if (module == nullptr || GetModuleFileNameW(module, path, MAX_PATH) == 0)
        return L"an unknown module";
    const std::wstring file = path;
    return file.substr(file.rfind(L'\\') + 1);
}

}  // namespace drafthost

#include "runtime/host/crash_site.h"

#include "runtime/host/calling_module.h"

#include <cstring>
#include <cwchar>

namespace drafthost {

namespace {

constexpr int deepestFrame = 200;

/// Steps to the calling frame; false at the outermost one. `handler` gets what the frame that was
/// left handles exceptions with, null for nothing.
bool StepOut(CONTEXT& context, const void*& handler) {
    handler = nullptr;
    DWORD64 base = 0;
    RUNTIME_FUNCTION* function = RtlLookupFunctionEntry(context.Rip, &base, nullptr);
    if (function == nullptr) {
        // A leaf function: nothing but the return address lies on the stack.
        context.Rip = *reinterpret_cast<const DWORD64*>(context.Rsp);
        context.Rsp += sizeof(DWORD64);
        return context.Rip != 0;
    }
    void* handlerData = nullptr;
    DWORD64 establisher = 0;
    handler = reinterpret_cast<const void*>(RtlVirtualUnwind(UNW_FLAG_EHANDLER, base, context.Rip,
                                                             function, &context, &handlerData,
                                                             &establisher, nullptr));
    return context.Rip != 0;
}

bool IsIn(const CodePlace& place, const wchar_t* image) {
    return _wcsicmp(place.image, image) == 0;
}

/// Where a jump through the import table leads, which is what a function of another image looks
/// like; any other code as it is.
const void* BehindImportJump(const void* code) {
    const auto* bytes = static_cast<const BYTE*>(code);
    if (bytes[0] != 0xFF || bytes[1] != 0x25) return code;
    INT32 distance = 0;
    std::memcpy(&distance, bytes + 2, sizeof distance);
    const void* target = nullptr;
    std::memcpy(&target, bytes + 6 + distance, sizeof target);
    return target;
}

bool IsOfCppRuntime(const void* handler) {
    const CodePlace place = PlaceOf(BehindImportJump(handler));
    return IsIn(place, L"libstdc++-6.dll") || IsIn(place, L"libgcc_s_seh-1.dll");
}

}  // namespace

CodePlace PlaceOf(const void* address) {
    CodePlace place;
    place.isKnown = true;
    place.offset = reinterpret_cast<std::uint64_t>(address);
    const HMODULE image = ModuleAt(address);
    wchar_t path[MAX_PATH] = {};
    if (image == nullptr || GetModuleFileNameW(image, path, MAX_PATH) == 0) return place;
    const wchar_t* slash = std::wcsrchr(path, L'\\');
    std::wcsncpy(place.image, slash == nullptr ? path : slash + 1, 63);
    place.offset -= reinterpret_cast<std::uint64_t>(image);
    place.isOfModule = IsDraftingModule(image);
    return place;
}

bool MayBeHandled(const CONTEXT& context) {
    CONTEXT walking = context;
    const void* handler = nullptr;
    for (int depth = 0; depth < deepestFrame; ++depth) {
        if (IsIn(PlaceOf(reinterpret_cast<const void*>(walking.Rip)), L"ntdll.dll")) return false;
        if (!StepOut(walking, handler)) break;
        if (handler != nullptr && !IsOfCppRuntime(handler)) break;
    }
    return true;
}

CodePlace InnermostModulePlace(const CONTEXT& context) {
    CONTEXT walking = context;
    const void* handler = nullptr;
    for (int depth = 0; depth < deepestFrame; ++depth) {
        const CodePlace place = PlaceOf(reinterpret_cast<const void*>(walking.Rip));
        if (place.isOfModule) return place;
        if (place.image[0] == 0 || !StepOut(walking, handler)) break;
    }
    return {};
}

}  // namespace drafthost

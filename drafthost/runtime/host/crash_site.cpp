#include "runtime/host/crash_site.h"

#include "runtime/host/calling_module.h"

#include <cwchar>

namespace drafthost {

namespace {

constexpr int deepestFrame = 200;

/// Steps to the calling frame; false at the outermost one.
bool StepOut(CONTEXT& context) {
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
    RtlVirtualUnwind(UNW_FLAG_NHANDLER, base, context.Rip, function, &context, &handlerData,
                     &establisher, nullptr);
    return context.Rip != 0;
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

CodePlace InnermostModulePlace(const CONTEXT& context) {
    CONTEXT walking = context;
    for (int depth = 0; depth < deepestFrame; ++depth) {
        const CodePlace place = PlaceOf(reinterpret_cast<const void*>(walking.Rip));
        if (place.isOfModule) return place;
        if (place.image[0] == 0 || !StepOut(walking)) break;
    }
    return {};
}

}  // namespace drafthost

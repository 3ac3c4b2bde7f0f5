#include "runtime/host/module_library.h"

#include "runtime/host/api_version.h"
#include "runtime/host/calling_module.h"
#include "runtime/host/crash.h"
#include "runtime/host/module_call.h"

namespace drafthost {

namespace {

using ApiVersionFunction = unsigned (*)(unsigned);

std::wstring LoadProblem(DWORD error) {
    const std::wstring number = L" (error " + std::to_wstring(error) + L").";
    switch (error) {
        case ERROR_BAD_EXE_FORMAT:
            return L"it is no library for 64-bit Windows" + number;
        case ERROR_MOD_NOT_FOUND:
            return L"a library that it needs is missing" + number;
        case ERROR_PROC_NOT_FOUND:
            return L"a library that it needs lacks a function" + number;
        case ERROR_DLL_INIT_FAILED:
            return L"its DllMain refused" + number;
        default:
            return L"the system doesn't load it" + number;
    }
}

std::wstring GenerationProblem(std::uint32_t apiVersion) {
    return L"it was made for library generation " + std::to_wstring(GenerationOf(apiVersion)) +
           L", and this host is of generation " + std::to_wstring(hostGeneration) + L".";
}

bool IsOtherGeneration(std::uint32_t apiVersion) {
    return GenerationOf(apiVersion) != hostGeneration;
}

/// What is wrong with the loaded library; fills in the entry point when nothing is.
std::wstring Check(HMODULE handle, EntryPoint& entryPoint) {
    const FARPROC entry = GetProcAddress(handle, "acrxEntryPoint");
    if (entry == nullptr) return L"it doesn't export acrxEntryPoint.";
    const FARPROC version = GetProcAddress(handle, "acrxGetApiVersion");
    if (version == nullptr) return L"it doesn't export acrxGetApiVersion.";

    // The head can be read without running code of another generation.
    const auto head = ApiVersionInHead(reinterpret_cast<const unsigned char*>(version));
    if (head && IsOtherGeneration(*head)) return GenerationProblem(*head);
    const auto getApiVersion =
        reinterpret_cast<ApiVersionFunction>(reinterpret_cast<void*>(version));
    const std::uint32_t answer =
        CallModule(handle, L"acrxGetApiVersion", [&] { return getApiVersion(0); });
    if (IsOtherGeneration(answer)) return GenerationProblem(answer);
    entryPoint = reinterpret_cast<EntryPoint>(reinterpret_cast<void*>(entry));
    return {};
}

}  // namespace

ModuleLibrary LoadModuleLibrary(const std::wstring& path) {
    ModuleLibrary library;
    DWORD error = 0;
    {
        const ModuleCall call(nullptr, L"static initialisers and DllMain (attach)");
        const LoaderCall loader(path.c_str() + path.rfind(L'\\') + 1);
        library.handle = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
        error = GetLastError();
    }
    if (library.handle == nullptr) {
        library.problem = LoadProblem(error);
        return library;
    }
    library.problem = Check(library.handle, library.entryPoint);
    if (!library.problem.empty()) {
        FreeModuleLibrary(library.handle);
        library.handle = nullptr;
    }
    return library;
}

void FreeModuleLibrary(HMODULE handle) {
    const std::wstring name = ModuleName(handle);
    const ModuleCall call(handle, L"DllMain and static destructors (detach)");
    const LoaderCall loader(name.c_str());
    FreeLibrary(handle);
}

}  // namespace drafthost

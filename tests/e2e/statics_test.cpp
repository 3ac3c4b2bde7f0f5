#include "e2e/pe_file.h"
#include "support/call_journal.h"
#include "support/child_scenario.h"
#include "support/import_hook.h"

#include <gtest/gtest.h>

#include <acdocman.h>
#include <afxext.h>

#include <cstdio>

namespace {

using Calls = std::vector<std::wstring>;

const PeFile* g_file = nullptr;
char* g_base = nullptr;

template <typename Value>
Value& InModule(const char* symbol) {
    return *reinterpret_cast<Value*>(g_base + g_file->SymbolAddress(symbol));
}

constexpr char locationSymbol[] = "_Z15InstallLocationB5cxx11";
constexpr char versionSymbol[] = "_Z14InstallVersionB5cxx11";

/// A built empty string points to its own buffer; memory that was never built holds zeros.
const wchar_t* State(const char* symbol) {
    const auto& text = InModule<std::wstring>(symbol);
    const wchar_t* const ownBuffer = reinterpret_cast<const wchar_t*>(&text) + 8;
    return text.data() == ownBuffer && text.empty() ? L"built" : L"missing";
}

void AddReactor(AcApDocManager*, AcApDocManagerReactor* reactor) {
    MEMORY_BASIC_INFORMATION memory = {};
    VirtualQuery(reactor, &memory, sizeof memory);
    g_base = static_cast<char*>(memory.AllocationBase);
    const bool isStatic = reactor == &InModule<AcApDocManagerReactor>("DocumentData");
    CallJournal::Add(isStatic ? L"DocumentData joins" : L"another joins");
    CallJournal::Add(std::wstring(L"location ") + State(locationSymbol));
    CallJournal::Add(std::wstring(L"version ") + State(versionSymbol));
    const bool attached = InModule<HINSTANCE>("g_moduleInstance") != nullptr;
    CallJournal::Add(attached ? L"attached" : L"not yet attached");
}

void RemoveReactor(AcApDocManager*, AcApDocManagerReactor*) {
    CallJournal::Add(L"DocumentData leaves");
}

void LeaveFramework(AFX_EXTENSION_MODULE&, BOOL) {
    CallJournal::Add(L"detached");
}

const void* g_locationMemory = nullptr;
const void* g_versionMemory = nullptr;
void (*g_realDelete)(void*, size_t) = nullptr;

void Delete(void* memory, size_t size) {
    if (memory == g_locationMemory) CallJournal::Add(L"location goes");
    if (memory == g_versionMemory) CallJournal::Add(L"version goes");
    g_realDelete(memory, size);
}

/// Gives the string so much text that it has to give memory back at its end.
const void* Fill(const char* symbol) {
    auto& text = InModule<std::wstring>(symbol);
    text.assign(100, L'x');
    return text.data();
}

/// Replaces a virtual operation of the host's document manager for good.
template <typename Operation, typename Replacement>
void Replace(Operation operation, Replacement replacement) {
    ULONG_PTR offset = 0;  // A pointer to a virtual member holds its table offset plus one.
    std::memcpy(&offset, &operation, sizeof offset);
    char* table = nullptr;
    std::memcpy(&table, static_cast<void*>(acDocManagerPtr()), sizeof table);
    auto* slot = reinterpret_cast<Replacement*>(table + offset - 1);
    DWORD protection = 0;
    VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
    *slot = replacement;
}

/// Loads and unloads the module; what is hooked stays hooked, since the module is gone by then.
CHILD_SCENARIO(LoadAndUnload) {
    const std::wstring path = ProgramFolder() + L"\\KVTCAD.arx";
    const PeFile file(path);
    g_file = &file;
    Replace(&AcApDocManager::addReactor, &AddReactor);
    Replace(&AcApDocManager::removeReactor, &RemoveReactor);
    const HMODULE module = LoadLibraryW(path.c_str());
    if (module == nullptr) return 1;
    CallJournal::Add(InModule<HINSTANCE>("g_moduleInstance") == module ? L"attached" : L"?");
    g_locationMemory = Fill(locationSymbol);
    g_versionMemory = Fill(versionSymbol);
    g_realDelete =
        (new ImportHook<void (*)(void*, size_t)>(module, "libstdc++-6.dll", "_ZdlPvy", &Delete))
            ->Original();
    new ImportHook<void (*)(AFX_EXTENSION_MODULE&, BOOL)>(
        module, "drafthost17.dll", "_Z22AfxTermExtensionModuleR20AFX_EXTENSION_MODULEi",
        &LeaveFramework);
    FreeLibrary(module);
    for (const std::wstring& call : CallJournal::Calls())
        std::printf("%ls\n", call.c_str());
    return GetModuleHandleW(L"KVTCAD.arx") == nullptr ? 0 : 2;
}

}  // namespace

TEST(ModuleStatics, AreBuiltInOrderBeforeTheAttachAndGoInReverseBehindTheDetach) {
    const ChildResult child = RunScenario(L"LoadAndUnload");

    EXPECT_EQ(child.exitCode, 0u) << child.errors;
    EXPECT_EQ(child.output,
              "DocumentData joins\r\nlocation built\r\nversion built\r\nnot yet attached\r\n"
              "attached\r\ndetached\r\nDocumentData leaves\r\nversion goes\r\nlocation goes\r\n");
}

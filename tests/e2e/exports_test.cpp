// The two exported functions of the built module, found by their names.

#include "support/call_journal.h"
#include "support/child_process.h"
#include "support/import_hook.h"

#include <gtest/gtest.h>

#include <acedads.h>
#include <acutads.h>
#include <rxregsvc.h>

namespace {

using Calls = std::vector<std::wstring>;
using ApiVersion = unsigned (*)(unsigned);
using EntryPoint = int (*)(unsigned, void*);

/// The module, freshly loaded and without a start; unloaded at the end.
class LoadedModule {
  public:
    LoadedModule() : m_module(LoadLibraryW((ProgramFolder() + L"\\KVTCAD.arx").c_str())) {
        EXPECT_NE(m_module, nullptr);
    }
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;
    ~LoadedModule() { FreeLibrary(m_module); }

    HMODULE Get() const { return m_module; }

    template <typename Function>
    Function Export(const char* name) const {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(m_module, name)));
    }

  private:
    HMODULE m_module;
};

AcRxDictionary* (*g_realRegistry)() = nullptr;

AcRxDictionary* RecordRegistry() {
    CallJournal::Add(L"acrxSysRegistry");
    return g_realRegistry();
}

int RecordPrint(const wchar_t*, ...) {
    CallJournal::Add(L"acutPrintf");
    return RTNORM;
}

int RecordDefun(const wchar_t*, short) {
    CallJournal::Add(L"acedDefun");
    return RTNORM;
}

int RecordUndef(const wchar_t*, short) {
    CallJournal::Add(L"acedUndef");
    return RTNORM;
}

int RecordFunCode() {
    CallJournal::Add(L"acedGetFunCode");
    return -1;
}

/// What each message with work to do calls first, and what a start says.
class HostCalls {
  public:
    explicit HostCalls(const LoadedModule& module)
        : m_registry(module.Get(), "drafthost17.dll", "_Z15acrxSysRegistryv", &RecordRegistry),
          m_print(module.Get(), "drafthost17.dll", "_Z10acutPrintfPKwz", &RecordPrint),
          m_defun(module.Get(), "drafthost17.dll", "_Z9acedDefunPKws", &RecordDefun),
          m_undef(module.Get(), "drafthost17.dll", "_Z9acedUndefPKws", &RecordUndef),
          m_code(module.Get(), "drafthost17.dll", "_Z14acedGetFunCodev", &RecordFunCode) {
        g_realRegistry = m_registry.Original();
        CallJournal::Clear();
    }

  private:
    ImportHook<decltype(&acrxSysRegistry)> m_registry;
    ImportHook<decltype(&acutPrintf)> m_print;
    ImportHook<decltype(&acedDefun)> m_defun;
    ImportHook<decltype(&acedUndef)> m_undef;
    ImportHook<decltype(&acedGetFunCode)> m_code;
};

}  // namespace

TEST(ModuleExports, TheVersionOfAFreshModuleIsItsGenerationTwice) {
    for (const unsigned argument : {0u, 5u}) {
        const LoadedModule module;
        const auto version = module.Export<ApiVersion>("acrxGetApiVersion");
        ASSERT_NE(version, nullptr);

        EXPECT_EQ(version(argument), 0x110000u) << argument;
        EXPECT_EQ(version(argument), 0x110000u) << argument;
    }
}

TEST(ModuleExports, AMessageAboveTheLastIsAnsweredOkAndCallsNothing) {
    const LoadedModule module;
    const auto entry = module.Export<EntryPoint>("acrxEntryPoint");
    ASSERT_NE(entry, nullptr);
    const HostCalls calls(module);

    for (const unsigned code : {16u, 17u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        EXPECT_EQ(entry(code, nullptr), 0) << code;
    }
    EXPECT_EQ(CallJournal::Calls(), Calls{});
}

TEST(ModuleExports, AMessageWithWorkReachesItsOperation) {
    const LoadedModule module;
    const auto entry = module.Export<EntryPoint>("acrxEntryPoint");
    ASSERT_NE(entry, nullptr);
    const HostCalls calls(module);

    EXPECT_EQ(entry(AcRx::kInvkSubrMsg, nullptr), 0);
    EXPECT_EQ(entry(AcRx::kUnloadDwgMsg, nullptr), 0);

    EXPECT_EQ(CallJournal::Calls(), (Calls{L"acedGetFunCode", L"acedUndef"}));
}

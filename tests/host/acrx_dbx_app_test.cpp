#include "host/acrx_dbx_app.h"

#include "host/fake_host.h"
#include "host/module_handles.h"
#include "host/with_components.h"
#include "support/call_journal.h"
#include "support/child_scenario.h"

#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

namespace {

constexpr const wchar_t* operationNames[] = {
    L"InitApp", L"UnloadApp",  L"LoadDwg",   L"UnloadDwg",  L"InvkSubr",     L"Cfg",
    L"End",     L"Quit",       L"Save",      L"Dependency", L"NoDependency", L"OleUnloadApp",
    L"PreQuit", L"InitDialog", L"EndDialog", L"Null",
};

int g_packet = 0;
void* const packet = &g_packet;
// Neither of the two codes that the module answers with by itself.
constexpr auto ownAnswer = static_cast<AcRx::AppRetCode>(2);

/// Records which operation ran and with what.
class Recorder : public AcRxDbxApp {
  public:
    AcRx::AppRetCode On_kInitAppMsg(void* p) override { return Note(0, p); }
    AcRx::AppRetCode On_kUnloadAppMsg(void* p) override { return Note(1, p); }
    AcRx::AppRetCode On_kLoadDwgMsg(void* p) override { return Note(2, p); }
    AcRx::AppRetCode On_kUnloadDwgMsg(void* p) override { return Note(3, p); }
    AcRx::AppRetCode On_kInvkSubrMsg(void* p) override { return Note(4, p); }
    AcRx::AppRetCode On_kCfgMsg(void* p) override { return Note(5, p); }
    AcRx::AppRetCode On_kEndMsg(void* p) override { return Note(6, p); }
    AcRx::AppRetCode On_kQuitMsg(void* p) override { return Note(7, p); }
    AcRx::AppRetCode On_kSaveMsg(void* p) override { return Note(8, p); }
    AcRx::AppRetCode On_kDependencyMsg(void* p) override { return Note(9, p); }
    AcRx::AppRetCode On_kNoDependencyMsg(void* p) override { return Note(10, p); }
    AcRx::AppRetCode On_kOleUnloadAppMsg(void* p) override { return Note(11, p); }
    AcRx::AppRetCode On_kPreQuitMsg(void* p) override { return Note(12, p); }
    AcRx::AppRetCode On_kInitDialogMsg(void* p) override { return Note(13, p); }
    AcRx::AppRetCode On_kEndDialogMsg(void* p) override { return Note(14, p); }
    AcRx::AppRetCode On_kNullMsg(void* p) override { return Note(15, p); }
    void RegisterServerComponents() override { CallJournal::Add(L"RegisterServerComponents"); }

  private:
    static AcRx::AppRetCode Note(int slot, void* given) {
        EXPECT_EQ(given, packet);
        CallJournal::Add(operationNames[slot]);
        return ownAnswer;
    }
};

/// The bare base, as a class that can be made.
class Plain : public AcRxDbxApp {};

using Calls = std::vector<std::wstring>;

/// Puts a handle into `g_moduleInstance` for one test.
class ModuleInstance {
  public:
    explicit ModuleInstance(HINSTANCE instance) { g_moduleInstance = instance; }
    ModuleInstance(const ModuleInstance&) = delete;
    ModuleInstance& operator=(const ModuleInstance&) = delete;
    ~ModuleInstance() { g_moduleInstance = nullptr; }
};

/// A start in a host that has no services, with these flags.
int StartWithoutServices(bool unlockOnInit, bool mdiAware) {
    FakeHost host;
    host.m_registry.m_entries.clear();
    Plain app;
    app.m_unlockOnInit = unlockOnInit;
    app.m_mdiAware = mdiAware;
    app.On_kInitAppMsg(packet);
    return 0;
}

CHILD_SCENARIO(UnlocksWithoutLinker) {
    return StartWithoutServices(true, false);
}

CHILD_SCENARIO(IsMdiAwareWithoutLinker) {
    return StartWithoutServices(false, true);
}

CHILD_SCENARIO(NeedsNoLinker) {
    return StartWithoutServices(false, false);
}

}  // namespace

TEST(Dispatch, EveryCodeReachesItsOperationWithThePacket) {
    constexpr int slotOfCode[16] = {15, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14};
    Recorder app;
    for (unsigned code = 0; code < 16; ++code) {
        CallJournal::Clear();
        EXPECT_EQ(app.Dispatch(code, packet), ownAnswer) << code;
        EXPECT_EQ(CallJournal::Calls(), Calls{operationNames[slotOfCode[code]]}) << code;
    }
}

TEST(Dispatch, ACodeAbove15RunsNothing) {
    Recorder app;
    CallJournal::Clear();
    for (const unsigned code : {16u, 17u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        EXPECT_EQ(app.Dispatch(code, packet), AcRx::kRetOK) << code;
    }
    EXPECT_EQ(CallJournal::Calls(), Calls{});
}

TEST(AcRxDbxApp, HasItsSeventeenOperationsInTheFixedOrder) {
    using Operation = AcRx::AppRetCode (*)(AcRxDbxApp*, void*);
    Recorder app;
    const Operation* table = nullptr;
    std::memcpy(&table, static_cast<const void*>(&app), sizeof table);
    CallJournal::Clear();
    Calls expected;
    for (int slot = 0; slot < 16; ++slot) {
        table[slot](&app, packet);
        expected.push_back(operationNames[slot]);
    }
    table[16](&app, nullptr);
    expected.push_back(L"RegisterServerComponents");

    EXPECT_EQ(CallJournal::Calls(), expected);
}

TEST(AcRxDbxApp, HasItsThreeFieldsInOrderAndNoMore) {
    const Plain app;
    const auto* start = reinterpret_cast<const char*>(&app);

    EXPECT_EQ(app.m_hInstance, nullptr);
    EXPECT_TRUE(app.m_unlockOnInit);
    EXPECT_TRUE(app.m_mdiAware);
    EXPECT_EQ(reinterpret_cast<const char*>(&app.m_hInstance) - start, 8);
    EXPECT_EQ(reinterpret_cast<const char*>(&app.m_unlockOnInit) - start, 16);
    EXPECT_EQ(reinterpret_cast<const char*>(&app.m_mdiAware) - start, 17);
    EXPECT_EQ(sizeof app, 24u);
    EXPECT_TRUE(std::is_trivially_destructible_v<Plain>);
}

TEST(AcRxDbxApp, WhatItDoesNotHandleIsAnsweredOkAndDoesNothing) {
    const FakeHost host;
    Plain app;

    for (const unsigned code : {0u, 3u, 4u, 5u, 6u, 7u, 8u, 9u, 10u, 11u, 12u, 13u, 14u, 15u}) {
        EXPECT_EQ(app.Dispatch(code, packet), AcRx::kRetOK) << code;
    }
    app.RegisterServerComponents();

    EXPECT_EQ(CallJournal::Calls(), Calls{});
    EXPECT_EQ(app.m_hInstance, nullptr);
}

TEST(AcRxDbxApp, TheStartLooksTheLinkerUpForEachOfItsTwoCalls) {
    const FakeHost host;
    const ModuleInstance module(GetModuleHandleW(nullptr));
    WithComponents<AcRxDbxApp> app;

    EXPECT_EQ(app.On_kInitAppMsg(packet), AcRx::kRetOK);

    EXPECT_EQ(app.m_hInstance, GetModuleHandleW(nullptr));
    EXPECT_EQ(host.m_linker.m_unlockPacket, packet);
    EXPECT_EQ(host.m_linker.m_mdiAwarePacket, packet);
    EXPECT_EQ(CallJournal::Calls(),
              (Calls{L"at DynamicLinker", L"unlockApplication", L"at DynamicLinker",
                     L"registerAppMDIAware", L"RegisterServerComponents"}));
}

TEST(AcRxDbxApp, EachDeclarationHangsOnItsOwnFlag) {
    const FakeHost host;
    Plain app;

    app.m_unlockOnInit = false;
    app.On_kInitAppMsg(packet);
    EXPECT_EQ(CallsBesideLookUps(), Calls{L"registerAppMDIAware"});

    CallJournal::Clear();
    app.m_unlockOnInit = true;
    app.m_mdiAware = false;
    app.On_kInitAppMsg(packet);
    EXPECT_EQ(CallsBesideLookUps(), Calls{L"unlockApplication"});
}

TEST(AcRxDbxApp, MeantAHostWithoutLinkerCrashesTheStart) {
    EXPECT_EQ(RunScenario(L"UnlocksWithoutLinker").exitCode, 0xC0000005);
    EXPECT_EQ(RunScenario(L"IsMdiAwareWithoutLinker").exitCode, 0xC0000005);
    EXPECT_EQ(RunScenario(L"NeedsNoLinker").exitCode, 0u);
}

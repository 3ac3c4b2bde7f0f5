#include "host/command_registration.h"

#include "host/fake_host.h"
#include "host/host_services.h"
#include "host/load_kvt_command.h"
#include "host/resource_name.h"
#include "host/string_resources.h"
#include "support/call_journal.h"
#include "support/child_scenario.h"

#include <gtest/gtest.h>

namespace {

using Calls = std::vector<std::wstring>;

void First() {}
void Second() {}

AcEdUIContext* const context = reinterpret_cast<AcEdUIContext*>(static_cast<ULONG_PTR>(0x99));

ArxCommandEntry g_plain = {L"组", L"PLAIN", L"_PLAIN", 1, &First, context, noStringResource};
ArxCommandEntry g_session = {L"组",   L"SESSION", L"_SESSION",     ACRX_CMD_SESSION | 2,
                             &Second, nullptr,    noStringResource};
ArxCommandEntry g_resource = {L"G", L"RESOURCE", nullptr, 0, &First, nullptr, 200};

ArxCommandEntry* const g_slots[] = {nullptr, &g_plain, nullptr, &g_session, &g_resource, nullptr};
const SlotRange<ArxCommandEntry> table(&g_slots[0], &g_slots[5]);

HINSTANCE Module() {
    return GetModuleHandleW(nullptr);
}

CHILD_SCENARIO(RegistersWithoutStack) {
    FakeHost host;
    host.m_registry.m_entries.clear();
    RegisterCommands(table, Module());
    return 0;
}

CHILD_SCENARIO(RemovesWithoutStack) {
    FakeHost host;
    host.m_registry.m_entries.clear();
    RemoveCommands(table);
    return 0;
}

}  // namespace

TEST(RegisterCommands, GivesEachRowToTheStack) {
    FakeHost host;

    RegisterCommands(table, Module());

    ASSERT_EQ(host.m_commands.m_added.size(), 3u);
    const AddedCommand& plain = host.m_commands.m_added[0];
    EXPECT_EQ(plain.group, L"组");
    EXPECT_EQ(plain.globalName, L"PLAIN");
    EXPECT_EQ(plain.localName, L"_PLAIN");
    EXPECT_EQ(plain.flags, 1);
    EXPECT_EQ(plain.handler, &First);
    EXPECT_EQ(plain.uiContext, context);
    EXPECT_EQ(plain.functionCode, -1);
    EXPECT_EQ(plain.resourceHandle, Module());
    EXPECT_EQ(plain.created, nullptr);
}

TEST(RegisterCommands, ASessionCommandHasNoResourceHandle) {
    FakeHost host;

    RegisterCommands(table, Module());

    ASSERT_EQ(host.m_commands.m_added.size(), 3u);
    EXPECT_EQ(host.m_commands.m_added[1].flags, 0x200002);
    EXPECT_EQ(host.m_commands.m_added[1].resourceHandle, nullptr);
    EXPECT_EQ(host.m_commands.m_added[2].resourceHandle, Module());
}

TEST(RegisterCommands, ANullLocalNameComesFromTheStringResourceCutAt131) {
    FakeHost host;

    RegisterCommands(table, Module());

    ASSERT_EQ(host.m_commands.m_added.size(), 3u);
    EXPECT_EQ(host.m_commands.m_added[2].localName.size(), 131u);
    EXPECT_EQ(host.m_commands.m_added[2].localName.substr(0, 11), L"甲234567890甲");
}

TEST(RegisterCommands, TheStringResourceIsThatOfTheInstanceGiven) {
    FakeHost host;
    const StringResources resources;
    const auto instance = reinterpret_cast<HINSTANCE>(static_cast<ULONG_PTR>(0x7770000));

    RegisterCommands(table, instance);

    ASSERT_EQ(host.m_commands.m_added.size(), 3u);
    EXPECT_EQ(host.m_commands.m_added[2].localName, StringResources::Text(instance, 200));
}

TEST(RegisterCommands, MeantAHostWithoutStackCrashesIt) {
    EXPECT_EQ(RunScenario(L"RegistersWithoutStack").exitCode, 0xC0000005);
    EXPECT_EQ(RunScenario(L"RemovesWithoutStack").exitCode, 0xC0000005);
}

TEST(RegisterCommands, LooksTheStackUpForEachRowAndGoesOnAfterARefusal) {
    FakeHost host;
    CommandStack();  // From here on its class is known.
    CallJournal::Clear();

    RegisterCommands(table, Module());

    ASSERT_EQ(CallJournal::Calls().size(), 6u);
    EXPECT_EQ(CallJournal::Count(L"at ACAD_REGISTERED_COMMANDS"), 3);
    EXPECT_EQ(CallsBesideLookUps(), (Calls{L"addCommand _PLAIN", L"addCommand _SESSION",
                                           L"addCommand " + host.m_commands.m_added[2].localName}));
}

TEST(RemoveCommands, TakesEachRowOffByGroupAndGlobalName) {
    FakeHost host;
    CommandStack();
    CallJournal::Clear();

    RemoveCommands(table);

    EXPECT_EQ(CallJournal::Calls(),
              (Calls{L"at ACAD_REGISTERED_COMMANDS", L"removeCmd 组 PLAIN",
                     L"at ACAD_REGISTERED_COMMANDS", L"removeCmd 组 SESSION",
                     L"at ACAD_REGISTERED_COMMANDS", L"removeCmd G RESOURCE"}));
}

TEST(RegisterCommands, AnEmptyTableAsksForNothing) {
    FakeHost host;
    const SlotRange<ArxCommandEntry> empty(&g_slots[0], &g_slots[1]);

    RegisterCommands(empty, Module());
    RemoveCommands(empty);

    EXPECT_TRUE(CallJournal::Calls().empty());
}

TEST(CommandTable, MeantTheLocalNameHasTheUnderscore) {
    int rows = 0;
    for (const ArxCommandEntry& row : CommandTable()) {
        ++rows;
        EXPECT_STREQ(row.groupName, L"KVTCAD");
        EXPECT_STREQ(row.globalName, L"LoadKVT");
        EXPECT_STREQ(row.localName, L"_LoadKVT");
        EXPECT_EQ(row.flags, 1);
        EXPECT_EQ(row.handler, &LoadKVTCommand);
        EXPECT_EQ(row.uiContext, nullptr);
        EXPECT_EQ(row.localNameId, 0xFFFFFFFF);
    }
    EXPECT_EQ(rows, 1);
}

TEST(ArxCommandEntry, HasItsFieldsInTheFixedOrder) {
    EXPECT_EQ(offsetof(ArxCommandEntry, groupName), 0u);
    EXPECT_EQ(offsetof(ArxCommandEntry, globalName), 8u);
    EXPECT_EQ(offsetof(ArxCommandEntry, localName), 16u);
    EXPECT_EQ(offsetof(ArxCommandEntry, flags), 24u);
    EXPECT_EQ(offsetof(ArxCommandEntry, handler), 32u);
    EXPECT_EQ(offsetof(ArxCommandEntry, uiContext), 40u);
    EXPECT_EQ(offsetof(ArxCommandEntry, localNameId), 48u);
}

#include "host/host_services.h"

#include "host/fake_host.h"
#include "support/call_journal.h"
#include "support/child_scenario.h"

#include <gtest/gtest.h>

#include <acdocman.h>

namespace {

using Calls = std::vector<std::wstring>;

/// Whether a second call asked the registry for exactly these, and a first one for these and the
/// class before.
CHILD_SCENARIO(CommandStackAsksForItsClassOnce) {
    FakeHost host;
    CommandStack();
    const Calls first = CallJournal::Take();
    CommandStack();
    return first == Calls{L"at ACAD_REGISTERED_COMMANDS", L"at ClassDictionary",
                          L"at AcEdCommandStack"} &&
                   CallJournal::Calls() == Calls{L"at ACAD_REGISTERED_COMMANDS"}
               ? 0
               : 1;
}

/// A first look-up that finds no object asks for no class.
CHILD_SCENARIO(CommandStackMissing) {
    FakeHost host;
    host.m_registry.m_entries.clear();
    const bool isNull = CommandStack() == nullptr;
    return isNull && CallJournal::Calls() == Calls{L"at ACAD_REGISTERED_COMMANDS"} ? 0 : 1;
}

CHILD_SCENARIO(ReactorClassAsksOnce) {
    FakeHost host;
    CallJournal::Clear();
    AcRxClass* const first = DocManagerReactorClass();
    const Calls calls = CallJournal::Take();
    AcRxClass* const second = DocManagerReactorClass();
    return first == AcApDocManagerReactor::desc() && second == first &&
                   calls == Calls{L"at ClassDictionary", L"at AcApDocManagerReactor"} &&
                   CallJournal::Calls().empty()
               ? 0
               : 1;
}

}  // namespace

TEST(DynamicLinker, IsLookedUpAtEachUse) {
    FakeHost host;

    EXPECT_EQ(DynamicLinker(), &host.m_linker);
    EXPECT_EQ(DynamicLinker(), &host.m_linker);

    EXPECT_EQ(CallJournal::Calls(), (Calls{L"at DynamicLinker", L"at DynamicLinker"}));
}

TEST(DynamicLinker, AnObjectOfAnotherClassOrNoneIsNull) {
    FakeHost host;

    host.m_registry.m_entries = {{L"DynamicLinker", &host.m_commands}};
    EXPECT_EQ(DynamicLinker(), nullptr);
    host.m_registry.m_entries.clear();
    EXPECT_EQ(DynamicLinker(), nullptr);
}

TEST(CommandStack, IsLookedUpAtEachUseItsClassOnce) {
    EXPECT_EQ(RunScenario(L"CommandStackAsksForItsClassOnce").exitCode, 0u);
}

TEST(CommandStack, TheObjectIsAskedForFirst) {
    EXPECT_EQ(RunScenario(L"CommandStackMissing").exitCode, 0u);
}

TEST(CommandStack, AnObjectOfAnotherClassIsNull) {
    FakeHost host;

    EXPECT_EQ(CommandStack(), &host.m_commands);
    host.m_registry.m_entries[1].second = &host.m_linker;
    EXPECT_EQ(CommandStack(), nullptr);
}

TEST(DocManagerReactorClass, IsLookedUpOnce) {
    EXPECT_EQ(RunScenario(L"ReactorClassAsksOnce").exitCode, 0u);
}

TEST(HostServices, TheRealHostHasThem) {
    EXPECT_NE(DynamicLinker(), nullptr);
    EXPECT_NE(CommandStack(), nullptr);
    EXPECT_EQ(DocManagerReactorClass(), AcApDocManagerReactor::desc());
}

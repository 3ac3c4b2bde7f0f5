#include "host/host_services.h"

#include "host/fake_host.h"
#include "support/call_journal.h"
#include "support/child_scenario.h"

#include <gtest/gtest.h>

#include <acdocman.h>

namespace {

using Calls = std::vector<std::wstring>;

/// A class of its own that derives from a class of the host, for the life of this object.
class DerivedClass {
  public:
    explicit DerivedClass(const wchar_t* parent)
        : m_class(newAcRxClass(L"KvtTestDerived", parent)) {
        acrxBuildClassHierarchy();
    }
    DerivedClass(const DerivedClass&) = delete;
    DerivedClass& operator=(const DerivedClass&) = delete;
    ~DerivedClass() { deleteAcRxClass(m_class); }

    AcRxClass* Get() const { return m_class; }

  private:
    AcRxClass* m_class;
};

/// A service whose object is of a class derived from the service's own.
template <typename Service>
class Derived : public Service {
  public:
    explicit Derived(const wchar_t* parent) : m_class(parent) {}
    AcRxClass* isA() const override { return m_class.Get(); }

  private:
    DerivedClass m_class;
};

/// Whether a first call asked the registry for the object and then for its class, and a second one
/// for the object alone.
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

TEST(DynamicLinker, AnObjectOfADerivedClassWillDo) {
    FakeHost host;
    Derived<FakeLinker> linker(L"AcRxDynamicLinker");
    host.m_registry.m_entries = {{L"DynamicLinker", &linker}};

    EXPECT_EQ(DynamicLinker(), &linker);
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

TEST(CommandStack, AnObjectOfADerivedClassWillDo) {
    FakeHost host;
    Derived<FakeCommandStack> commands(L"AcEdCommandStack");
    host.m_registry.m_entries[1].second = &commands;

    EXPECT_EQ(CommandStack(), &commands);
}

TEST(DocManagerReactorClass, IsLookedUpOnce) {
    EXPECT_EQ(RunScenario(L"ReactorClassAsksOnce").exitCode, 0u);
}

TEST(HostServices, TheRealHostHasThem) {
    EXPECT_NE(DynamicLinker(), nullptr);
    EXPECT_NE(CommandStack(), nullptr);
    EXPECT_EQ(DocManagerReactorClass(), AcApDocManagerReactor::desc());
}

#include "host/data_manager.h"

#include "host/document_data.h"
#include "host/fake_doc_manager.h"
#include "host/fake_host.h"
#include "support/call_journal.h"
#include "support/child_scenario.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <type_traits>

namespace {

using Calls = std::vector<std::wstring>;

int g_alive = 0;

/// Counts the values that live.
struct Counted {
    Counted() { ++g_alive; }
    Counted(const Counted&) { ++g_alive; }
    ~Counted() { --g_alive; }
};

/// Lets a test reach what the module itself never does.
class Manager : public AcApDataManager<Counted> {
  public:
    using AcApDataManager<Counted>::m_dataMap;
    using AcApDocManagerReactor::m_veto;

    // Not inlined: the compiler would see a global allocation that is freed by another class's
    // means.
    [[gnu::noinline]] void* operator new(size_t size) { return ::operator new(size); }
    [[gnu::noinline]] void operator delete(void* memory) {
        CallJournal::Add(L"free");
        ::operator delete(memory);
    }
    void* operator new(size_t, void* place) { return place; }
};

AcApDocument* Document(int number) {
    return reinterpret_cast<AcApDocument*>(static_cast<ULONG_PTR>(0x1000 * number));
}

CHILD_SCENARIO(JoinsAHostWithoutManager) {
    const DocManagerHook hook;
    DocManagerHook::TakeDown();
    const Manager manager;
    return 0;
}

/// Whether `isA` asked the registry for its class at the first call and for nothing at the second.
CHILD_SCENARIO(ManagerAsksForItsClassOnce) {
    const DocManagerHook hook;
    const Manager manager;
    const FakeHost host;
    AcRxClass* const first = manager.isA();
    const Calls calls = CallJournal::Take();
    return manager.isA() == first &&
                   calls == Calls{L"at ClassDictionary", L"at AcApDocManagerReactor"} &&
                   CallJournal::Calls().empty()
               ? 0
               : 1;
}

}  // namespace

TEST(AcApDataManager, JoinsTheHostWithOneQuestion) {
    DocManagerHook hook;

    const auto manager = std::make_unique<Manager>();

    EXPECT_EQ(CallJournal::Calls(), (Calls{L"acDocManagerPtr", L"addReactor"}));
    EXPECT_EQ(hook.m_manager.m_reactor, manager.get());
    EXPECT_TRUE(manager->m_dataMap.empty());
}

TEST(AcApDataManager, TheReactorsFieldIsClearedWhateverTheMemoryHeld) {
    DocManagerHook hook;
    alignas(Manager) unsigned char memory[sizeof(Manager)];
    std::fill(std::begin(memory), std::end(memory), static_cast<unsigned char>(0xFF));

    auto* manager = new (memory) Manager;

    EXPECT_FALSE(manager->m_veto);
    manager->~Manager();
}

TEST(AcApDataManager, LeavesTheHostWithTwoQuestions) {
    DocManagerHook hook;
    auto manager = std::make_unique<Manager>();
    manager->m_dataMap[Document(1)];
    manager->m_dataMap[Document(2)];
    CallJournal::Clear();

    const auto object = reinterpret_cast<ULONG_PTR>(manager.get());
    manager.reset();

    EXPECT_EQ(CallJournal::Calls(),
              (Calls{L"acDocManagerPtr", L"acDocManagerPtr", L"removeReactor", L"free"}));
    EXPECT_EQ(reinterpret_cast<ULONG_PTR>(hook.m_manager.m_reactor), object);
    EXPECT_EQ(g_alive, 0);
}

TEST(AcApDataManager, AHostWithoutManagerIsAskedOnceAndTheMapStillReleased) {
    DocManagerHook hook;
    auto manager = std::make_unique<Manager>();
    manager->m_dataMap[Document(1)];
    CallJournal::Clear();
    DocManagerHook::TakeDown();

    manager.reset();

    EXPECT_EQ(CallJournal::Calls(), (Calls{L"acDocManagerPtr", L"free"}));
    EXPECT_EQ(g_alive, 0);
}

TEST(AcApDataManager, MeantAHostWithoutManagerCrashesItWhenItJoins) {
    EXPECT_EQ(RunScenario(L"JoinsAHostWithoutManager").exitCode, 0xC0000005);
}

TEST(AcApDataManager, TheDestructorFreesTheObjectOnlyWhenAsked) {
    DocManagerHook hook;
    alignas(Manager) unsigned char memory[sizeof(Manager)];
    AcRxObject* object = new (memory) Manager;
    CallJournal::Clear();

    object->~AcRxObject();
    EXPECT_EQ(CallJournal::Count(L"free"), 0);

    object = new Manager;
    delete object;
    EXPECT_EQ(CallJournal::Count(L"free"), 1);
}

TEST(AcApDataManager, ADocumentTakesItsEntryAlongAndNoOther) {
    DocManagerHook hook;
    Manager manager;
    manager.m_dataMap[Document(1)];
    manager.m_dataMap[Document(2)];

    manager.documentToBeDestroyed(Document(3));
    EXPECT_EQ(manager.m_dataMap.size(), 2u);
    manager.documentToBeDestroyed(Document(1));

    EXPECT_EQ(manager.m_dataMap.size(), 1u);
    EXPECT_EQ(manager.m_dataMap.count(Document(2)), 1u);
    EXPECT_EQ(g_alive, 1);
}

TEST(AcApDataManager, OtherEventsCauseNothing) {
    DocManagerHook hook;
    Manager manager;
    manager.m_dataMap[Document(1)];
    CallJournal::Clear();
    AcApDocManagerReactor& reactor = manager;

    reactor.documentCreateStarted(Document(2));
    reactor.documentCreated(Document(2));
    reactor.documentCreateCanceled(Document(2));
    reactor.documentLockModeWillChange(Document(2), 0, 1, 0, L"X");
    reactor.documentLockModeChangeVetoed(Document(2), L"X");
    reactor.documentLockModeChanged(Document(2), 0, 1, 0, L"X");
    reactor.documentBecameCurrent(Document(2));
    reactor.documentToBeActivated(Document(2));
    reactor.documentToBeDeactivated(Document(2));
    reactor.documentActivationModified(true);
    reactor.documentActivated(Document(2));
    reactor.documentDestroyed(L"a.dwg");

    EXPECT_EQ(CallJournal::Calls(), Calls{});
    EXPECT_EQ(manager.m_dataMap.size(), 1u);
    EXPECT_FALSE(manager.m_veto);
}

TEST(AcApDataManager, IsOfTheHostsReactorClass) {
    DocManagerHook hook;
    const Manager manager;

    EXPECT_EQ(manager.isA(), AcApDocManagerReactor::desc());
    EXPECT_TRUE(manager.isKindOf(AcRxObject::desc()));
    EXPECT_EQ(manager.clone(), nullptr);
    EXPECT_TRUE(manager.isEqualTo(&manager));
}

TEST(AcApDataManager, LooksItsClassUpOnce) {
    EXPECT_EQ(RunScenario(L"ManagerAsksForItsClassOnce").exitCode, 0u);
}

TEST(DocumentData, IsAReactorOfTheHostWithSmallValues) {
    EXPECT_LE(sizeof(CDocData), 8u);
    EXPECT_TRUE(std::is_trivially_destructible_v<CDocData>);
    EXPECT_EQ(DocumentData.isA(), AcApDocManagerReactor::desc());
}

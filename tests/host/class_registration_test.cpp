#include "host/class_registration.h"

#include "host/class_recorder.h"
#include "support/call_journal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>

namespace {

using Calls = std::vector<std::wstring>;

// A tree of real classes: B and D derive from A, C from B.
enum { A, B, C, D, classCount };
constexpr const wchar_t* names[] = {L"KvtTestA", L"KvtTestB", L"KvtTestC", L"KvtTestD"};
constexpr const wchar_t* parents[] = {L"AcRxObject", L"KvtTestA", L"KvtTestB", L"KvtTestA"};

AcRxClass* g_classes[classCount] = {};
extern DbxClassEntry g_rows[classCount];

template <int index>
AcRxClass* Desc() {
    return g_classes[index];
}

template <int index>
void Init() {
    EXPECT_FALSE(g_rows[index].registered);
    CallJournal::Add(L"init " + std::wstring(names[index]));
    g_classes[index] = newAcRxClass(names[index], parents[index]);
}

DbxClassEntry g_rows[classCount] = {{&Desc<A>, &Init<A>, false},
                                    {&Desc<B>, &Init<B>, false},
                                    {&Desc<C>, &Init<C>, false},
                                    {&Desc<D>, &Init<D>, false}};

/// The classes in slots of a given order, with a null slot in between.
class ClassRegistrationTest : public testing::Test {
  protected:
    ClassRegistrationTest() {
        for (DbxClassEntry& row : g_rows)
            row.registered = false;
        SetOrder({A, B, C, D});
    }
    ~ClassRegistrationTest() override {
        for (int index = 0; index < classCount; ++index) {
            if (g_rows[index].registered) deleteAcRxClass(g_classes[index]);
        }
    }

    void SetOrder(const std::array<int, classCount>& order) {
        m_slots = {nullptr, &g_rows[order[0]], &g_rows[order[1]],
                   nullptr, &g_rows[order[2]], &g_rows[order[3]],
                   nullptr};
    }
    SlotRange<DbxClassEntry> Table() const { return {m_slots.data(), &m_slots.back()}; }

    /// Registers and forgets the calls.
    void Register() {
        RegisterClasses(Table());
        CallJournal::Clear();
    }

  private:
    const ClassRecorder m_recorder;
    std::array<DbxClassEntry*, classCount + 3> m_slots = {};
};

std::vector<AcRxClass*> g_deletions;

/// The class stays, so that one tree serves many walks.
void NoteDeletion(AcRxClass* descriptor) {
    g_deletions.push_back(descriptor);
}

/// When the class was deleted, counted from 0.
auto Turn(int index) {
    return std::find(g_deletions.begin(), g_deletions.end(), g_classes[index]) -
           g_deletions.begin();
}

int g_parentQuestions = 0;

/// Every class is its own parent, up to a number of questions that no walk needs.
AcRxClass* OwnParent(const AcRxClass* descriptor) {
    return ++g_parentQuestions <= 50 ? const_cast<AcRxClass*>(descriptor) : nullptr;
}

void MarkAllRegistered() {
    for (DbxClassEntry& row : g_rows)
        row.registered = true;
}

}  // namespace

TEST_F(ClassRegistrationTest, RegistersEveryRowThenBuildsTheHierarchyOnce) {
    CallJournal::Clear();

    RegisterClasses(Table());

    EXPECT_EQ(CallJournal::Calls(), (Calls{L"init KvtTestA", L"init KvtTestB", L"init KvtTestC",
                                           L"init KvtTestD", L"build hierarchy"}));
    for (const DbxClassEntry& row : g_rows)
        EXPECT_TRUE(row.registered);
}

TEST_F(ClassRegistrationTest, AnEmptyTableBuildsNoHierarchy) {
    DbxClassEntry* const marks[] = {nullptr, nullptr, nullptr};
    CallJournal::Clear();

    RegisterClasses({&marks[0], &marks[1]});
    RegisterClasses({&marks[0], &marks[2]});
    RegisterClasses(ClassTable());
    RemoveClasses(ClassTable());

    EXPECT_EQ(CallJournal::Calls(), Calls{});
}

TEST_F(ClassRegistrationTest, DerivedClassesGoFirstWhateverTheOrderOfSlots) {
    const ImportHook<decltype(&deleteAcRxClass)> hook(
        "drafthost17.dll", "_Z15deleteAcRxClassP9AcRxClass", &NoteDeletion);
    Register();
    std::array<int, classCount> order = {A, B, C, D};
    do {
        SetOrder(order);
        MarkAllRegistered();
        g_deletions.clear();

        RemoveClasses(Table());

        ASSERT_EQ(g_deletions.size(), 4u);
        EXPECT_LT(Turn(B), Turn(A));
        EXPECT_LT(Turn(C), Turn(B));
        EXPECT_LT(Turn(D), Turn(A));
        for (const DbxClassEntry& row : g_rows)
            EXPECT_FALSE(row.registered);
    } while (std::next_permutation(order.begin(), order.end()));
    MarkAllRegistered();  // For the clean-up.
}

TEST_F(ClassRegistrationTest, ARowIsNotTakenForOneDerivedFromItself) {
    Register();
    const ImportHook<decltype(&deleteAcRxClass)> deletion(
        "drafthost17.dll", "_Z15deleteAcRxClassP9AcRxClass", &NoteDeletion);
    const ImportHook<decltype(&OwnParent)> parent("drafthost17.dll", "_ZNK9AcRxClass8myParentEv",
                                                  &OwnParent);
    g_deletions.clear();
    g_parentQuestions = 0;

    RemoveClasses(Table());

    EXPECT_EQ(g_deletions,
              (std::vector<AcRxClass*>{g_classes[A], g_classes[B], g_classes[C], g_classes[D]}));
    MarkAllRegistered();  // For the clean-up.
}

TEST_F(ClassRegistrationTest, SiblingsGoInTheOrderOfSlots) {
    SetOrder({A, D, C, B});
    Register();

    RemoveClasses(Table());

    EXPECT_EQ(CallJournal::Calls(), (Calls{L"delete KvtTestD", L"delete KvtTestC",
                                           L"delete KvtTestB", L"delete KvtTestA"}));
}

TEST_F(ClassRegistrationTest, AnUnregisteredRowStaysAndHidesWhatDerivesFromIt) {
    Register();
    g_rows[B].registered = false;

    RemoveClasses(Table());

    // C hangs on B alone, so it is met only when the walk comes to its own slot.
    EXPECT_EQ(CallJournal::Calls(),
              (Calls{L"delete KvtTestD", L"delete KvtTestA", L"delete KvtTestC"}));
    g_rows[B].registered = true;  // For the clean-up.
}

TEST_F(ClassRegistrationTest, NothingRegisteredNothingRemoved) {
    CallJournal::Clear();

    RemoveClasses(Table());

    EXPECT_EQ(CallJournal::Calls(), Calls{});
}

TEST_F(ClassRegistrationTest, UnloadClassEntryDoesNotAskWhetherItsOwnRowIsRegistered) {
    Register();
    g_rows[B].registered = false;

    UnloadClassEntry(Table(), g_rows[B]);

    EXPECT_EQ(CallJournal::Calls(), (Calls{L"delete KvtTestC", L"delete KvtTestB"}));
    EXPECT_FALSE(g_rows[C].registered);
    EXPECT_TRUE(g_rows[A].registered);
}

TEST(DbxClassEntry, HasItsFieldsInTheFixedOrder) {
    EXPECT_EQ(offsetof(DbxClassEntry, classDesc), 0u);
    EXPECT_EQ(offsetof(DbxClassEntry, classInit), 8u);
    EXPECT_EQ(offsetof(DbxClassEntry, registered), 16u);
}

#include "host/lisp_functions.h"

#include "host/get_kvt_path.h"
#include "host/lisp_recorder.h"
#include "host/resource_name.h"
#include "support/call_journal.h"
#include "support/import_hook.h"

#include <gtest/gtest.h>

#include <acedads.h>

namespace {

using Calls = std::vector<std::wstring>;

int g_called = 0;
std::vector<int (*)()> g_registered;

int RecordRegFunc(int (*function)(), int code) {
    CallJournal::Add(L"acedRegFunc " + std::to_wstring(code));
    g_registered.push_back(function);
    return RTERROR;
}

int CalledCode() {
    return g_called;
}

Adesk::Int32 RunFirst() {
    CallJournal::Add(L"first");
    return RSERR;
}

Adesk::Int32 RunSecond() {
    CallJournal::Add(L"second");
    return RSRSLT;
}

AdsSymbolEntry g_first = {L"一号", &RunFirst, false, noStringResource};
AdsSymbolEntry g_direct = {nullptr, &RunSecond, true, 201};
AdsSymbolEntry* const g_slots[] = {nullptr, &g_first, nullptr, &g_direct, nullptr};
const SlotRange<AdsSymbolEntry> table(&g_slots[0], &g_slots[4]);

/// Every host function that the three operations call, replaced.
class LispFunctionsTest : public testing::Test {
  protected:
    LispFunctionsTest() {
        CallJournal::Clear();
        g_registered.clear();
    }

    Calls Invoke(int code, SlotRange<AdsSymbolEntry> functions = table) {
        CallJournal::Clear();
        g_called = code;
        InvokeLispFunction(functions);
        return CallJournal::Calls();
    }

    const HINSTANCE m_instance = GetModuleHandleW(nullptr);

  private:
    const LispRecorder m_recorder;
    ImportHook<decltype(&acedRegFunc)> m_regFunc{"drafthost17.dll", "_Z11acedRegFuncPFivEi",
                                                 &RecordRegFunc};
    ImportHook<decltype(&acedGetFunCode)> m_code{"drafthost17.dll", "_Z14acedGetFunCodev",
                                                 &CalledCode};
};

/// One row 65,538 times, so that codes outgrow 16 bits.
class LongTable {
  public:
    SlotRange<AdsSymbolEntry> Range() const { return {m_slots.data(), &m_slots.back()}; }

  private:
    std::vector<AdsSymbolEntry*> m_slots = [] {
        std::vector<AdsSymbolEntry*> slots(65540, &g_direct);
        slots.front() = nullptr;
        slots.back() = nullptr;
        return slots;
    }();
};

/// A journal of so many calls would be slow: how many there were, and the code of the last.
struct Tally {
    int count = 0;
    int lastCode = -1;

    int Note(int code) {
        ++count;
        lastCode = code;
        return RTERROR;
    }
};

Tally g_defined;
Tally g_undefined;
Tally g_registeredDirectly;

int TallyDefun(const wchar_t*, short code) {
    return g_defined.Note(code);
}

int TallyUndef(const wchar_t*, short code) {
    return g_undefined.Note(code);
}

int TallyRegFunc(int (*)(), int code) {
    return g_registeredDirectly.Note(code);
}

}  // namespace

TEST_F(LispFunctionsTest, DefinesEachRowByItsPlaceAmongTheRows) {
    DefineLispFunctions(table, m_instance);

    EXPECT_EQ(CallJournal::Calls(),
              (Calls{L"acedDefun 一号 0", L"acedDefun _资源名 1", L"acedRegFunc 1"}));
    EXPECT_EQ(g_registered, (std::vector<int (*)()>{&RunSecond}));
}

TEST_F(LispFunctionsTest, DefinesAnewAtEachCall) {
    DefineLispFunctions(table, m_instance);
    const Calls once = CallJournal::Take();

    DefineLispFunctions(table, m_instance);

    EXPECT_EQ(CallJournal::Calls(), once);
}

TEST_F(LispFunctionsTest, UndefinesTheSameNamesAndCodesAndNothingElse) {
    UndefineLispFunctions(table, m_instance);

    EXPECT_EQ(CallJournal::Calls(), (Calls{L"acedUndef 一号 0", L"acedUndef _资源名 1"}));
}

TEST_F(LispFunctionsTest, RunsTheRowOfTheCalledCodeOnce) {
    EXPECT_EQ(Invoke(0), Calls{L"first"});
    EXPECT_EQ(Invoke(1), Calls{L"second"});
}

TEST_F(LispFunctionsTest, ACodeThatNoRowHasRunsNothing) {
    for (const int code : {2, -1, 0x10000, 0x10001, RTERROR}) {
        EXPECT_EQ(Invoke(code), Calls{}) << code;
    }
}

TEST_F(LispFunctionsTest, CodesAreCutTo16BitsForNamesAlone) {
    const ImportHook<decltype(&acedDefun)> defun("drafthost17.dll", "_Z9acedDefunPKws",
                                                 &TallyDefun);
    const ImportHook<decltype(&acedUndef)> undef("drafthost17.dll", "_Z9acedUndefPKws",
                                                 &TallyUndef);
    const ImportHook<decltype(&acedRegFunc)> regFunc("drafthost17.dll", "_Z11acedRegFuncPFivEi",
                                                     &TallyRegFunc);
    const LongTable many;
    g_defined = g_undefined = g_registeredDirectly = Tally();

    DefineLispFunctions(many.Range(), m_instance);
    UndefineLispFunctions(many.Range(), m_instance);

    EXPECT_EQ(g_defined.count, 65538);
    EXPECT_EQ(g_defined.lastCode, 1);
    EXPECT_EQ(g_registeredDirectly.count, 65538);
    EXPECT_EQ(g_registeredDirectly.lastCode, 65537);
    EXPECT_EQ(g_undefined.count, 65538);
    EXPECT_EQ(g_undefined.lastCode, 1);
}

TEST_F(LispFunctionsTest, TheCalledCodeIsComparedInAll32Bits) {
    const LongTable many;

    EXPECT_EQ(Invoke(65537, many.Range()), Calls{L"second"});
    EXPECT_EQ(Invoke(65538, many.Range()), Calls{});
}

TEST_F(LispFunctionsTest, AnEmptyTableDoesNothing) {
    const SlotRange<AdsSymbolEntry> empty(&g_slots[0], &g_slots[1]);

    DefineLispFunctions(empty, m_instance);
    UndefineLispFunctions(empty, m_instance);

    EXPECT_EQ(CallJournal::Calls(), Calls{});
    EXPECT_EQ(Invoke(0, empty), Calls{});
}

TEST(LispTable, HoldsGetKVTPathAlone) {
    int rows = 0;
    for (const AdsSymbolEntry& row : LispTable()) {
        ++rows;
        EXPECT_STREQ(row.name, L"GetKVTPath");
        EXPECT_EQ(row.function, &GetKVTPath);
        EXPECT_FALSE(row.regFunc);
        EXPECT_EQ(row.nameId, 0xFFFFFFFF);
    }
    EXPECT_EQ(rows, 1);
}

TEST(AdsSymbolEntry, HasItsFieldsInTheFixedOrder) {
    EXPECT_EQ(offsetof(AdsSymbolEntry, name), 0u);
    EXPECT_EQ(offsetof(AdsSymbolEntry, function), 8u);
    EXPECT_EQ(offsetof(AdsSymbolEntry, regFunc), 16u);
    EXPECT_EQ(offsetof(AdsSymbolEntry, nameId), 20u);
    EXPECT_EQ(sizeof(bool), 1u);
}

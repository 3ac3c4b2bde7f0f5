#include "host/lisp_functions.h"

#include "host/get_kvt_path.h"
#include "host/resource_name.h"
#include "support/call_journal.h"
#include "support/import_hook.h"

#include <gtest/gtest.h>

#include <acedads.h>

namespace {

using Calls = std::vector<std::wstring>;

int g_called = 0;
std::vector<int (*)()> g_registered;

int RecordDefun(const wchar_t* name, short code) {
    CallJournal::Add(L"acedDefun " + std::wstring(name) + L" " + std::to_wstring(code));
    return RTERROR;
}

int RecordUndef(const wchar_t* name, short code) {
    CallJournal::Add(L"acedUndef " + std::wstring(name) + L" " + std::to_wstring(code));
    return RTERROR;
}

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
    ImportHook<decltype(&acedDefun)> m_defun{"drafthost17.dll", "_Z9acedDefunPKws", &RecordDefun};
    ImportHook<decltype(&acedUndef)> m_undef{"drafthost17.dll", "_Z9acedUndefPKws", &RecordUndef};
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
    const LongTable many;

    DefineLispFunctions(many.Range(), m_instance);

    const Calls defined = CallJournal::Take();
    ASSERT_EQ(defined.size(), 2u * 65538);
    EXPECT_EQ(defined[2 * 65537], L"acedDefun _资源名 1");
    EXPECT_EQ(defined[2 * 65537 + 1], L"acedRegFunc 65537");
    UndefineLispFunctions(many.Range(), m_instance);
    EXPECT_EQ(CallJournal::Calls()[65537], L"acedUndef _资源名 1");
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

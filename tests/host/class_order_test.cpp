// A program of its own: it puts rows into the module's class table, which is empty everywhere else.

#include "host/acrx_arx_app.h"
#include "host/class_recorder.h"
#include "host/class_table.h"
#include "host/fake_host.h"
#include "host/section_table.h"
#include "host/with_components.h"
#include "support/call_journal.h"

#include <gtest/gtest.h>

namespace {

AcRxClass* g_base = nullptr;
AcRxClass* g_derived = nullptr;

AcRxClass* BaseDesc() {
    return g_base;
}
AcRxClass* DerivedDesc() {
    return g_derived;
}

// Out of order: the base is registered last, the hierarchy joins them.
void InitDerived() {
    CallJournal::Add(L"init derived");
    g_derived = newAcRxClass(L"KvtOrderDerived", L"KvtOrderBase");
}
void InitBase() {
    CallJournal::Add(L"init base");
    g_base = newAcRxClass(L"KvtOrderBase", L"AcRxObject");
}

DbxClassEntry g_baseRow = {&BaseDesc, &InitBase, false};
DbxClassEntry g_derivedRow = {&DerivedDesc, &InitDerived, false};

}  // namespace

SECTION_TABLE_ROW(DBXCUSTO, 001, DbxClassEntry, g_derivedRow);
SECTION_TABLE_ROW(DBXCUSTO, 002, DbxClassEntry, g_baseRow);

TEST(ClassOrder, ClassesComeBeforeCommandsInBothDirections) {
    const FakeHost host;
    const ClassRecorder classes;
    WithComponents<AcRxArxApp> app;

    EXPECT_EQ(app.On_kInitAppMsg(nullptr), AcRx::kRetOK);
    EXPECT_TRUE(g_baseRow.registered && g_derivedRow.registered);
    EXPECT_EQ(app.On_kUnloadAppMsg(nullptr), AcRx::kRetOK);
    EXPECT_FALSE(g_baseRow.registered || g_derivedRow.registered);

    EXPECT_EQ(CallsBesideLookUps(),
              (std::vector<std::wstring>{
                  L"unlockApplication", L"registerAppMDIAware", L"RegisterServerComponents",
                  L"init derived", L"init base", L"build hierarchy", L"addCommand _LoadKVT",
                  L"delete KvtOrderDerived", L"delete KvtOrderBase", L"removeCmd KVTCAD LoadKVT"}));
}

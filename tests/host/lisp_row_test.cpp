// A program of its own: it puts a row into the module's LISP table, whose only one has its name
// written out.

#include "host/acrx_arx_app.h"
#include "host/lisp_recorder.h"
#include "host/lisp_table.h"
#include "host/section_table.h"
#include "host/string_resources.h"
#include "support/call_journal.h"

#include <gtest/gtest.h>

#include <acedads.h>

namespace {

using Calls = std::vector<std::wstring>;

Adesk::Int32 DoNothing() {
    return RSRSLT;
}

AdsSymbolEntry g_named = {nullptr, &DoNothing, false, 7};

const HINSTANCE instance = reinterpret_cast<HINSTANCE>(static_cast<ULONG_PTR>(0x7770000));

class App : public AcRxArxApp {};

}  // namespace

SECTION_TABLE_ROW(ADSSYMBO, 002, AdsSymbolEntry, g_named);

TEST(LispRow, ItsNameIsTakenFromTheResourcesOfTheModuleAtBothEndsOfADrawing) {
    const StringResources resources;
    const LispRecorder recorder;
    App app;
    app.m_hInstance = instance;
    CallJournal::Clear();

    app.On_kLoadDwgMsg(nullptr);
    app.On_kUnloadDwgMsg(nullptr);

    const std::wstring name = StringResources::Text(instance, 7);
    EXPECT_EQ(CallJournal::Calls(),
              (Calls{L"acedDefun GetKVTPath 0", L"acedDefun " + name + L" 1",
                     L"acedUndef GetKVTPath 0", L"acedUndef " + name + L" 1"}));
}

// A program of its own: it puts a row into the module's LISP table, whose only one has its name
// written out.

#include "host/acrx_arx_app.h"
#include "host/lisp_recorder.h"
#include "host/lisp_table.h"
#include "host/section_table.h"
#include "support/call_journal.h"
#include "support/import_hook.h"

#include <gtest/gtest.h>

#include <acedads.h>

namespace {

using Calls = std::vector<std::wstring>;

Adesk::Int32 DoNothing() {
    return RSRSLT;
}

AdsSymbolEntry g_named = {nullptr, &DoNothing, false, 7};

const HINSTANCE instance = reinterpret_cast<HINSTANCE>(static_cast<ULONG_PTR>(0x7770000));

int WINAPI LoadName(HINSTANCE given, UINT id, LPWSTR buffer, int capacity) {
    EXPECT_EQ(given, instance);
    const std::wstring name = L"name " + std::to_wstring(id);
    lstrcpynW(buffer, name.c_str(), capacity);
    return static_cast<int>(name.size());
}

class App : public AcRxArxApp {};

}  // namespace

SECTION_TABLE_ROW(ADSSYMBO, 002, AdsSymbolEntry, g_named);

TEST(LispRow, ItsNameIsTakenFromTheResourcesOfTheModuleAtBothEndsOfADrawing) {
    const ImportHook<decltype(&LoadStringW)> load("USER32.dll", "LoadStringW", &LoadName);
    const LispRecorder recorder;
    App app;
    app.m_hInstance = instance;
    CallJournal::Clear();

    app.On_kLoadDwgMsg(nullptr);
    app.On_kUnloadDwgMsg(nullptr);

    EXPECT_EQ(CallJournal::Calls(), (Calls{L"acedDefun GetKVTPath 0", L"acedDefun name 7 1",
                                           L"acedUndef GetKVTPath 0", L"acedUndef name 7 1"}));
}

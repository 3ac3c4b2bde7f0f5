#include "host/acrx_arx_app.h"

#include "host/fake_host.h"
#include "host/host_services.h"
#include "host/lisp_recorder.h"
#include "host/load_kvt_command.h"
#include "host/module_handles.h"
#include "host/with_components.h"
#include "support/call_journal.h"

#include <gtest/gtest.h>

#include <acedads.h>

namespace {

using Calls = std::vector<std::wstring>;

int g_called = 0;

int CalledCode() {
    return g_called;
}

int RecordRetStr(const wchar_t* text) {
    CallJournal::Add(L"acedRetStr \"" + std::wstring(text) + L"\"");
    return RTERROR;
}

class AcRxArxAppTest : public testing::Test {
  protected:
    AcRxArxAppTest() {
        CommandStack();  // From here on its class is known.
        g_moduleInstance = GetModuleHandleW(nullptr);
        CallJournal::Clear();
    }
    ~AcRxArxAppTest() override { g_moduleInstance = nullptr; }

    const FakeHost m_host;
    WithComponents<AcRxArxApp> m_app;

  private:
    const LispRecorder m_recorder;
    ImportHook<decltype(&acedGetFunCode)> m_code{"drafthost17.dll", "_Z14acedGetFunCodev",
                                                 &CalledCode};
    ImportHook<decltype(&acedRetStr)> m_retStr{"drafthost17.dll", "_Z10acedRetStrPKw",
                                               &RecordRetStr};
};

}  // namespace

TEST_F(AcRxArxAppTest, TheStartEndsWithTheCommands) {
    EXPECT_EQ(m_app.On_kInitAppMsg(nullptr), AcRx::kRetOK);

    EXPECT_EQ(CallJournal::Calls(),
              (Calls{L"at DynamicLinker", L"unlockApplication", L"at DynamicLinker",
                     L"registerAppMDIAware", L"RegisterServerComponents",
                     L"at ACAD_REGISTERED_COMMANDS", L"addCommand _LoadKVT"}));
    const AddedCommand& command = m_host.m_commands.m_added.at(0);
    EXPECT_EQ(command.globalName, L"LoadKVT");
    EXPECT_EQ(command.handler, &LoadKVTCommand);
    EXPECT_EQ(command.resourceHandle, GetModuleHandleW(nullptr));
}

TEST_F(AcRxArxAppTest, TheUnloadRemovesTheCommandsAndNoLispFunction) {
    EXPECT_EQ(m_app.On_kUnloadAppMsg(nullptr), AcRx::kRetOK);

    EXPECT_EQ(CallJournal::Calls(),
              (Calls{L"at ACAD_REGISTERED_COMMANDS", L"removeCmd KVTCAD LoadKVT"}));
}

TEST_F(AcRxArxAppTest, ADrawingDefinesAndUndefinesTheLispFunctions) {
    EXPECT_EQ(m_app.On_kLoadDwgMsg(nullptr), AcRx::kRetOK);
    EXPECT_EQ(m_app.On_kLoadDwgMsg(nullptr), AcRx::kRetOK);
    EXPECT_EQ(m_app.On_kUnloadDwgMsg(nullptr), AcRx::kRetOK);

    EXPECT_EQ(CallJournal::Calls(), (Calls{L"acedDefun GetKVTPath 0", L"acedDefun GetKVTPath 0",
                                           L"acedUndef GetKVTPath 0"}));
}

TEST_F(AcRxArxAppTest, AnInvocationIsAnsweredOkWithOrWithoutAMatch) {
    g_called = 0;
    EXPECT_EQ(m_app.On_kInvkSubrMsg(nullptr), AcRx::kRetOK);
    EXPECT_EQ(CallJournal::Calls(), Calls{L"acedRetStr \"\""});

    CallJournal::Clear();
    for (const int code : {-1, 1, 0x10000}) {
        g_called = code;
        EXPECT_EQ(m_app.On_kInvkSubrMsg(nullptr), AcRx::kRetOK);
    }
    EXPECT_EQ(CallJournal::Calls(), Calls{});
}

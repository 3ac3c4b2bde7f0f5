#include "host/ckvtcadapp.h"

#include "host/entry_point.h"
#include "host/fake_host.h"
#include "host/good_installation.h"
#include "host/lisp_recorder.h"
#include "host/module_handles.h"
#include "host/welcome_banner.h"
#include "install/install_record.h"
#include "support/call_journal.h"
#include "support/child_scenario.h"
#include "support/log_capture.h"

#include <gtest/gtest.h>

#include <aced.h>
#include <atlstr.h>

#include <cstdarg>
#include <cwchar>
#include <memory>

namespace {

using Calls = std::vector<std::wstring>;

std::wstring g_printed;  ///< as the host formats it

int RecordPrint(const wchar_t* format, ...) {
    CallJournal::Add(L"acutPrintf " + std::wstring(format));
    wchar_t text[1024] = {};
    va_list arguments;
    va_start(arguments, format);
    _vsnwprintf(text, 1023, format, arguments);
    va_end(arguments);
    g_printed += text;
    return RTNORM;
}

int RecordGetEnv(const wchar_t*, wchar_t*) {
    return RTERROR;
}

int RecordSetEnv(const wchar_t*, const wchar_t*) {
    CallJournal::Add(L"acedSetEnv");
    return RTERROR;
}

int RecordQueue(const wchar_t* expression) {
    CallJournal::Add(L"ads_queueexpr " + std::wstring(expression));
    return RTERROR;
}

/// The application object in a fake host, with a good installation.
struct Stage {
    Stage() {
        g_moduleInstance = GetModuleHandleW(nullptr);
        g_printed.clear();
    }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;
    ~Stage() {
        g_moduleInstance = nullptr;
        g_application.m_hInstance = nullptr;
    }

    GoodInstallation m_installation;
    FakeHost m_host;
    LogCapture m_log{[](const std::string& line) {
        CallJournal::Add(L"log " + std::wstring(CStringW(line.c_str())));
    }};
    ImportHook<decltype(&acutPrintf)> m_print{"drafthost17.dll", "_Z10acutPrintfPKwz",
                                              &RecordPrint};
    ImportHook<decltype(&acedGetEnv)> m_get{"drafthost17.dll", "_Z10acedGetEnvPKwPw",
                                            &RecordGetEnv};
    ImportHook<decltype(&acedSetEnv)> m_set{"drafthost17.dll", "_Z10acedSetEnvPKwS0_",
                                            &RecordSetEnv};
    const LispRecorder m_recorder;
    ImportHook<decltype(&ads_queueexpr)> m_queue{"drafthost17.dll", "_Z13ads_queueexprPKw",
                                                 &RecordQueue};
};

class CKVTCADAppTest : public testing::Test {
  protected:
    Stage m_stage;
};

bool IsLogLine(const std::wstring& call) {
    return call.rfind(L"log ", 0) == 0;
}

/// The journal without look-ups, the log's lines shortened to "log".
Calls Steps() {
    Calls steps = CallsBesideLookUps();
    for (std::wstring& step : steps) {
        if (IsLogLine(step)) step = L"log";
    }
    return steps;
}

const std::wstring refusal = L"acutPrintf \n《KVT CAD辅助设计软件》可能没有正确安装";

}  // namespace

TEST_F(CKVTCADAppTest, AGoodStartRegistersThenSetsUpThenGreets) {
    EXPECT_EQ(g_application.On_kInitAppMsg(nullptr), AcRx::kRetOK);

    EXPECT_EQ(Steps(), (Calls{L"unlockApplication", L"registerAppMDIAware", L"addCommand _LoadKVT",
                              L"log", L"log", L"log", L"log", L"acedSetEnv",
                              L"acutPrintf " + WelcomeBanner(L"3.5.1")}));
    EXPECT_EQ(g_printed, WelcomeBanner(L"3.5.1"));
    EXPECT_EQ(GetApplicationInstance(), GetModuleHandleW(nullptr));
}

TEST_F(CKVTCADAppTest, ARefusedStartPrintsOneLineAndLeavesTheCommands) {
    m_stage.m_installation.m_registry.SetValue(L"Version", REG_BINARY, std::string(40, 'x'));

    EXPECT_EQ(g_application.On_kInitAppMsg(nullptr), AcRx::kRetError);

    EXPECT_EQ(Steps(), (Calls{L"unlockApplication", L"registerAppMDIAware", L"addCommand _LoadKVT",
                              L"log", L"log", L"log", L"log", refusal}));
    EXPECT_EQ(InstallLocation, m_stage.m_installation.Location());
}

TEST_F(CKVTCADAppTest, MeantAVersionWithAPercentSignIsPartOfTheFormat) {
    m_stage.m_installation.m_registry.SetVersion(L"100%% x");

    EXPECT_EQ(g_application.On_kInitAppMsg(nullptr), AcRx::kRetOK);

    EXPECT_EQ(CallJournal::Calls().back(), L"acutPrintf " + WelcomeBanner(L"100%% x"));
    EXPECT_NE(g_printed.find(L"》100% x \n"), std::wstring::npos);
}

TEST_F(CKVTCADAppTest, EachDrawingQueuesTheLoadThenDefinesTheFunctions) {
    InstallLocation = m_stage.m_installation.Location();
    WriteFileBytes(InstallLocation + L"\\Support\\KVTCAD.vlx", "(princ)");
    CallJournal::Clear();

    EXPECT_EQ(g_application.On_kLoadDwgMsg(nullptr), AcRx::kRetOK);
    const Calls first = CallJournal::Take();
    EXPECT_EQ(g_application.On_kLoadDwgMsg(nullptr), AcRx::kRetOK);

    ASSERT_EQ(first.size(), 3u);
    EXPECT_TRUE(IsLogLine(first[0]));
    EXPECT_EQ(first[1].rfind(L"ads_queueexpr (LOAD \"", 0), 0u);
    EXPECT_EQ(first[2], L"acedDefun GetKVTPath 0");
    EXPECT_EQ(CallJournal::Calls(), first);
}

TEST_F(CKVTCADAppTest, ADrawingWithoutTheLispFileStillGetsTheFunctions) {
    InstallLocation = m_stage.m_installation.Location();
    CallJournal::Clear();

    EXPECT_EQ(g_application.On_kLoadDwgMsg(nullptr), AcRx::kRetOK);

    EXPECT_EQ(Steps(), (Calls{L"log", L"acedDefun GetKVTPath 0"}));
}

TEST_F(CKVTCADAppTest, TheUnloadRemovesCommandsAndNoLispFunction) {
    EXPECT_EQ(g_application.On_kUnloadAppMsg(nullptr), AcRx::kRetOK);

    EXPECT_EQ(Steps(), Calls{L"removeCmd KVTCAD LoadKVT"});
}

TEST_F(CKVTCADAppTest, TheEndOfADrawingUndefinesAndTheQuitDoesNothing) {
    EXPECT_EQ(g_application.On_kUnloadDwgMsg(nullptr), AcRx::kRetOK);
    EXPECT_EQ(Steps(), Calls{L"acedUndef GetKVTPath 0"});

    CallJournal::Clear();
    EXPECT_EQ(g_application.On_kQuitMsg(nullptr), AcRx::kRetOK);
    EXPECT_EQ(Steps(), Calls{});
}

TEST_F(CKVTCADAppTest, TheEntryPointForwardsToTheApplicationObject) {
    int packet = 0;

    EXPECT_EQ(acrxEntryPoint(AcRx::kInitAppMsg, &packet), AcRx::kRetOK);
    EXPECT_EQ(CallJournal::Calls().back(), L"acutPrintf " + WelcomeBanner(L"3.5.1"));
    EXPECT_EQ(m_stage.m_host.m_linker.m_unlockPacket, &packet);
    EXPECT_EQ(m_stage.m_host.m_linker.m_mdiAwarePacket, &packet);

    CallJournal::Clear();
    for (const unsigned code : {0u, 6u, 7u, 8u, 15u, 16u, 0xFFFFFFFFu}) {
        EXPECT_EQ(acrxEntryPoint(code, nullptr), AcRx::kRetOK) << code;
    }
    EXPECT_EQ(CallJournal::Calls(), Calls{});
}

TEST_F(CKVTCADAppTest, ARefusedStartReachesTheHostThroughTheEntryPoint) {
    m_stage.m_installation.m_registry.SetLocation(m_stage.m_installation.Location() + L"\\no");

    EXPECT_EQ(acrxEntryPoint(AcRx::kInitAppMsg, nullptr), AcRx::kRetError);

    EXPECT_EQ(CallJournal::Calls().back(), refusal);
}

namespace {

HMODULE g_askedModule = nullptr;
std::string g_moduleFile;

DWORD WINAPI ModuleFile(HMODULE module, LPSTR path, DWORD) {
    CallJournal::Add(L"bring up the log");
    g_askedModule = module;
    strcpy(path, g_moduleFile.c_str());
    return static_cast<DWORD>(g_moduleFile.size());
}

/// A start with a log, in a child: the log library can be brought up once in a process.
int StartWithLog(const std::string& config, const Calls& expected) {
    const TempFolder moduleFolder;
    g_moduleFile = CStringA((moduleFolder / L"KVTCAD.arx").c_str());
    const auto stage = std::make_unique<Stage>();
    stage->m_installation.WriteConfig(config);
    ImportHook<decltype(&GetModuleFileNameA)> file("KERNEL32.dll", "GetModuleFileNameA",
                                                   &ModuleFile);
    if (g_application.On_kInitAppMsg(nullptr) != AcRx::kRetOK) return 1;
    if (g_askedModule != GetModuleHandleW(nullptr)) return 2;
    if (Steps() != expected) return 3;
    if (!google::IsGoogleLoggingInitialized()) return 4;
    return ReadFileBytes(moduleFolder / L"Logs\\KVTCAD.INFO.log").find("读取配置-成功") !=
                   std::string::npos
               ? 0
               : 5;
}

const Calls stepsWithLog = {L"unlockApplication",
                            L"registerAppMDIAware",
                            L"addCommand _LoadKVT",
                            L"bring up the log",
                            L"log",
                            L"log",
                            L"log",
                            L"log",
                            L"acedSetEnv",
                            L"acutPrintf " + WelcomeBanner(L"3.5.1")};

CHILD_SCENARIO(EmptyElement) {
    return StartWithLog("<Config><EnableLog/></Config>", stepsWithLog);
}

CHILD_SCENARIO(ElementThatSaysNo) {
    return StartWithLog("<Config><A/><EnableLog>false</EnableLog></Config>", stepsWithLog);
}

}  // namespace

TEST(CKVTCADApp, MeantTheElementsPresenceAloneBringsUpTheLogAheadOfTheFirstLine) {
    EXPECT_EQ(RunScenario(L"EmptyElement").exitCode, 0u);
    EXPECT_EQ(RunScenario(L"ElementThatSaysNo").exitCode, 0u);
}

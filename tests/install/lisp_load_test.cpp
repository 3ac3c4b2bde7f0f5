#include "install/lisp_load.h"

#include "install/install_record.h"
#include "support/call_journal.h"
#include "support/import_hook.h"
#include "support/log_capture.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <aced.h>
#include <atlstr.h>

#include <windows.h>

#include <algorithm>
#include <filesystem>

namespace {

HANDLE(WINAPI* g_realFind)(LPCWSTR, LPWIN32_FIND_DATAW) = nullptr;

HANDLE WINAPI RecordFind(LPCWSTR path, LPWIN32_FIND_DATAW data) {
    CallJournal::Add(L"probe " + std::wstring(path));
    return g_realFind(path, data);
}

int RecordQueue(const wchar_t* expression) {
    CallJournal::Add(L"queue " + std::wstring(expression));
    return RTERROR;
}

/// An installation in a folder of its own, with the calls in order.
class LoadLispApplicationTest : public testing::Test {
  protected:
    LoadLispApplicationTest() {
        g_realFind = m_find.Original();
        CallJournal::Clear();
        InstallLocation = m_folder.Path();
        m_slashed = m_folder / L"Support\\KVTCAD.vlx";
        std::replace(m_slashed.begin(), m_slashed.end(), L'\\', L'/');
    }
    ~LoadLispApplicationTest() override { InstallLocation.clear(); }

    const TempFolder m_folder{L"安装 目录"};
    std::wstring m_slashed;  ///< the LISP file's path with forward slashes
    const LogCapture m_log{[](const std::string& line) {
        CallJournal::Add(L"log " + std::wstring(CStringW(line.c_str())));
    }};

  private:
    ImportHook<decltype(&FindFirstFileW)> m_find{"KERNEL32.dll", "FindFirstFileW", &RecordFind};
    ImportHook<decltype(&ads_queueexpr)> m_queue{"drafthost17.dll", "_Z13ads_queueexprPKw",
                                                 &RecordQueue};
};

using Calls = std::vector<std::wstring>;

}  // namespace

TEST_F(LoadLispApplicationTest, LogsThenProbesThenQueues) {
    WriteFileBytes(m_folder / L"Support\\KVTCAD.vlx", "(princ)");
    CallJournal::Clear();

    LoadLispApplication();

    EXPECT_EQ(CallJournal::Calls(),
              (Calls{L"log 加载lisp文件:" + m_folder / L"Support\\KVTCAD.vlx",
                     L"probe " + m_slashed, L"queue (LOAD \"" + m_slashed + L"\")"}));
    EXPECT_TRUE(m_log.OnlyInfo());
}

TEST_F(LoadLispApplicationTest, AMissingFileLeavesTheLogLineAlone) {
    LoadLispApplication();

    EXPECT_EQ(CallJournal::Calls(), (Calls{L"log 加载lisp文件:" + m_folder / L"Support\\KVTCAD.vlx",
                                           L"probe " + m_slashed}));
}

TEST_F(LoadLispApplicationTest, ADirectoryOfThatNameCountsAsMissing) {
    std::filesystem::create_directories(m_folder / L"Support\\KVTCAD.vlx");
    CallJournal::Clear();

    LoadLispApplication();

    EXPECT_EQ(CallJournal::Count(L"queue (LOAD \"" + m_slashed + L"\")"), 0);
    EXPECT_EQ(m_log.Lines().size(), 1u);
}

TEST_F(LoadLispApplicationTest, EveryCallQueuesAgain) {
    WriteFileBytes(m_folder / L"Support\\KVTCAD.vlx", "(princ)");
    CallJournal::Clear();

    LoadLispApplication();
    LoadLispApplication();

    EXPECT_EQ(CallJournal::Count(L"queue (LOAD \"" + m_slashed + L"\")"), 2);
    EXPECT_EQ(m_log.Lines().size(), 2u);
}

TEST_F(LoadLispApplicationTest, TheLogLineIsInTheAnsiCodePage) {
    InstallLocation = L"D:\\工程";

    LoadLispApplication();

    ASSERT_EQ(m_log.Lines().size(), 1u);
    EXPECT_EQ(m_log.Lines()[0], "加载lisp文件:D:\\工程\\Support\\KVTCAD.vlx");
}

#include "install/search_path_setup.h"

#include "install/install_record.h"
#include "support/call_journal.h"
#include "support/import_hook.h"
#include "support/log_capture.h"

#include <gtest/gtest.h>

#include <aced.h>

#include <algorithm>

namespace {

std::wstring g_setting;
bool g_bufferZeroed = false;
const wchar_t* g_locationFromTheRead = nullptr;

int GetSetting(const wchar_t* name, wchar_t* value) {
    CallJournal::Add(L"get " + std::wstring(name));
    g_bufferZeroed = std::all_of(value, value + 2048, [](wchar_t c) { return c == L'\0'; });
    g_setting.copy(value, g_setting.size());
    if (g_locationFromTheRead != nullptr) InstallLocation = g_locationFromTheRead;
    return RTERROR;  // Not looked at: what is in the buffer counts.
}

int SetSetting(const wchar_t* name, const wchar_t* value) {
    CallJournal::Add(L"set " + std::wstring(name) + L" = " + value);
    return RTERROR;
}

class AddSearchPathsTest : public testing::Test {
  protected:
    AddSearchPathsTest() {
        CallJournal::Clear();
        InstallLocation = L"C:\\app";
    }
    ~AddSearchPathsTest() override {
        InstallLocation.clear();
        g_locationFromTheRead = nullptr;
    }

    std::vector<std::wstring> Run(const std::wstring& setting) {
        g_setting = setting;
        AddSearchPaths();
        return CallJournal::Calls();
    }

  private:
    ImportHook<decltype(&acedGetEnv)> m_get{"drafthost17.dll", "_Z10acedGetEnvPKwPw", &GetSetting};
    ImportHook<decltype(&acedSetEnv)> m_set{"drafthost17.dll", "_Z10acedSetEnvPKwS0_", &SetSetting};
};

using Calls = std::vector<std::wstring>;

}  // namespace

TEST_F(AddSearchPathsTest, ReadsIntoAZeroedBufferAndWritesOnce) {
    EXPECT_EQ(Run(L"D:\\a;"),
              (Calls{L"get ACAD", L"set ACAD = C:\\app;C:\\app\\R17x\\x64;D:\\a;"}));

    EXPECT_TRUE(g_bufferZeroed);
}

TEST_F(AddSearchPathsTest, AReadThatLeavesTheBufferEmptyGivesTheEntriesAlone) {
    EXPECT_EQ(Run(L""), (Calls{L"get ACAD", L"set ACAD = C:\\app;C:\\app\\R17x\\x64;"}));
}

TEST_F(AddSearchPathsTest, AnUnchangedSettingIsWrittenBack) {
    EXPECT_EQ(Run(L"C:\\app;C:\\app\\R17x\\x64;D:\\a"),
              (Calls{L"get ACAD", L"set ACAD = C:\\app;C:\\app\\R17x\\x64;D:\\a"}));
}

TEST_F(AddSearchPathsTest, TheSettingEndsAtItsFirstZero) {
    EXPECT_EQ(Run(std::wstring(L"D:\\a\0D:\\b", 9)),
              (Calls{L"get ACAD", L"set ACAD = C:\\app;C:\\app\\R17x\\x64;D:\\a"}));
}

TEST_F(AddSearchPathsTest, TheLongestSettingThatFitsIsKeptWhole) {
    const std::wstring longest(2047, L'p');

    EXPECT_EQ(Run(longest),
              (Calls{L"get ACAD", L"set ACAD = C:\\app;C:\\app\\R17x\\x64;" + longest}));
}

TEST_F(AddSearchPathsTest, TheEntriesAreMadeAheadOfTheRead) {
    g_locationFromTheRead = L"D:\\too late";

    EXPECT_EQ(Run(L"").back(), L"set ACAD = C:\\app;C:\\app\\R17x\\x64;");
    EXPECT_EQ(InstallLocation, L"D:\\too late");
}

TEST_F(AddSearchPathsTest, LogsNothing) {
    const LogCapture log;

    Run(L"");

    EXPECT_TRUE(log.Lines().empty());
}

TEST(AddSearchPaths, WorksOnTheHostsOwnSetting) {
    wchar_t before[2048] = {};
    acedGetEnv(L"ACAD", before);
    acedSetEnv(L"ACAD", L"D:\\旧 目录;");
    InstallLocation = L"D:\\工程 软件";

    AddSearchPaths();
    AddSearchPaths();

    wchar_t after[2048] = {};
    acedGetEnv(L"ACAD", after);
    acedSetEnv(L"ACAD", before);
    InstallLocation.clear();
    EXPECT_STREQ(after, L"D:\\工程 软件;D:\\工程 软件\\R17x\\x64;D:\\旧 目录;");
}

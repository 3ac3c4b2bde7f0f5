#include "host/environment_setup.h"

#include "host/good_installation.h"
#include "install/install_record.h"
#include "support/call_journal.h"
#include "support/import_hook.h"
#include "support/log_capture.h"

#include <gtest/gtest.h>

#include <aced.h>
#include <atlstr.h>

#include <cstdio>

namespace {

using Calls = std::vector<std::wstring>;

decltype(&RegOpenKeyExW) g_realOpenKey = nullptr;
decltype(&RegQueryValueExW) g_realQuery = nullptr;
decltype(&FindFirstFileW) g_realFind = nullptr;
decltype(&fopen_s) g_realOpen = nullptr;
decltype(&std::fopen) g_realOpenByName = nullptr;

LSTATUS WINAPI RecordOpenKey(HKEY hive, LPCWSTR path, DWORD options, REGSAM access, PHKEY key) {
    CallJournal::Add(L"open key");
    return g_realOpenKey(hive, path, options, access, key);
}

LSTATUS WINAPI RecordQuery(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                           LPDWORD size) {
    CallJournal::Add(L"query " + std::wstring(name));
    return g_realQuery(key, name, reserved, type, data, size);
}

HANDLE WINAPI RecordFind(LPCWSTR path, LPWIN32_FIND_DATAW data) {
    CallJournal::Add(L"probe " + std::wstring(path));
    return g_realFind(path, data);
}

HANDLE WINAPI FindAsPlainFile(LPCWSTR path, LPWIN32_FIND_DATAW data) {
    const HANDLE find = g_realFind(path, data);
    data->dwFileAttributes = FILE_ATTRIBUTE_ARCHIVE;
    return find;
}

bool IsAtDriveRoot(const char* path) {
    return path[0] == '\\';
}

// Nothing is opened at the drive's root: that is no place for a test to write to.
errno_t RecordOpen(FILE** file, const char* path, const char* mode) {
    CallJournal::Add(std::wstring(CStringW(mode)) + L" " + CStringW(path).GetString());
    if (!IsAtDriveRoot(path)) return g_realOpen(file, path, mode);
    *file = nullptr;
    return EACCES;
}

FILE* RecordOpenByName(const char* path, const char* mode) {
    return IsAtDriveRoot(path) ? nullptr : g_realOpenByName(path, mode);
}

int RecordGetEnv(const wchar_t*, wchar_t*) {
    CallJournal::Add(L"acedGetEnv");
    return RTERROR;
}

int RecordSetEnv(const wchar_t*, const wchar_t* value) {
    CallJournal::Add(L"acedSetEnv " + std::wstring(value));
    return RTERROR;
}

/// Everything that the set-up asks the system and the host, recorded; a good installation.
class SetUpEnvironmentTest : public testing::Test {
  protected:
    SetUpEnvironmentTest() {
        g_realOpenKey = m_openKey.Original();
        g_realQuery = m_query.Original();
        g_realFind = m_find.Original();
        g_realOpen = m_open.Original();
        g_realOpenByName = m_openByName.Original();
    }

    bool Run() {
        CallJournal::Clear();
        return SetUpEnvironment();
    }

    static bool SettingWritten() {
        const Calls& calls = CallJournal::Calls();
        return !calls.empty() && calls.back().rfind(L"acedSetEnv", 0) == 0;
    }

    std::string LogLine(size_t index) const {
        return index < m_log.Lines().size() ? m_log.Lines()[index] : "no such line";
    }

    const std::string m_locationLine = "读取 SOFTWARE\\Brennvik\\KVT CAD辅助设计软件\\Location = ";
    const std::string m_versionLine = "读取 SOFTWARE\\Brennvik\\KVT CAD辅助设计软件\\Version = ";
    GoodInstallation m_installation;
    const std::string m_narrowLocation{CStringA(m_installation.Location().c_str())};
    const LogCapture m_log{[](const std::string&) { CallJournal::Add(L"log"); }};

  private:
    ImportHook<decltype(&RegOpenKeyExW)> m_openKey{"ADVAPI32.dll", "RegOpenKeyExW", &RecordOpenKey};
    ImportHook<decltype(&RegQueryValueExW)> m_query{"ADVAPI32.dll", "RegQueryValueExW",
                                                    &RecordQuery};
    ImportHook<decltype(&FindFirstFileW)> m_find{"KERNEL32.dll", "FindFirstFileW", &RecordFind};
    ImportHook<decltype(&fopen_s)> m_open{"msvcrt.dll", "fopen_s", &RecordOpen};
    ImportHook<decltype(&std::fopen)> m_openByName{"msvcrt.dll", "fopen", &RecordOpenByName};
    ImportHook<decltype(&acedGetEnv)> m_get{"drafthost17.dll", "_Z10acedGetEnvPKwPw",
                                            &RecordGetEnv};
    ImportHook<decltype(&acedSetEnv)> m_set{"drafthost17.dll", "_Z10acedSetEnvPKwS0_",
                                            &RecordSetEnv};
};

}  // namespace

TEST_F(SetUpEnvironmentTest, TakesItsStepsInOrder) {
    EXPECT_TRUE(Run());

    const std::wstring& location = m_installation.Location();
    // The location is long: its query is made twice.
    EXPECT_EQ(CallJournal::Calls(),
              (Calls{L"open key", L"query Location", L"query Location", L"open key",
                     L"query Version", L"probe " + location, L"rb " + location + L"\\config.xml",
                     L"log", L"log", L"log", L"log", L"acedGetEnv",
                     L"acedSetEnv " + location + L";" + location + L"\\R17x\\x64;"}));
    EXPECT_EQ(InstallLocation, location);
    EXPECT_EQ(InstallVersion, L"3.5.1");
}

TEST_F(SetUpEnvironmentTest, WritesFourLinesInTheAnsiCodePage) {
    Run();

    EXPECT_EQ(m_log.Lines(), (std::vector<std::string>{
                                 m_locationLine + m_narrowLocation, m_versionLine + "3.5.1",
                                 "安装目录 " + m_narrowLocation + "-已存在", "读取配置-成功"}));
    EXPECT_TRUE(m_log.OnlyInfo());
}

TEST_F(SetUpEnvironmentTest, AMissingVersionRefusesAfterEveryOtherStep) {
    m_installation.m_registry.SetValue(L"Version", REG_BINARY, std::string(40, 'x'));

    EXPECT_FALSE(Run());

    EXPECT_EQ(InstallVersion, L"");
    EXPECT_EQ(LogLine(1), m_versionLine);
    EXPECT_EQ(LogLine(2), "安装目录 " + m_narrowLocation + "-已存在");
    EXPECT_EQ(LogLine(3), "读取配置-成功");
    EXPECT_FALSE(SettingWritten());
}

TEST_F(SetUpEnvironmentTest, AMissingLocationStillReadsTheVersionAndLoadsFromTheRoot) {
    m_installation.m_registry.SetValue(L"Location", REG_BINARY, std::string(40, 'x'));

    EXPECT_FALSE(Run());

    EXPECT_EQ(
        CallJournal::Calls(),
        (Calls{L"open key", L"query Location", L"query Location", L"open key", L"query Version",
               L"probe ", L"rb \\config.xml", L"w \\config.xml", L"log", L"log", L"log", L"log"}));
    EXPECT_EQ(InstallLocation, L"");
    EXPECT_EQ(InstallVersion, L"3.5.1");
    EXPECT_EQ(m_log.Lines(), (std::vector<std::string>{m_locationLine, m_versionLine + "3.5.1",
                                                       "安装目录 -不存在", "读取配置-错误"}));
}

TEST_F(SetUpEnvironmentTest, ALocationOfAnEarlierStartIsKeptButRefusesWhenItCanNotBeReadAgain) {
    InstallLocation = m_installation.Location();
    m_installation.m_registry.SetValue(L"Location", REG_BINARY, std::string(40, 'x'));

    EXPECT_FALSE(Run());

    EXPECT_EQ(InstallLocation, m_installation.Location());
    EXPECT_EQ(LogLine(2), "安装目录 " + m_narrowLocation + "-不存在");
    EXPECT_EQ(LogLine(3), "读取配置-成功");
    EXPECT_FALSE(SettingWritten());
}

TEST_F(SetUpEnvironmentTest, MeantAMissingDirectoryStillReadsAsPresentInTheLog) {
    const std::wstring missing = m_installation.Location() + L"\\missing";
    m_installation.m_registry.SetLocation(missing);

    EXPECT_FALSE(Run());

    EXPECT_EQ(LogLine(2), "安装目录 " + m_narrowLocation + "\\missing-已存在");
    EXPECT_EQ(LogLine(3), "读取配置-错误");
    EXPECT_EQ(InstallLocation, missing);
    EXPECT_FALSE(SettingWritten());
}

TEST_F(SetUpEnvironmentTest, ALocationThatIsNotThereRefusesThoughAllElseIsWell) {
    // Not found by a search for its name, but a folder for the configuration all the same.
    m_installation.m_registry.SetLocation(m_installation.Location() + L"\\");

    EXPECT_FALSE(Run());

    EXPECT_EQ(LogLine(3), "读取配置-成功");
    EXPECT_FALSE(SettingWritten());
}

TEST_F(SetUpEnvironmentTest, AConfigurationThatCanNotBeLoadedRefuses) {
    const HANDLE lock = CreateFileW(m_installation.ConfigFile().c_str(), GENERIC_READ, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr);

    EXPECT_FALSE(Run());

    CloseHandle(lock);
    EXPECT_EQ(LogLine(2), "安装目录 " + m_narrowLocation + "-已存在");
    EXPECT_EQ(LogLine(3), "读取配置-错误");
    EXPECT_FALSE(SettingWritten());
}

TEST_F(SetUpEnvironmentTest, AMissingConfigurationIsMadeAndCountsAsLoaded) {
    DeleteFileW(m_installation.ConfigFile().c_str());

    EXPECT_TRUE(Run());

    EXPECT_EQ(LogLine(3), "读取配置-成功");
    EXPECT_NE(ReadFileBytes(m_installation.ConfigFile()).find("<Config"), std::string::npos);
}

TEST_F(SetUpEnvironmentTest, MeantAPlainFileIsPresentToo) {
    const ImportHook<decltype(&FindFirstFileW)> find("KERNEL32.dll", "FindFirstFileW",
                                                     &FindAsPlainFile);

    EXPECT_TRUE(Run());
}

TEST_F(SetUpEnvironmentTest, ARealPlainFileHasNoConfigurationBelowIt) {
    m_installation.m_registry.SetLocation(m_installation.ConfigFile());

    EXPECT_FALSE(Run());

    EXPECT_EQ(CallJournal::Count(L"probe " + m_installation.ConfigFile()), 1);
    EXPECT_EQ(LogLine(3), "读取配置-错误");
}

TEST_F(SetUpEnvironmentTest, WithoutTheElementNoLogIsBroughtUp) {
    Run();

    EXPECT_FALSE(google::IsGoogleLoggingInitialized());
}

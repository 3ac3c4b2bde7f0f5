// What a log that is up writes: the files' names, header, lines, and when they reach the disk.

#include "config/log_setup.h"

#include "config/log_fixture.h"
#include "support/import_hook.h"
#include "support/occurrences.h"

#include <atlstr.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

class LogFiles : public LogTest {};

decltype(&CreateDirectoryW) g_createDirectory = nullptr;

BOOL WINAPI TellsOfTheFolder(const wchar_t* path, SECURITY_ATTRIBUTES* security) {
    const bool asWanted = path == WorkingFolder() + L"\\Logs" && security == nullptr;
    std::printf(asWanted ? "creates Logs\n" : "creates something else\n");
    return g_createDirectory(path, security);
}

void WINAPI TellsOfTheDebugger(const char* text) {
    if (std::string(text).find("] 安装目录") != std::string::npos) std::printf("debugger\n");
}

}  // namespace

CHILD_SCENARIO(WritesOneLine) {
    LoadModule();
    const ImportHook<decltype(&CreateDirectoryW)> folder("KERNEL32.dll", "CreateDirectoryW",
                                                         &TellsOfTheFolder);
    g_createDirectory = folder.Original();
    const ImportHook<decltype(&OutputDebugStringA)> debugger("KERNEL32.dll", "OutputDebugStringA",
                                                             &TellsOfTheDebugger);
    const std::wstring logs = SetUpLogging("KVTCAD");
    const CStringA narrowed(L"设计");
    LOG(INFO) << "安装目录 " << narrowed.GetString();
    return logs == WorkingFolder() + L"\\Logs" ? 0 : 1;
}

namespace {

/// Two runs that write one line each; these tests look at what they left.
class LogOfOneLine : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        m_folder = std::make_unique<ModuleFolder>();
        m_first = m_folder->Run(L"WritesOneLine");
        m_firstBytes = ReadFileBytes(m_folder->InfoLog());
        m_second = m_folder->Run(L"WritesOneLine");
        m_lines = LinesOf(m_folder->InfoLog());
    }
    static void TearDownTestSuite() { m_folder.reset(); }

    static std::unique_ptr<ModuleFolder> m_folder;
    static ChildResult m_first;
    static ChildResult m_second;
    static std::string m_firstBytes;          ///< the file behind the first run
    static std::vector<std::string> m_lines;  ///< the file behind both
};
std::unique_ptr<ModuleFolder> LogOfOneLine::m_folder;
ChildResult LogOfOneLine::m_first;
ChildResult LogOfOneLine::m_second;
std::string LogOfOneLine::m_firstBytes;
std::vector<std::string> LogOfOneLine::m_lines;

}  // namespace

TEST_F(LogOfOneLine, MakesTheFolderBesideTheModuleAndOneFileInIt) {
    EXPECT_EQ(m_first.exitCode, 0u) << "the folder is the result";
    EXPECT_THAT(NamesIn(m_folder->Path()), ElementsAre(L"KVTCAD.arx", L"Logs", L"temp"));
    EXPECT_THAT(NamesIn(m_folder->Logs()), ElementsAre(L"KVTCAD.INFO.log"));
    EXPECT_THAT(NamesIn(*m_folder / L"temp"), IsEmpty());
}

TEST_F(LogOfOneLine, CreatesTheFolderOnlyWhereThereIsNone) {
    EXPECT_THAT(m_first.output, StartsWith("creates Logs\r\n"));
    EXPECT_THAT(m_second.output, Not(HasSubstr("creates")));
}

TEST_F(LogOfOneLine, StartsWithTheHeaderOfTheLibrary) {
    char machine[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD size = sizeof machine;
    GetComputerNameA(machine, &size);

    ASSERT_EQ(m_lines.size(), 10u);
    EXPECT_EQ(WithNines(m_lines[0]), "Log file created at: 9999/99/99 99:99:99");
    EXPECT_EQ(m_lines[1], std::string("Running on machine: ") + machine);
    EXPECT_EQ(WithNines(m_lines[2]), "Running duration (h:mm:ss): 9:99:99");
    EXPECT_EQ(m_lines[3],
              "Log line format: [IWEF]yyyymmdd hh:mm:ss.uuuuuu threadid file:line] msg");
}

TEST_F(LogOfOneLine, IsInTheAnsiCodePageBehindItsPrefix) {
    ASSERT_EQ(m_lines.size(), 10u);
    EXPECT_EQ(WithNines(m_lines[4]), infoPrefix + std::string("安装目录 设计"));
}

TEST_F(LogOfOneLine, GoesToStderrToo) {
    EXPECT_EQ(WithNines(m_first.errors), infoPrefix + std::string("安装目录 设计\r\n"));
}

TEST_F(LogOfOneLine, GoesToTheDebuggerToo) {
    EXPECT_EQ(m_second.output, "debugger\r\n");
}

TEST_F(LogOfOneLine, IsAppendedToByASecondRun) {
    EXPECT_THAT(ReadFileBytes(m_folder->InfoLog()), StartsWith(m_firstBytes));
    EXPECT_EQ(Occurrences(m_firstBytes, "\n"), 5u);
    ASSERT_EQ(m_lines.size(), 10u);
    EXPECT_THAT(m_lines[5], StartsWith("Log file created at: "));
    EXPECT_THAT(m_lines[9], HasSubstr("安装目录 设计"));
}

TEST_F(LogFiles, GoesOnWithoutALogWhenAPlainFileHasTheFoldersName) {
    WriteFileBytes(m_folder.Logs(), "a file");

    const ChildResult child = m_folder.Run(L"WritesOneLine");

    EXPECT_EQ(child.exitCode, 0u);
    EXPECT_THAT(child.output, StartsWith("creates Logs\r\n")) << "it is tried all the same";
    EXPECT_EQ(ReadFileBytes(m_folder.Logs()), "a file");
    EXPECT_THAT(NamesIn(m_folder.Path()), ElementsAre(L"KVTCAD.arx", L"Logs", L"temp"));
    EXPECT_THAT(NamesIn(m_folder / L"temp"), IsEmpty());
    EXPECT_THAT(child.errors, HasSubstr("COULD NOT CREATE"));
    EXPECT_THAT(child.errors, HasSubstr("] 安装目录 设计")) << "stderr still gets the line";
}

CHILD_SCENARIO(WritesAllButFatal) {
    LoadModule();
    SetUpLogging("KVTCAD");
    LOG(INFO) << "one";
    LOG(WARNING) << "two";
    LOG(ERROR) << "three";
    return __LINE__;
}

namespace {

std::string Place(unsigned long line) {
    return " log_files_test.cpp:" + std::to_string(line);
}

}  // namespace

TEST_F(LogFiles, WritesALineToTheFileOfItsSeverityAndOfAllLowerOnes) {
    const ChildResult child = m_folder.Run(L"WritesAllButFatal");

    EXPECT_THAT(NamesIn(m_folder.Logs()),
                ElementsAre(L"KVTCAD.ERROR.log", L"KVTCAD.INFO.log", L"KVTCAD.WARNING.log"));
    EXPECT_THAT(MessagesOf(m_folder.InfoLog()), ElementsAre("one", "two", "three"));
    EXPECT_THAT(MessagesOf(m_folder / L"Logs\\KVTCAD.WARNING.log"), ElementsAre("two", "three"));
    EXPECT_THAT(MessagesOf(m_folder / L"Logs\\KVTCAD.ERROR.log"), ElementsAre("three"));
    EXPECT_THAT(NamesIn(m_folder / L"temp"), IsEmpty());

    const std::vector<std::string> lines = LinesOf(m_folder.InfoLog());
    ASSERT_EQ(lines.size(), 7u);
    const std::string two = Place(child.exitCode - 2) + "] two";
    const std::string three = Place(child.exitCode - 1) + "] three";
    EXPECT_EQ(WithNines(lines[4]), infoPrefix + std::string("one")) << "no file and no line";
    EXPECT_EQ(WithNines(lines[5]), WithNines("[WARNING 99:99:99.999999" + two));
    EXPECT_THAT(lines[5], EndsWith(two));
    EXPECT_EQ(WithNines(lines[6]), WithNines("[ERROR   99:99:99.999999" + three));
    EXPECT_THAT(lines[6], EndsWith(three));
}

CHILD_SCENARIO(WritesFatalUnderAnotherName) {
    LoadModule();
    SetUpLogging("Other");
    LOG(FATAL) << "the end";
    return 0;
}

TEST_F(LogFiles, TakesTheNameForTheFileOfEachSeverity) {
    const ChildResult child = m_folder.Run(L"WritesFatalUnderAnotherName");

    EXPECT_NE(child.exitCode, 0u);
    EXPECT_THAT(NamesIn(m_folder.Logs()), ElementsAre(L"Other.ERROR.log", L"Other.FATAL.log",
                                                      L"Other.INFO.log", L"Other.WARNING.log"));
    EXPECT_THAT(MessagesOf(m_folder / L"Logs\\Other.FATAL.log"), ElementsAre("the end"));
}

CHILD_SCENARIO(FindsTwoLines) {
    const std::string bytes = ReadFileBytes(WorkingFolder() + L"\\Logs\\KVTCAD.INFO.log");
    return bytes.find("] one\r\n") != std::string::npos &&
                   bytes.find("] the last words\r\n") != std::string::npos
               ? 42
               : 1;
}

CHILD_SCENARIO(IsReadByAnotherAndEnded) {
    LoadModule();
    SetUpLogging("KVTCAD");
    LOG(INFO) << "one";  // Comes with the header, which is written at once in any case.
    LOG(INFO) << "the last words";
    TerminateProcess(GetCurrentProcess(), RunScenario(L"FindsTwoLines").exitCode);
    return 0;
}

TEST_F(LogFiles, WritesALineAtOnceForAnotherProcessAndForItsOwnSuddenEnd) {
    const ChildResult child = m_folder.Run(L"IsReadByAnotherAndEnded");

    EXPECT_EQ(child.exitCode, 42u);
    EXPECT_THAT(MessagesOf(m_folder.InfoLog()), ElementsAre("one", "the last words"));
}

CHILD_SCENARIO(WritesMoreThanAMebibyte) {
    LoadModule();
    SetUpLogging("KVTCAD");
    const std::string text(29000, 'x');
    for (int line = 0; line < 40; ++line)
        LOG(INFO) << text;
    return 0;
}

TEST_F(LogFiles, GoesOnInTheSameFileAtTheSizeLimit) {
    const EnvironmentVariable limit(L"GLOG_max_log_size", L"1");

    m_folder.Run(L"WritesMoreThanAMebibyte");

    EXPECT_THAT(NamesIn(m_folder.Logs()), ElementsAre(L"KVTCAD.INFO.log"));
    // Line by line: a mebibyte in memory would slow down a run with the heap validated.
    std::ifstream file(std::filesystem::path(m_folder.InfoLog()));
    int lines = 0;
    int headers = 0;
    for (std::string line; std::getline(file, line);) {
        if (line.rfind("[INFO ", 0) == 0) ++lines;
        if (line.rfind("Log file created at: ", 0) == 0) ++headers;
    }
    EXPECT_EQ(lines, 40);
    EXPECT_EQ(headers, 2);
}

namespace {

std::string TwoDigits(int number) {
    const std::string digits = std::to_string(number);
    return digits.size() < 2 ? digits + "0" : digits;
}

std::string PrefixUpToTheSecond(const std::tm& time) {
    return "[INFO    " + TwoDigits(time.tm_hour) + ":" + TwoDigits(time.tm_min) + ":" +
           TwoDigits(time.tm_sec) + ".";
}

}  // namespace

CHILD_SCENARIO(TellsTheTime) {
    LoadModule();
    SetUpLogging("KVTCAD");
    const std::time_t before = std::time(nullptr);
    LOG(INFO) << "one";
    const std::time_t after = std::time(nullptr);
    for (std::time_t time = before; time <= after; ++time) {
        std::printf("%s\n", PrefixUpToTheSecond(*std::localtime(&time)).c_str());
    }
    return std::localtime(&before)->tm_hour == std::gmtime(&before)->tm_hour ? 1 : 0;
}

TEST_F(LogFiles, WritesLocalTime) {
    const EnvironmentVariable zone(L"TZ", L"CST-8");

    const ChildResult child = m_folder.Run(L"TellsTheTime");

    EXPECT_EQ(child.exitCode, 0u) << "local time is no other than universal time here";
    const std::vector<std::string> lines = LinesOf(m_folder.InfoLog());
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_THAT(child.output, HasSubstr(lines[4].substr(0, lines[4].find('.') + 1)));
}

TEST_F(LogFiles, FiltersLinesByAPresetOfTheEnvironment) {
    const EnvironmentVariable preset(L"GLOG_minloglevel", L"1");

    m_folder.Run(L"WritesAllButFatal");

    EXPECT_THAT(MessagesOf(m_folder.InfoLog()), ElementsAre("two", "three"));
}

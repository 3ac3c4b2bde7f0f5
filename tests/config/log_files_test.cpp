// What a log that is up writes: the files' names, header, lines, and when they reach the disk.

#include "config/log_setup.h"

#include "config/log_fixture.h"
#include "support/import_hook.h"

#include <atlstr.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <cstdio>
#include <ctime>
#include <filesystem>
#include <regex>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

class LogFiles : public LogTest {};

}  // namespace

CHILD_SCENARIO(WritesOneLine) {
    LoadModule();
    SetUpLogging("KVTCAD");
    const CStringA narrowed(L"设计");
    LOG(INFO) << "安装目录 " << narrowed.GetString();
    return 0;
}

TEST_F(LogFiles, MakesTheFolderBesideTheModuleAndOneFileInIt) {
    const ChildResult child = Run(L"WritesOneLine");

    EXPECT_EQ(child.exitCode, 0u);
    EXPECT_THAT(NamesIn(m_folder.Path()), ElementsAre(L"KVTCAD.arx", L"Logs", L"temp"));
    EXPECT_THAT(NamesIn(Logs()), ElementsAre(L"KVTCAD.INFO.log"));
    EXPECT_THAT(NamesIn(m_folder / L"temp"), IsEmpty());
}

TEST_F(LogFiles, StartsAFileWithTheHeaderOfTheLibrary) {
    char machine[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD size = sizeof machine;
    GetComputerNameA(machine, &size);

    Run(L"WritesOneLine");

    const std::vector<std::string> lines = LinesOf(InfoLog());
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_TRUE(
        std::regex_match(lines[0], std::regex("Log file created at: [0-9]{4}/[0-9]{2}/[0-9]{2} "
                                              "[0-9]{2}:[0-9]{2}:[0-9]{2}")))
        << lines[0];
    EXPECT_EQ(lines[1], std::string("Running on machine: ") + machine);
    EXPECT_TRUE(std::regex_match(
        lines[2], std::regex("Running duration \\(h:mm:ss\\): [0-9]+:[0-9]{2}:[0-9]{2}")))
        << lines[2];
    EXPECT_EQ(lines[3], "Log line format: [IWEF]yyyymmdd hh:mm:ss.uuuuuu threadid file:line] msg");
}

TEST_F(LogFiles, WritesALineInTheAnsiCodePageBehindItsPrefix) {
    Run(L"WritesOneLine");

    const std::vector<std::string> lines = LinesOf(InfoLog());
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_TRUE(std::regex_match(lines[4], std::regex(infoPattern + std::string("安装目录 设计"))))
        << lines[4];
}

TEST_F(LogFiles, SendsEachLineToStderrToo) {
    const ChildResult child = Run(L"WritesOneLine");

    EXPECT_TRUE(std::regex_search(
        child.errors, std::regex("^" + std::string(infoPattern) + "安装目录 设计\r?\n$")))
        << child.errors;
}

TEST_F(LogFiles, AppendsASecondRunBehindTheFirst) {
    Run(L"WritesOneLine");
    const std::string first = ReadFileBytes(InfoLog());

    Run(L"WritesOneLine");

    EXPECT_THAT(ReadFileBytes(InfoLog()), StartsWith(first));
    const std::vector<std::string> lines = LinesOf(InfoLog());
    ASSERT_EQ(lines.size(), 10u);
    EXPECT_THAT(lines[5], StartsWith("Log file created at: "));
    EXPECT_THAT(lines[9], HasSubstr("安装目录 设计"));
    EXPECT_THAT(NamesIn(Logs()), ElementsAre(L"KVTCAD.INFO.log"));
}

CHILD_SCENARIO(BringsUpOnly) {
    LoadModule();
    SetUpLogging("KVTCAD");
    return 0;
}

TEST_F(LogFiles, OpensTheFileAtItsFirstLineOnly) {
    const ChildResult child = Run(L"BringsUpOnly");

    EXPECT_TRUE(std::filesystem::is_directory(Logs()));
    EXPECT_THAT(NamesIn(Logs()), IsEmpty());
    EXPECT_EQ(child.errors, "");
}

CHILD_SCENARIO(WritesAllButFatal) {
    LoadModule();
    SetUpLogging("KVTCAD");
    LOG(INFO) << "one";
    LOG(WARNING) << "two";
    LOG(ERROR) << "three";
    return __LINE__;
}

TEST_F(LogFiles, WritesALineToTheFileOfItsSeverityAndOfAllLowerOnes) {
    Run(L"WritesAllButFatal");

    EXPECT_THAT(NamesIn(Logs()),
                ElementsAre(L"KVTCAD.ERROR.log", L"KVTCAD.INFO.log", L"KVTCAD.WARNING.log"));
    EXPECT_THAT(MessagesOf(InfoLog()), ElementsAre("one", "two", "three"));
    EXPECT_THAT(MessagesOf(Logs() + L"\\KVTCAD.WARNING.log"), ElementsAre("two", "three"));
    EXPECT_THAT(MessagesOf(Logs() + L"\\KVTCAD.ERROR.log"), ElementsAre("three"));
    EXPECT_THAT(NamesIn(m_folder / L"temp"), IsEmpty());
}

TEST_F(LogFiles, ShowsFileAndLineForWarningsAndErrorsOnly) {
    const ChildResult child = Run(L"WritesAllButFatal");

    const std::vector<std::string> lines = LinesOf(InfoLog());
    ASSERT_EQ(lines.size(), 7u);
    const std::string line =
        " log_files_test\\.cpp:" + std::to_string(child.exitCode - 2) + "\\] two";
    EXPECT_TRUE(std::regex_match(lines[4], std::regex(infoPattern + std::string("one"))));
    EXPECT_TRUE(std::regex_match(lines[5], std::regex("\\[WARNING [0-9:]{8}\\.[0-9]{6}" + line)))
        << lines[5];
    EXPECT_TRUE(std::regex_match(
        lines[6],
        std::regex("\\[ERROR   [0-9:]{8}\\.[0-9]{6} log_files_test\\.cpp:[0-9]+\\] three")))
        << lines[6];
}

CHILD_SCENARIO(WritesFatal) {
    LoadModule();
    SetUpLogging("KVTCAD");
    LOG(FATAL) << "the end";
    return 0;
}

TEST_F(LogFiles, NamesTheFileOfFatalLinesLikeTheOthers) {
    const ChildResult child = Run(L"WritesFatal");

    EXPECT_NE(child.exitCode, 0u);
    EXPECT_THAT(NamesIn(Logs()), ElementsAre(L"KVTCAD.ERROR.log", L"KVTCAD.FATAL.log",
                                             L"KVTCAD.INFO.log", L"KVTCAD.WARNING.log"));
    EXPECT_THAT(MessagesOf(Logs() + L"\\KVTCAD.FATAL.log"), ElementsAre("the end"));
}

CHILD_SCENARIO(WritesUnderAnotherName) {
    LoadModule();
    SetUpLogging("Other");
    LOG(INFO) << "one";
    return 0;
}

TEST_F(LogFiles, TakesTheNameForTheFiles) {
    Run(L"WritesUnderAnotherName");

    EXPECT_THAT(NamesIn(Logs()), ElementsAre(L"Other.INFO.log"));
}

CHILD_SCENARIO(IsEndedBehindALine) {
    LoadModule();
    SetUpLogging("KVTCAD");
    LOG(INFO) << "one";  // Comes with the header, which is written at once in any case.
    LOG(INFO) << "the last words";
    TerminateProcess(GetCurrentProcess(), 7);
    return 0;
}

TEST_F(LogFiles, HasALineOnDiskWhenTheProcessIsEndedAtOnce) {
    const ChildResult child = Run(L"IsEndedBehindALine");

    EXPECT_EQ(child.exitCode, 7u);
    EXPECT_THAT(MessagesOf(InfoLog()), ElementsAre("one", "the last words"));
}

CHILD_SCENARIO(FindsTwoLines) {
    const std::string bytes = ReadFileBytes(WorkingFolder() + L"\\Logs\\KVTCAD.INFO.log");
    return bytes.find("] one\r\n") != std::string::npos &&
                   bytes.find("] two\r\n") != std::string::npos
               ? 42
               : 1;
}

CHILD_SCENARIO(HasItsFileReadByAnother) {
    LoadModule();
    SetUpLogging("KVTCAD");
    LOG(INFO) << "one";
    LOG(INFO) << "two";
    return static_cast<int>(RunScenario(L"FindsTwoLines").exitCode);
}

TEST_F(LogFiles, LetsAnotherProcessReadALineAtOnce) {
    EXPECT_EQ(Run(L"HasItsFileReadByAnother").exitCode, 42u);
}

namespace {

int g_debugLines = 0;

void WINAPI CountsDebugLines(const char* text) {
    if (std::string(text).find("] one") != std::string::npos) ++g_debugLines;
}

}  // namespace

CHILD_SCENARIO(WritesToTheDebugger) {
    LoadModule();
    const ImportHook<decltype(&OutputDebugStringA)> hook("KERNEL32.dll", "OutputDebugStringA",
                                                         &CountsDebugLines);
    SetUpLogging("KVTCAD");
    LOG(INFO) << "one";
    return g_debugLines;
}

TEST_F(LogFiles, SendsEachLineToTheDebuggerToo) {
    EXPECT_EQ(Run(L"WritesToTheDebugger").exitCode, 1u);
}

CHILD_SCENARIO(WritesMoreThanAMebibyte) {
    LoadModule();
    SetUpLogging("KVTCAD");
    for (int line = 0; line < 60; ++line)
        LOG(INFO) << std::string(20000, 'x');
    return 0;
}

TEST_F(LogFiles, GoesOnInTheSameFileAtTheSizeLimit) {
    const EnvironmentVariable limit(L"GLOG_max_log_size", L"1");

    Run(L"WritesMoreThanAMebibyte");

    EXPECT_THAT(NamesIn(Logs()), ElementsAre(L"KVTCAD.INFO.log"));
    EXPECT_EQ(MessagesOf(InfoLog()).size(), 60u);
    EXPECT_EQ(CountOf(ReadFileBytes(InfoLog()), "Log file created at: "), 2u);
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

    const ChildResult child = Run(L"TellsTheTime");

    EXPECT_EQ(child.exitCode, 0u) << "local time is no other than universal time here";
    const std::vector<std::string> lines = LinesOf(InfoLog());
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_THAT(child.output, HasSubstr(lines[4].substr(0, lines[4].find('.') + 1)));
}

TEST_F(LogFiles, FiltersLinesByAPresetOfTheEnvironment) {
    const EnvironmentVariable preset(L"GLOG_minloglevel", L"1");

    Run(L"WritesAllButFatal");

    EXPECT_THAT(MessagesOf(InfoLog()), ElementsAre("two", "three"));
}

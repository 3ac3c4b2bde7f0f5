// The bring-up itself: the folder, the flags, the two states of the log.

#include "config/log_setup.h"

#include "config/log_fixture.h"
#include "support/import_hook.h"
#include "support/occurrences.h"

#include <atlstr.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

class LogSetup : public LogTest {};

BOOL WINAPI MakesNoFolder(const wchar_t*, SECURITY_ATTRIBUTES*) {
    return FALSE;
}

}  // namespace

CHILD_SCENARIO(GetsItsFolderLate) {
    LoadModule();
    const ImportHook<decltype(&CreateDirectoryW)> hook("KERNEL32.dll", "CreateDirectoryW",
                                                       &MakesNoFolder);
    const std::wstring logs = SetUpLogging("KVTCAD");
    for (int line = 1; line <= 68; ++line) {
        LOG(INFO) << "line " << line;
        if (line == 40) hook.Original()(logs.c_str(), nullptr);
    }
    return 0;
}

TEST_F(LogSetup, TriesAgainAtEach32ndLineWithoutAFolderAndLosesThoseBetween) {
    const ChildResult child = m_folder.Run(L"GetsItsFolderLate");

    EXPECT_EQ(Occurrences(child.errors, "COULD NOT CREATE"), 2u) << "lines 1 and 33";
    EXPECT_THAT(MessagesOf(m_folder.InfoLog()),
                ElementsAre("line 65", "line 66", "line 67", "line 68"));
    EXPECT_EQ(Occurrences(child.errors, "] line "), 68u) << "stderr gets them all";
}

namespace {

void PrintSixFlags() {
    std::printf("log_dir %d\n",
                FLAGS_log_dir == CStringA((WorkingFolder() + L"\\Logs").c_str()).GetString());
    std::printf("timestamp_in_logfile_name %d\n", FLAGS_timestamp_in_logfile_name);
    std::printf("v %d\n", FLAGS_v);
    std::printf("vmodule %d:%d\n", static_cast<int>(FLAGS_vmodule.size()), FLAGS_vmodule[0]);
    std::printf("alsologtostderr %d\n", FLAGS_alsologtostderr);
    std::printf("logbufsecs %d\n", FLAGS_logbufsecs);
}

using FindLast = char* (*)(const char*, int);

FindLast g_strrchr = nullptr;

/// The library's initialisation looks for a path in the name that it is given.
char* PrintsFlagsAtTheInitialisation(const char* text, int character) {
    if (std::strcmp(text, "KVTCAD") == 0 && character == '/') PrintSixFlags();
    return g_strrchr(text, character);
}

}  // namespace

CHILD_SCENARIO(PrintsTheFlags) {
    LoadModule();
    const ImportHook<FindLast> hook("msvcrt.dll", "strrchr", &PrintsFlagsAtTheInitialisation);
    g_strrchr = hook.Original();
    SetUpLogging("KVTCAD");
    std::printf("-\n");
    PrintSixFlags();
    std::printf("-\n");
    std::printf("logtostderr %d\n", FLAGS_logtostderr);
    std::printf("log_prefix %d\n", FLAGS_log_prefix);
    std::printf("minloglevel %d\n", FLAGS_minloglevel);
    std::printf("logbuflevel %d\n", FLAGS_logbuflevel);
    std::printf("stderrthreshold %d\n", FLAGS_stderrthreshold);
    std::printf("max_log_size %u\n", FLAGS_max_log_size);
    std::printf("stop_logging_if_full_disk %d\n", FLAGS_stop_logging_if_full_disk);
    std::printf("log_utc_time %d\n", FLAGS_log_utc_time);
    return 0;
}

namespace {

constexpr char sixFlags[] =
    "log_dir 1\r\ntimestamp_in_logfile_name 0\r\nv 5\r\nvmodule 1:5\r\nalsologtostderr 1\r\n"
    "logbufsecs 0\r\n-\r\n";

}  // namespace

TEST_F(LogSetup, SetsSixFlagsAheadOfTheInitialisationAndLeavesTheOthers) {
    const ChildResult child = m_folder.Run(L"PrintsTheFlags");

    EXPECT_EQ(child.output, std::string(sixFlags) + sixFlags +
                                "logtostderr 0\r\nlog_prefix 1\r\nminloglevel 0\r\n"
                                "logbuflevel 0\r\nstderrthreshold 2\r\nmax_log_size 1800\r\n"
                                "stop_logging_if_full_disk 0\r\nlog_utc_time 0\r\n");
    EXPECT_THAT(NamesIn(m_folder.Logs()), IsEmpty()) << "a file is opened at its first line";
    EXPECT_EQ(child.errors, "");
}

TEST_F(LogSetup, LetsTheEnvironmentPresetTheOtherFlagsOnly) {
    std::vector<std::unique_ptr<EnvironmentVariable>> presets;
    const std::pair<const wchar_t*, const wchar_t*> values[] = {
        {L"GLOG_log_dir", L"C:\\elsewhere"},
        {L"GLOG_timestamp_in_logfile_name", L"1"},
        {L"GLOG_v", L"1"},
        {L"GLOG_vmodule", L"x=3"},
        {L"GLOG_alsologtostderr", L"0"},
        {L"GLOG_logbufsecs", L"60"},
        {L"GLOG_minloglevel", L"1"},
        {L"GLOG_logbuflevel", L"2"},
        {L"GLOG_max_log_size", L"7"},
        {L"GLOG_log_utc_time", L"1"},
        {L"GLOG_log_prefix", L"0"},
    };
    for (const auto& [name, value] : values) {
        presets.push_back(std::make_unique<EnvironmentVariable>(name, value));
    }

    const ChildResult child = m_folder.Run(L"PrintsTheFlags");

    EXPECT_EQ(child.output, std::string(sixFlags) + sixFlags +
                                "logtostderr 0\r\nlog_prefix 0\r\nminloglevel 1\r\n"
                                "logbuflevel 2\r\nstderrthreshold 2\r\nmax_log_size 7\r\n"
                                "stop_logging_if_full_disk 0\r\nlog_utc_time 1\r\n");
}

CHILD_SCENARIO(LogsWithoutBringUp) {
    LoadModule();
    LOG(INFO) << "one";
    LOG(INFO) << "two";
    return 0;
}

TEST_F(LogSetup, SendsLinesToStderrAloneWhenTheLogIsOff) {
    const ChildResult child = m_folder.Run(L"LogsWithoutBringUp");

    const auto stockLine = [](const char* message) {
        return AllOf(StartsWith("I99999999 99:99:99.999999 "), HasSubstr(" log_setup_test.cpp:9"),
                     EndsWith(std::string("] ") + message + "\r"));
    };
    std::istringstream errors(WithNines(child.errors));
    std::vector<std::string> lines;
    for (std::string line; std::getline(errors, line);)
        lines.push_back(line);
    EXPECT_EQ(child.exitCode, 0u);
    EXPECT_THAT(lines, ElementsAre("WARNING: Logging before InitGoogleLogging() is written to "
                                   "STDERR\r",
                                   stockLine("one"), stockLine("two")));
    EXPECT_THAT(NamesIn(m_folder.Path()), ElementsAre(L"KVTCAD.arx", L"temp"));
    EXPECT_THAT(NamesIn(m_folder / L"temp"), IsEmpty());
}

TEST_F(LogSetup, AddsNothingToAnOldFileWhenTheLogIsOff) {
    WriteFileBytes(m_folder.InfoLog(), "an old line\r\n");

    m_folder.Run(L"LogsWithoutBringUp");

    EXPECT_EQ(ReadFileBytes(m_folder.InfoLog()), "an old line\r\n");
    EXPECT_THAT(NamesIn(m_folder.Logs()), ElementsAre(L"KVTCAD.INFO.log"));
}

CHILD_SCENARIO(BringsUpTwice) {
    LoadModule();
    SetUpLogging("KVTCAD");
    SetUpLogging("KVTCAD");
    return 0;
}

TEST_F(LogSetup, EndsTheProcessAtASecondBringUp) {
    const ChildResult child = m_folder.Run(L"BringsUpTwice");

    EXPECT_FALSE(child.timedOut);
    EXPECT_NE(child.exitCode, 0u);
    EXPECT_THAT(child.errors, HasSubstr("You called InitGoogleLogging() twice!"));
}

namespace {

const char* g_moduleFile = nullptr;
HMODULE g_askedModule = nullptr;
bool g_zeroed260 = false;

DWORD WINAPI GivesTheModuleFile(HMODULE module, char* buffer, DWORD size) {
    g_askedModule = module;
    g_zeroed260 = size == 260 && std::all_of(buffer, buffer + size, [](char c) { return c == 0; });
    if (g_moduleFile == nullptr) return 0;
    lstrcpynA(buffer, g_moduleFile, static_cast<int>(size));
    return static_cast<DWORD>(lstrlenA(buffer));
}

}  // namespace

TEST(ModuleDirectory, IsCutBeforeTheLastBackslash) {
    struct Row {
        const char* why;
        const char* file;
        const char* directory;
    };
    constexpr Row rows[] = {
        {"a file in a folder", "C:\\app\\KVTCAD.arx", "C:\\app"},
        {"blanks and Chinese characters", "C:\\KVT 设计\\模块.arx", "C:\\KVT 设计"},
        {"at a drive's root", "C:\\KVTCAD.arx", "C:"},
        {"no backslash: nothing is cut", "KVTCAD.arx", "KVTCAD.arx"},
        {"slashes don't count", "C:/app/KVTCAD.arx", "C:/app/KVTCAD.arx"},
        {"the system doesn't know the module", nullptr, ""},
        {"a second byte that is a backslash counts as one", "C:\\app\\\x81\\.arx", "C:\\app\\\x81"},
    };
    const auto module = reinterpret_cast<HMODULE>(0x1234);
    for (const Row& row : rows) {
        const ImportHook<decltype(&GetModuleFileNameA)> hook("KERNEL32.dll", "GetModuleFileNameA",
                                                             &GivesTheModuleFile);
        g_moduleFile = row.file;
        std::string result = "old";

        EXPECT_STREQ(GetModuleDirectory(result, module), row.directory) << row.why;

        EXPECT_EQ(result, row.directory) << row.why;
        EXPECT_EQ(g_askedModule, module) << row.why;
        EXPECT_TRUE(g_zeroed260) << row.why;
    }
}

TEST(ModuleDirectory, IsThatOfTheProgramForItsOwnHandle) {
    std::string result;

    GetModuleDirectory(result, nullptr);

    EXPECT_EQ(result, CStringA(ProgramFolder().c_str()).GetString());
}

TEST(FormatLogPrefix, TakesItsFieldsFromTheLibrary) {
    std::tm nineOClock = {};
    nineOClock.tm_year = 120;
    nineOClock.tm_mday = 1;
    nineOClock.tm_hour = 9;
    nineOClock.tm_min = 5;
    nineOClock.tm_sec = 7;
    const std::time_t seconds = std::mktime(&nineOClock);
    const google::LogMessageTime time(seconds, static_cast<double>(seconds) + 0.5);
    const int line = 12;
    const int thread = 34;
    std::ostringstream stream;
    stream.fill('0');

    FormatLogPrefix(stream, google::LogMessageInfo("INFO", "a.cpp", line, thread, time), nullptr);
    stream << '|';
    FormatLogPrefix(stream, google::LogMessageInfo("ERROR", "a.cpp", line, thread, time), nullptr);

    EXPECT_EQ(stream.str(), "[INFO    90:50:70.500000]|[ERROR   90:50:70.500000 a.cpp:12]");
    EXPECT_EQ(stream.fill(), '0');
    EXPECT_EQ(stream.flags() & std::ios::adjustfield, std::ios::left);
}

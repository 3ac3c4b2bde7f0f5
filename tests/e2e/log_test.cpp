// The log as an administrator finds it.

#include "e2e/installation.h"
#include "support/text_pattern.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>
#include <sstream>

namespace {

std::string Narrow(const std::wstring& text) {
    const int size = WideCharToMultiByte(CP_ACP, 0, text.c_str(), -1, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.c_str(), -1, bytes.data(), size, nullptr, nullptr);
    bytes.pop_back();
    return bytes;
}

constexpr char beforeInit[] = "WARNING: Logging before InitGoogleLogging() is written to STDERR";

}  // namespace

TEST(Log, HoldsTheFourLinesOfTheStartAndOneForEachDrawing) {
    Installation installation(L"日志 测试");
    installation.EnableLog();

    installation.Run({installation.FirstDrawing(), installation.SecondDrawing()});

    const std::string location = Narrow(installation.Location());
    const std::string lispLine = "加载lisp文件:" + location + "\\Support\\KVTCAD.vlx";
    EXPECT_EQ(installation.LogMessages(),
              (std::vector<std::string>{
                  "读取 SOFTWARE\\Brennvik\\KVT CAD辅助设计软件\\Location = " + location,
                  "读取 SOFTWARE\\Brennvik\\KVT CAD辅助设计软件\\Version = 2026.1",
                  "安装目录 " + location + "-已存在",
                  "读取配置-成功",
                  lispLine,
                  lispLine,
              }));
}

TEST(Log, NamesTheApplicationThoughItIsMissing) {
    Installation installation;
    installation.EnableLog();
    std::filesystem::remove(installation.LispPath());

    installation.Run({installation.FirstDrawing()});

    const std::vector<std::string> log = installation.LogMessages();
    ASSERT_EQ(log.size(), 5u);
    EXPECT_EQ(log[4], "加载lisp文件:" + Narrow(installation.LispPath()));
}

// Meant: the third line follows the registry read and not the probe.
TEST(Log, SaysThatAMissingLocationExistsWhenTheRegistryNamesIt) {
    Installation installation;
    installation.EnableLog();
    installation.Registry().SetLocation(installation.Location() + L"\\");

    const InstallationRun run = installation.Run({});

    // With its separator the location is not found, yet its "\\config.xml" is.
    const std::vector<std::string> log = installation.LogMessages();
    ASSERT_EQ(log.size(), 4u);
    EXPECT_EQ(log[2], "安装目录 " + Narrow(installation.Location()) + "\\-已存在");
    EXPECT_NE(run.exitCode, 0u);
}

TEST(Log, LiesBesideTheModuleFileAndHoldsNoOtherFile) {
    Installation installation;
    installation.EnableLog();

    installation.Run({installation.FirstDrawing()});

    std::vector<std::wstring> names;
    for (const auto& entry : std::filesystem::directory_iterator(installation.LogFolder())) {
        names.push_back(entry.path().filename().wstring());
    }
    EXPECT_EQ(names, std::vector<std::wstring>{L"KVTCAD.INFO.log"});
    EXPECT_FALSE(std::filesystem::exists(installation.Location() + L"\\Logs"));
}

TEST(Log, EveryLineHasThePrefixWithoutFileAndLine) {
    Installation installation;
    installation.EnableLog();

    installation.Run({installation.FirstDrawing()});

    const wchar_t* const line = L"\\[INFO    [0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{6}\\] [^\\r]+\\r";
    std::istringstream lines(ReadFileBytes(installation.LogPath()));
    int prefixed = 0;
    for (std::string text; std::getline(lines, text);) {
        if (text[0] != '[') continue;
        EXPECT_TRUE(MatchesPattern(std::wstring(text.begin(), text.end()), line)) << text;
        ++prefixed;
    }
    EXPECT_EQ(prefixed, 5);
}

TEST(Log, ASecondRunAppendsAHeaderAndItsLines) {
    Installation installation;
    installation.EnableLog();

    installation.Run({});
    const std::string first = ReadFileBytes(installation.LogPath());
    const size_t lines = installation.LogMessages().size();
    installation.Run({});
    const std::string both = ReadFileBytes(installation.LogPath());

    EXPECT_EQ(Occurrences(first, "Log file created at: "), 1u);
    EXPECT_EQ(both.compare(0, first.size(), first), 0) << "the first run's bytes were changed";
    EXPECT_EQ(Occurrences(both, "Log file created at: "), 2u);
    EXPECT_EQ(installation.LogMessages().size(), 2 * lines);
}

TEST(Log, IsInTheAnsiCodePageWithoutUtf8) {
    Installation installation(L"日志");
    installation.EnableLog();

    installation.Run({});

    const std::string log = ReadFileBytes(installation.LogPath());
    EXPECT_NE(log.find("\xB6\xC1\xC8\xA1"), std::string::npos) << "GBK bytes of the first word";
    EXPECT_EQ(log.find("\xE8\xAF\xBB"), std::string::npos) << "UTF-8 bytes of the same word";
}

TEST(Log, SwitchedOffGoesToStderrAloneWithTheLibrarysPrefix) {
    Installation installation;
    std::filesystem::create_directories(installation.LogFolder());

    const InstallationRun run = installation.Run({installation.FirstDrawing()});

    EXPECT_TRUE(std::filesystem::is_empty(installation.LogFolder()));
    EXPECT_EQ(Occurrences(run.errors, beforeInit), 1u);
    EXPECT_EQ(Occurrences(run.errors, "读取配置-成功"), 1u);
    EXPECT_EQ(Occurrences(run.errors, "[INFO "), 0u);
}

TEST(Log, SwitchedOnGoesToStderrToo) {
    Installation installation;
    installation.EnableLog();

    const InstallationRun run = installation.Run({});

    EXPECT_EQ(Occurrences(run.errors, beforeInit), 0u);
    EXPECT_EQ(Occurrences(run.errors, "读取配置-成功"), 1u);
}

TEST(Log, APlainFileNamedLogsStaysAndTheStartGoesOn) {
    Installation installation;
    installation.EnableLog();
    WriteFileBytes(installation.LogFolder(), "in the way");

    const InstallationRun run = installation.Run({installation.FirstDrawing()});

    EXPECT_EQ(run.exitCode, 0u);
    EXPECT_EQ(ReadFileBytes(installation.LogFolder()), "in the way");
    EXPECT_NE(run.errors.find("COULD NOT CREATE"), std::string::npos);
    EXPECT_EQ(Occurrences(run.console, L"[application in "), 1u);
}

TEST(Log, StaysUpAfterARefusedStart) {
    Installation installation;
    installation.EnableLog();
    installation.Registry().DeleteKey();
    installation.Registry().SetLocation(installation.Location());

    installation.Run({});

    const std::vector<std::string> log = installation.LogMessages();
    ASSERT_EQ(log.size(), 4u);
    EXPECT_EQ(log[1], "读取 SOFTWARE\\Brennvik\\KVT CAD辅助设计软件\\Version = ");
}

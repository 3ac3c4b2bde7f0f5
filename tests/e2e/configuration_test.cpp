// How a start treats config.xml.

#include "e2e/installation.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>

namespace {

constexpr char healed[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"";

bool Started(const InstallationRun& run) {
    return run.exitCode == 0 && Occurrences(run.console, L"\n欢迎使用") == 1;
}

}  // namespace

TEST(ConfigurationAtStart, AMissingFileIsWrittenAndTheLogStaysOff) {
    Installation installation;

    const InstallationRun run = installation.Run({});

    EXPECT_TRUE(Started(run));
    EXPECT_EQ(ReadFileBytes(installation.ConfigPath()).find(healed), 0u);
    EXPECT_FALSE(std::filesystem::exists(installation.LogFolder()));
}

TEST(ConfigurationAtStart, AnEmptyFileIsReplaced) {
    Installation installation;
    WriteFileBytes(installation.ConfigPath(), "");

    const InstallationRun run = installation.Run({});

    EXPECT_TRUE(Started(run));
    EXPECT_EQ(ReadFileBytes(installation.ConfigPath()).find(healed), 0u);
}

// Meant: nothing is kept of a file that can't be parsed, not even a copy.
TEST(ConfigurationAtStart, AMalformedFileIsReplacedWithoutABackup) {
    Installation installation;
    WriteFileBytes(installation.ConfigPath(), "<Config><EnableLog></Config>");

    const InstallationRun run = installation.Run({});

    EXPECT_TRUE(Started(run));
    EXPECT_EQ(ReadFileBytes(installation.ConfigPath()).find(healed), 0u);
    const auto files = std::filesystem::directory_iterator(installation.Location());
    EXPECT_EQ(std::distance(begin(files), end(files)), 2) << "config.xml and Support alone";
}

TEST(ConfigurationAtStart, AValidFileIsReadAndNotTouched) {
    Installation installation;
    installation.EnableLog();
    const std::string before = ReadFileBytes(installation.ConfigPath());

    const InstallationRun run = installation.Run({});

    EXPECT_TRUE(Started(run));
    EXPECT_EQ(ReadFileBytes(installation.ConfigPath()), before);
    EXPECT_TRUE(std::filesystem::exists(installation.LogPath()));
}

TEST(ConfigurationAtStart, AFileThatCanOnlyBeReadWillDo) {
    Installation installation;
    installation.EnableLog();
    SetFileAttributesW(installation.ConfigPath().c_str(), FILE_ATTRIBUTE_READONLY);
    // The attribute stops nobody who runs as administrator; this stops every opening for writing.
    const HANDLE reader = CreateFileW(installation.ConfigPath().c_str(), GENERIC_READ,
                                      FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);

    const InstallationRun run = installation.Run({});

    CloseHandle(reader);
    SetFileAttributesW(installation.ConfigPath().c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_TRUE(Started(run));
    EXPECT_TRUE(std::filesystem::exists(installation.LogPath()));
}

// Meant: the element's presence alone counts, whatever it says.
TEST(ConfigurationAtStart, EnableLogThatSaysFalseSwitchesTheLogOn) {
    for (const char* content : {"false", "0", ""}) {
        Installation installation;
        WriteFileBytes(installation.ConfigPath(),
                       std::string("<Config><EnableLog>") + content + "</EnableLog></Config>");

        installation.Run({});

        EXPECT_TRUE(std::filesystem::exists(installation.LogPath())) << "content: " << content;
    }
}

TEST(ConfigurationAtStart, AnotherRootThanConfigLeavesTheLogOff) {
    Installation installation;
    WriteFileBytes(installation.ConfigPath(), "<Settings><EnableLog/></Settings>");

    const InstallationRun run = installation.Run({});

    EXPECT_TRUE(Started(run));
    EXPECT_FALSE(std::filesystem::exists(installation.LogFolder()));
}

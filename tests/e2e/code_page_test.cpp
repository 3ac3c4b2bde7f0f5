// The same binaries where the system's code page is another one: run with code page 1252.

#include "e2e/installation.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>

TEST(ForeignCodePage, IsTheOneThatTheseTestsRunUnder) {
    ASSERT_EQ(GetACP(), 1252u);
}

TEST(ForeignCodePage, AnInstallationAtAnAsciiPathStarts) {
    Installation installation;

    const InstallationRun run = installation.Run({installation.FirstDrawing()});

    EXPECT_EQ(run.exitCode, 0u);
    EXPECT_EQ(Occurrences(run.console, L"\n欢迎使用《KVT CAD辅助设计软件》2026.1 \n"), 1u);
    EXPECT_EQ(Occurrences(run.console, L"[application in first.dwg from "), 1u);
}

// Meant: literals are GBK bytes whatever the code page, so the log mixes both.
TEST(ForeignCodePage, TheLogsLiteralsStayGbkBytes) {
    Installation installation;
    installation.EnableLog();

    installation.Run({});

    const std::string log = ReadFileBytes(installation.LogPath());
    EXPECT_NE(log.find("\xB6\xC1\xC8\xA1 SOFTWARE"), std::string::npos);
}

TEST(ForeignCodePage, ALocationThatItCannotSpellIsRefused) {
    Installation installation(L"安装");

    const InstallationRun run = installation.Run({});

    EXPECT_EQ(run.exitCode, 13u);
    EXPECT_EQ(Occurrences(run.console, L"\n《KVT CAD辅助设计软件》可能没有正确安装"), 1u);
    EXPECT_FALSE(std::filesystem::exists(installation.ConfigPath()));
}

// The About dialog of the built module in drafthost, with nobody at the screen.

#include "e2e/installation.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

constexpr unsigned long fileMissingExitCode = 11;

class Dialog : public testing::Test {
  protected:
    InstallationRun Run(const std::wstring& arguments, const std::wstring& lines) {
        return m_installation.RunHost(
            L"--load \"" + m_installation.ModulePath() + L"\" " + arguments, lines);
    }

    Installation m_installation;
    const std::wstring m_pictures = m_installation.Folder() + L"\\图片\\of dialogs";
    const std::wstring m_capture = L"--capture \"" + m_pictures + L"\"";
};

/// A 32-bit number of the PNG file's head; the width stands at 16, the height at 20.
unsigned NumberAt(const std::string& png, size_t offset) {
    unsigned number = 0;
    for (size_t i = 0; i < 4; ++i)
        number = number * 256 + static_cast<unsigned char>(png[offset + i]);
    return number;
}

}  // namespace

TEST_F(Dialog, IsPicturedAndAnsweredEachTimeWhileTheSessionGoesOn) {
    const InstallationRun run = Run(m_capture, L"LoadKVT\nLoadKVT\n(+ 40 2)\nQUIT\n");

    EXPECT_EQ(run.exitCode, 0u) << run.errors;
    EXPECT_EQ(Occurrences(run.console, L"Picture of the dialog: " + m_pictures), 2u);
    EXPECT_NE(run.console.find(L"42"), std::wstring::npos);
    for (const wchar_t* start : {L"dialog-01-", L"dialog-02-"}) {
        std::string bytes;
        for (const auto& entry : std::filesystem::directory_iterator(m_pictures)) {
            if (entry.path().filename().wstring().rfind(start, 0) == 0) {
                bytes = ReadFileBytes(entry.path().wstring());
            }
        }
        ASSERT_EQ(bytes.substr(1, 3), "PNG");
        EXPECT_GT(NumberAt(bytes, 16), 300u);
        EXPECT_GT(NumberAt(bytes, 20), 300u);
    }
}

TEST_F(Dialog, PictureFolderThatCantBeMadeEndsTheRunAhead) {
    WriteFileBytes(m_installation.Folder() + L"\\图片", "a file in the way");

    const InstallationRun run = Run(m_capture, L"LoadKVT\nQUIT\n");

    EXPECT_EQ(run.exitCode, fileMissingExitCode);
    EXPECT_EQ(run.console.find(L"欢迎使用"), std::wstring::npos) << "the module was started";
}

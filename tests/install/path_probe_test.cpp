#include "install/path_probe.h"

#include "support/import_hook.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace {

int g_closeCalls = 0;
HANDLE g_closed = nullptr;
std::wstring g_searched;

HANDLE WINAPI FindNothing(LPCWSTR path, LPWIN32_FIND_DATAW) {
    g_searched = path;
    return INVALID_HANDLE_VALUE;
}

BOOL WINAPI CountClose(HANDLE find) {
    ++g_closeCalls;
    g_closed = find;
    return FALSE;
}

}  // namespace

TEST(ProbePath, TellsDirectoryFileAndNothingApart) {
    const TempFolder folder(L"探测 path");
    WriteFileBytes(folder / L"file.txt", "x");

    EXPECT_EQ(ProbePath(folder.Path()), PathDirectory);
    EXPECT_EQ(ProbePath(folder / L"file.txt"), PathFile);
    EXPECT_EQ(ProbePath(folder / L"missing"), PathAbsent);
    EXPECT_EQ(PathAbsent, 0);
    EXPECT_EQ(PathDirectory, 1);
    EXPECT_EQ(PathFile, 2);
}

TEST(ProbePath, LooksAtTheDirectoryAttributeAlone) {
    const TempFolder folder;
    WriteFileBytes(folder / L"marked", "x");
    SetFileAttributesW((folder / L"marked").c_str(),
                       FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);

    const PathKind kind = ProbePath(folder / L"marked");

    SetFileAttributesW((folder / L"marked").c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(kind, PathFile);
}

TEST(ProbePath, AnEmptyPathIsAbsent) {
    EXPECT_EQ(ProbePath(L""), PathAbsent);
}

TEST(ProbePath, ATrailingBackslashIsNotStripped) {
    const TempFolder folder;

    EXPECT_EQ(ProbePath(folder.Path() + L"\\"), PathAbsent);
}

TEST(ProbePath, ForwardSlashesWork) {
    const TempFolder folder;
    WriteFileBytes(folder / L"file.txt", "x");

    EXPECT_EQ(ProbePath(folder.Path() + L"/file.txt"), PathFile);
}

TEST(ProbePath, ForWildcardsTheFirstMatchAnswers) {
    const TempFolder folder;
    WriteFileBytes(folder / L"sub\\only.one", "x");

    EXPECT_EQ(ProbePath(folder / L"su?"), PathDirectory);
    EXPECT_EQ(ProbePath(folder / L"sub\\*.one"), PathFile);
    EXPECT_EQ(ProbePath(folder / L"*.none"), PathAbsent);
}

TEST(ProbePath, PassesThePathOnAsItStands) {
    ImportHook<decltype(&FindFirstFileW)> find("KERNEL32.dll", "FindFirstFileW", &FindNothing);

    ProbePath(L"C:/a\\\\b \\.\\*?\\");

    EXPECT_EQ(g_searched, L"C:/a\\\\b \\.\\*?\\");
}

TEST(ProbePath, MeantTheInvalidHandleIsClosedToo) {
    ImportHook<decltype(&FindFirstFileW)> find("KERNEL32.dll", "FindFirstFileW", &FindNothing);
    ImportHook<decltype(&FindClose)> close("KERNEL32.dll", "FindClose", &CountClose);
    g_closeCalls = 0;
    g_closed = nullptr;

    EXPECT_EQ(ProbePath(L"C:\\anything"), PathAbsent);

    EXPECT_EQ(g_closeCalls, 1);
    EXPECT_EQ(g_closed, INVALID_HANDLE_VALUE);
}

TEST(ProbePath, AFoundHandleIsClosedOnce) {
    const TempFolder folder;
    ImportHook<decltype(&FindClose)> close("KERNEL32.dll", "FindClose", &CountClose);
    g_closeCalls = 0;
    g_closed = nullptr;

    EXPECT_EQ(ProbePath(folder.Path()), PathDirectory);

    EXPECT_EQ(g_closeCalls, 1);
    EXPECT_NE(g_closed, INVALID_HANDLE_VALUE);
    close.Original()(g_closed);
}

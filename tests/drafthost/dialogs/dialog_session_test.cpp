// The options for dialogs, in drafthost.exe with a module that shows some.

#include "host_run.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>

using drafthost::ExitCode;
using testing::HasSubstr;

namespace {

/// The answer OK is 1, the close box 2.
std::wstring Gives(int result) {
    return L"the dialog gives " + std::to_wstring(result);
}

}  // namespace

TEST(DialogSession, TheAnswerIsTheOneOfTheOption) {
    EXPECT_TRUE(HostRun(LoadOption(L"dialogs") + L"--answer ok", L"Form\n").HasLine(Gives(IDOK)));
    EXPECT_TRUE(
        HostRun(LoadOption(L"dialogs") + L"--answer close", L"Form\n").HasLine(Gives(IDCANCEL)));
}

TEST(DialogSession, APictureThatCantBeSavedIsToldAtTheEnd) {
    const TempFolder pictures;
    std::filesystem::create_directory(pictures / L"dialog-01-form.png");

    const HostRun run(LoadOption(L"dialogs") + L"--capture \"" + pictures.Path() + L"\"",
                      L"Form\n(+ 40 2)\n");

    EXPECT_EQ(run.Code(), ExitCode::DialogFailed);
    EXPECT_THAT(run.Output(), HasSubstr(L"The picture of the dialog can't be saved: " +
                                        (pictures / L"dialog-01-form.png")));
    EXPECT_TRUE(run.HasLine(Gives(IDOK))) << "answered by itself: the line came from a pipe";
    EXPECT_TRUE(run.HasLine(L"42")) << "the session goes on";
}

TEST(DialogSession, ADialogThatNeverPaintsEndsTheRunAtTheDeadlineOfTheOption) {
    // The dialog ends by itself later, but ahead of the deadline that counts without the option.
    const HostRun run(LoadOption(L"dialogs") + L"--dialog-deadline 1", L"Unpainted\n");

    EXPECT_EQ(run.Code(), ExitCode::DialogFailed);
    EXPECT_EQ(run.Errors(), L"drafthost: a dialog has not painted within its time.\n");
}

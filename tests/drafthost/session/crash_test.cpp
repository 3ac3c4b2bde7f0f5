// Crashes inside a module: each is reported with the module, what it was called for, what happened
// and where, and ends drafthost with the exit code for it.

#include "host_run.h"

#include "support/text_pattern.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using drafthost::ExitCode;
using testing::HasSubstr;

namespace {

/// Goes once through a module's life.
constexpr const wchar_t* wholeLife = L"bad\n(bad)\nNEW\nCLOSE\nUNLOAD misbehaving\nQUIT\n";

struct Row {
    const wchar_t* misdeed;
    const wchar_t* calledFor;
    const wchar_t* what;
};

class ModuleCrash : public testing::TestWithParam<Row> {};

}  // namespace

TEST_P(ModuleCrash, IsReportedAndEndsTheHost) {
    const Misdeed misdeed(GetParam().misdeed);

    const HostRun run(LoadOption(L"misbehaving"), wholeLife);

    EXPECT_EQ(run.Code(), ExitCode::ModuleCrashed);
    EXPECT_THAT(run.Errors(),
                HasSubstr(std::wstring(L"drafthost: crash in misbehaving.arx, called for ") +
                          GetParam().calledFor + L"\n"));
    EXPECT_THAT(run.Errors(), HasSubstr(std::wstring(L"drafthost:   ") + GetParam().what));
}

INSTANTIATE_TEST_SUITE_P(
    Everywhere, ModuleCrash,
    testing::Values(
        Row{L"crash in static", L"static initialisers and DllMain (attach)", L"access violation"},
        Row{L"throw in static", L"static initialisers and DllMain (attach)", L"C++ exception"},
        Row{L"crash in attach", L"static initialisers and DllMain (attach)", L"access violation"},
        Row{L"crash in kInitAppMsg", L"message kInitAppMsg (1)",
            L"access violation writing 0x0000000000000000 (0xC0000005)"},
        Row{L"throw in kInitAppMsg", L"message kInitAppMsg (1)",
            L"C++ exception of type std::runtime_error, \"in the start\""},
        Row{L"crash in kLoadDwgMsg", L"message kLoadDwgMsg (3)", L"access violation"},
        Row{L"throw in kLoadDwgMsg", L"message kLoadDwgMsg (3)", L"C++ exception of type"},
        Row{L"throw int", L"message kLoadDwgMsg (3)", L"C++ exception of type int\n"},
        Row{L"stack overflow", L"message kLoadDwgMsg (3)", L"stack overflow (0xC00000FD)"},
        Row{L"division", L"message kLoadDwgMsg (3)", L"integer division by zero (0xC0000094)"},
        Row{L"exit", L"message kLoadDwgMsg (3)", L"exit or abort was called"},
        Row{L"abort", L"message kLoadDwgMsg (3)", L"exit or abort was called"},
        Row{L"noexcept", L"message kLoadDwgMsg (3)", L"exit or abort was called"},
        Row{L"crash in command", L"command Bad", L"access violation"},
        Row{L"throw in command", L"command Bad",
            L"C++ exception of type std::out_of_range, \"from a command\""},
        Row{L"crash in window", L"command Bad", L"access violation"},
        Row{L"throw in window", L"command Bad", L"C++ exception"},
        Row{L"crash in kInvkSubrMsg", L"message kInvkSubrMsg (5), LISP function bad",
            L"access violation"},
        Row{L"crash in reactor", L"reactor operation documentToBeDestroyed", L"access violation"},
        Row{L"crash in kUnloadDwgMsg", L"message kUnloadDwgMsg (4)", L"access violation"},
        Row{L"crash in kUnloadAppMsg", L"message kUnloadAppMsg (2)", L"access violation"},
        Row{L"crash in kQuitMsg;locked", L"message kQuitMsg (8)", L"access violation"},
        Row{L"crash in detach", L"DllMain and static destructors (detach)", L"access violation"},
        Row{L"crash in static destructor", L"DllMain and static destructors (detach)",
            L"access violation"}));

TEST(ModuleCrash, NamesTheAddressByModuleAndOffset) {
    const Misdeed misdeed(L"crash in kLoadDwgMsg");

    const HostRun run(LoadOption(L"misbehaving"));

    EXPECT_TRUE(
        ContainsPattern(run.Errors(), L"\ndrafthost:   at misbehaving\\.arx \\+ 0x[0-9A-F]+\n"));
}

TEST(ModuleCrash, NamesWhereAnExceptionWasThrown) {
    const Misdeed misdeed(L"throw in kLoadDwgMsg");

    const HostRun run(LoadOption(L"misbehaving"));

    EXPECT_TRUE(ContainsPattern(run.Errors(),
                                L"\ndrafthost:   thrown at misbehaving\\.arx \\+ 0x[0-9A-F]+\n"));
}

TEST(ModuleCrash, OnAThreadOfItsOwnIsReportedAsSuch) {
    for (const wchar_t* misdeed : {L"crash in thread", L"throw in thread"}) {
        const Misdeed chosen(misdeed);

        const HostRun run(LoadOption(L"misbehaving"), L"bad\n");

        EXPECT_EQ(run.Code(), ExitCode::ModuleCrashed);
        EXPECT_TRUE(ContainsPattern(
            run.Errors(),
            L"drafthost: crash on thread \\d+, which isn't the host's\n"
            L"drafthost:   the host was calling misbehaving.arx for command Bad\n"));
    }
}

TEST(ModuleCrash, AtTheEndOfTheProcessIsReported) {
    const Misdeed misdeed(L"locked;crash in detach");

    const HostRun run(LoadOption(L"misbehaving"), L"QUIT\n");

    EXPECT_EQ(run.Code(), ExitCode::ModuleCrashed);
    EXPECT_THAT(run.Errors(), HasSubstr(L"drafthost: crash at the end of the process\n"));
    EXPECT_THAT(run.Errors(), HasSubstr(L"drafthost:   at misbehaving.arx + 0x"));
}

TEST(ModuleCrash, IsNotWhatAModuleCatchesItselfWhileLoading) {
    const Misdeed misdeed(L"caught in static");

    const HostRun run(LoadOption(L"misbehaving"), L"QUIT\n");

    EXPECT_EQ(run.Code(), ExitCode::Success);
    EXPECT_EQ(run.Errors(), L"");
}

TEST(ModuleCrash, LeavesTheTranscriptBeforeIt) {
    const Misdeed misdeed(L"crash in command");

    const HostRun run(LoadOption(L"misbehaving"), L"(princ \"\\nahead of it\")\nbad\n(princ 1)\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"\nahead of it"));
    EXPECT_THAT(run.Output(), testing::EndsWith(L"Command: bad\n"));
}

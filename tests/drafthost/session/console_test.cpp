// The console as a user meets it: options, exit codes, lines, scripts.

#include "host_run.h"

#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using drafthost::ExitCode;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST(Console, EndOfInputIsQuit) {
    const HostRun run(L"", L"(+ 1 2)\n");

    EXPECT_EQ(run.Output(), L"Command: (+ 1 2)\n3\nCommand: \n");
    EXPECT_EQ(run.Code(), ExitCode::Success);
}

TEST(Console, HelpListsOptionsAndExitCodes) {
    const HostRun run(L"--help");

    EXPECT_EQ(run.Code(), ExitCode::Success);
    EXPECT_EQ(run.Errors(), L"");
    for (const wchar_t* part : {L"--load FILE", L"--open FILE", L"--script FILE", L"--version",
                                L"--profile NAME", L"--prompt", L"--strict", L"--stop-on-error",
                                L"--verbose", L"\n  10  wrong usage", L"\n  11  ", L"\n  12  ",
                                L"\n  13  ", L"\n  14  ", L"\n  15  ", L"\n  16  ", L"\n  17  "}) {
        EXPECT_THAT(run.Output(), HasSubstr(part));
    }
}

TEST(Console, VersionIsShown) {
    const HostRun run(L"--version");

    EXPECT_EQ(run.Output(), L"drafthost " PROJECT_VERSION "\n");
    EXPECT_EQ(run.Code(), ExitCode::Success);
}

TEST(Console, AWrongOptionIsAUsageError) {
    for (const wchar_t* options : {L"--bogus", L"stray", L"--load", L"--profile a\\b"}) {
        const HostRun run(options);

        EXPECT_EQ(run.Code(), ExitCode::UsageError) << testing::PrintToString(options);
        EXPECT_THAT(run.Errors(), StartsWith(L"drafthost: "));
        EXPECT_EQ(run.Output(), L"");
    }
}

TEST(Console, AMissingFileOfTheCommandLineHasItsOwnCode) {
    struct Row {
        const wchar_t* options;
        const wchar_t* message;
    };
    constexpr Row rows[] = {
        {L"--load C:\\缺.arx", L"Module C:\\缺.arx not found."},
        {L"--open C:\\缺.dwg", L"Drawing C:\\缺.dwg not found."},
        {L"--open C:\\windows", L"Drawing C:\\windows can't be read."},
        {L"--script C:\\缺.scr", L"the script C:\\缺.scr can't be read."},
    };
    for (const Row& row : rows) {
        const HostRun run(row.options, L"QUIT\n");

        EXPECT_EQ(run.Code(), ExitCode::FileMissing) << testing::PrintToString(row.options);
        EXPECT_EQ(run.Errors(), L"drafthost: " + std::wstring(row.message) + L"\n");
        EXPECT_EQ(run.Output(), L"");
    }
}

TEST(Console, AListGoesOnInTheNextLine) {
    const HostRun run(L"", L"(list 1\n  \"two\n lines\"\n)\n");

    EXPECT_THAT(run.Output(), StartsWith(L"Command: (list 1\n(_>   \"two\n(_>  lines\"\n(_> )\n"
                                         L"(1 \"two\\n lines\")\n"));
}

TEST(Console, AnUnfinishedListAtTheEndIsAnError) {
    const HostRun run(L"--stop-on-error", L"(list 1");

    EXPECT_THAT(run.Output(), HasSubstr(L"; error: malformed list on input\n"));
    EXPECT_EQ(run.Code(), ExitCode::ScriptFailed);
}

TEST(Console, EmptyLinesAndCommentsDoNothing) {
    const HostRun run(L"--stop-on-error", L"\n  \n; a remark\nQUIT\n");

    EXPECT_EQ(run.Code(), ExitCode::Success);
}

TEST(Console, LispGetsItsAnswersFromTheNextLine) {
    const HostRun run(L"", L"(getstring T \"Name? \")\n李 四\nQUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"Name? 李 四\n\"李 四\"\n"));
}

TEST(Console, OpenAsksForAFile) {
    const TempFolder folder;
    WriteFileBytes(folder / L"a.dwg", "");

    const HostRun run(L"", L"OPEN\n" + (folder / L"a.dwg") + L"\n(getvar \"DWGNAME\")\nQUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"Drawing to open: " + (folder / L"a.dwg") + L"\n"));
    EXPECT_TRUE(run.HasLine(L"\"a.dwg\""));
}

TEST(Console, OpenOfAMissingFileLeavesTheHostAlive) {
    const HostRun run(L"", L"OPEN C:\\nothing.dwg\n(+ 1 1)\nQUIT\n");

    EXPECT_TRUE(run.HasLine(L"Drawing C:\\nothing.dwg not found."));
    EXPECT_TRUE(run.HasLine(L"2"));
    EXPECT_EQ(run.Code(), ExitCode::Success);
}

TEST(Console, ADrawingIsOpenOnce) {
    const TempFolder folder;
    WriteFileBytes(folder / L"a.dwg", "");
    const std::wstring path = folder / L"a.dwg";

    const HostRun run(L"--open \"" + path + L"\"", L"NEW\nOPEN " + path + L"\nLIST\nQUIT\n");

    EXPECT_TRUE(run.HasLine(path + L" is open already."));
    EXPECT_TRUE(run.HasLine(L"Drawing in front: " + path));
}

TEST(Console, TwoDrawingsOfTheCommandLineAreBothOpen) {
    const TempFolder folder(L"图纸 目录");
    WriteFileBytes(folder / L"一.dwg", "");
    WriteFileBytes(folder / L"二 b.dwg", "");

    const HostRun run(
        L"--open \"" + (folder / L"一.dwg") + L"\" --open \"" + (folder / L"二 b") + L"\"",
        L"LIST\nQUIT\n");

    EXPECT_TRUE(run.HasLine(L"Drawing: " + (folder / L"一.dwg")));
    EXPECT_TRUE(run.HasLine(L"Drawing in front: " + (folder / L"二 b.dwg")));
    EXPECT_THAT(run.Output(), Not(HasSubstr(L"Drawing1.dwg")));
}

TEST(Console, CloseWithoutADrawingIsTold) {
    const HostRun run(L"", L"CLOSE\nCLOSE\n(+ 1 1)\nQUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"Command: CLOSE\nNo drawing is open.\n"));
    EXPECT_THAT(run.Output(), HasSubstr(L"Command: (+ 1 1)\nNo drawing is open.\n"));
}

TEST(Console, LispDoesntReachTheHostsOwnCommands) {
    const HostRun run(L"", L"(command \"CLOSE\")\n(+ 1 1)\nQUIT\n");

    EXPECT_EQ(run.Shown(L"(command \"CLOSE\")"), L"Unknown command \"CLOSE\".\nnil");
    EXPECT_TRUE(run.HasLine(L"2")) << "the drawing is still open";
}

TEST(Console, EnvShowsAndChangesSettings) {
    const HostRun run(L"",
                      L"ENV Colour=蓝 色\nENV colour\n(getenv \"COLOUR\")\n"
                      L"(setenv \"Size\" \"5\")\nENV\nENV None\nQUIT\n");

    EXPECT_TRUE(run.HasLine(L"colour=蓝 色"));
    EXPECT_TRUE(run.HasLine(L"\"蓝 色\""));
    EXPECT_TRUE(run.HasLine(L"Size=5"));
    EXPECT_TRUE(run.HasLine(L"There is no setting None."));
}

TEST(Console, HelpNamesTheHostsAndTheModulesCommands) {
    const HostRun run(LoadOption(L"recorder"), L"HELP\nQUIT\n");

    for (const wchar_t* name :
         {L"APPLOAD", L"CLOSE", L"ENV", L"HELP", L"LIST", L"NEW", L"OPEN", L"QUIT", L"SWITCH",
          L"UNLOAD", L"Command of a module: RecHello (招呼)", L"Command of a module: RecSession"}) {
        EXPECT_THAT(run.Output(), HasSubstr(L"\n" + std::wstring(name)));
    }
}

TEST(Console, OwnCommandsGoWithTheMarksOfACommand) {
    for (const wchar_t* typed : {L"_.LIST", L"'LIST", L".list", L"'_.List"}) {
        const HostRun run(L"", std::wstring(typed) + L"\nQUIT\n");

        EXPECT_EQ(run.Shown(typed), L"Drawing in front: Drawing1.dwg")
            << testing::PrintToString(typed);
    }
}

TEST(Console, OwnCommandsGoWithAnUnderscoreAndInAnyCase) {
    const HostRun run(L"", L"_new\n_Quit\n(princ \"not reached\")\n");

    EXPECT_THAT(run.Output(), EndsWith(L"Command: _Quit\n"));
}

TEST(Console, SwitchToAnUnknownDrawingIsTold) {
    const HostRun run(L"", L"SWITCH other\nQUIT\n");

    EXPECT_TRUE(run.HasLine(L"No drawing other is open."));
}

TEST(Script, IsEchoedSoThatTheTranscriptReadsLikeASession) {
    const TempFolder folder(L"脚本 folder");
    WriteFileBytes(folder / L"a b.scr", "(+ 1 2)\r\n(princ \"\\nend\")");

    const HostRun run(L"--script \"" + (folder / L"a b.scr") + L"\"", L"(princ 'unread)\n");

    EXPECT_EQ(run.Output(),
              L"Command: (+ 1 2)\n3\nCommand: (princ \"\\nend\")\n\nend\n\"\\nend\"\n"
              L"Command: \n");
}

TEST(Script, SeveralAreReadInTurnAndThePromptBehindThem) {
    const TempFolder folder;
    WriteFileBytes(folder / L"1.scr", "(setq a 1)\n");
    WriteFileBytes(folder / L"2.scr", "(setq a (1+ a))\n");

    const HostRun run(L"--prompt --script \"" + (folder / L"1.scr") + L"\" --script \"" +
                          (folder / L"2.scr") + L"\"",
                      L"(* a 10)\n");

    EXPECT_TRUE(run.HasLine(L"20"));
}

TEST(Script, GoesOnAfterALineThatFails) {
    const HostRun run(L"", L"(car 5)\nunknown\nOPEN C:\\nothing\n(+ 1 1)\n");

    EXPECT_TRUE(run.HasLine(L"2"));
    EXPECT_EQ(run.Code(), ExitCode::Success);
}

TEST(Script, StopsAtALineThatFailsWhenToldSo) {
    for (const wchar_t* line : {L"(car 5)", L"unknown", L"OPEN C:\\nothing"}) {
        const HostRun run(L"--stop-on-error", std::wstring(line) + L"\n(princ 'behind)\n");

        EXPECT_EQ(run.Code(), ExitCode::ScriptFailed) << testing::PrintToString(line);
        EXPECT_THAT(run.Output(), Not(HasSubstr(L"behind")));
    }
}

TEST(Encoding, Utf8PassesThroughInAnyCodePage) {
    const std::wstring text = L"\u00e9 中文 \U0001F600 \u0436";

    const HostRun run(L"", L"(princ \"" + text + L"\")\n");

    EXPECT_TRUE(run.HasLine(text));
}

TEST(Encoding, AByteOrderMarkIsNoPartOfTheText) {
    const TempFolder folder;
    WriteFileBytes(folder / L"bom.scr", "\xEF\xBB\xBF(+ 1 2)\n");

    const HostRun run(L"--script \"" + (folder / L"bom.scr") + L"\"");

    EXPECT_TRUE(run.HasLine(L"3"));
}

TEST(Encoding, ChinesePathsPassFromTheCommandLineToLisp) {
    const TempFolder folder(L"图纸 目录");
    WriteFileBytes(folder / L"平面 图.dwg", "");

    const HostRun run(L"--open \"" + (folder / L"平面 图.dwg") + L"\"",
                      L"(princ (strcat (getvar \"DWGPREFIX\") (getvar \"DWGNAME\")))\n");

    EXPECT_TRUE(run.HasLine(folder / L"平面 图.dwg"));
}

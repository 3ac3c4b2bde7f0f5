// Commands: the modules' own by all their names, those of LISP, and LISP's `command`.

#include "host_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;
using testing::Not;

TEST(RunCommand, GoesByEveryNameInAnyCase) {
    struct Row {
        const wchar_t* why;
        const wchar_t* typed;
        const wchar_t* line;
    };
    constexpr Row rows[] = {
        {L"global name", L"RecHello", L"hello from Drawing1.dwg"},
        {L"any case", L"rEChELLO", L"hello from Drawing1.dwg"},
        {L"underscore for the global name", L"_RECHELLO", L"hello from Drawing1.dwg"},
        {L"underscore and point", L"_.rechello", L"hello from Drawing1.dwg"},
        {L"local name in Chinese", L"招呼", L"hello from Drawing1.dwg"},
        {L"transparent", L"'rechello", L"hello from Drawing1.dwg"},
        {L"local name that begins with an underscore", L"_recqueue", L"command done"},
        {L"its global name", L"RECQUEUE", L"command done"},
        {L"blanks around it", L"  RecHello  ", L"hello from Drawing1.dwg"},
        {L"a LISP function C:", L"reclisp", L"[C:RecLisp Drawing1.dwg]"},
    };
    for (const Row& row : rows) {
        const HostRun run(LoadOption(L"recorder"), std::wstring(row.typed) + L"\nQUIT\n");

        EXPECT_TRUE(run.HasLine(row.line)) << testing::PrintToString(row.why);
    }
}

TEST(RunCommand, SeveralOnALineAreRunInTurn) {
    const HostRun run(LoadOption(L"recorder"), L"RecHello RecSession\nQUIT\n");

    EXPECT_THAT(run.Output(),
                HasSubstr(L"\nhello from Drawing1.dwg\nsession command in Drawing1.dwg\n"));
}

TEST(RunCommand, WithoutADrawingOnlySessionCommandsRun) {
    const HostRun run(LoadOption(L"recorder"), L"CLOSE\nRecHello\nRecSession\nQUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"Command: RecHello\nNo drawing is open.\n"));
    EXPECT_TRUE(run.HasLine(L"session command in -"));
}

TEST(RunCommand, DefunedInLisp) {
    const HostRun run(L"", L"(defun c:hello () (princ \"\\n你好\") 5)\nHELLO\nQUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"Command: HELLO\n\n你好\nCommand: QUIT"));
}

TEST(RunCommand, ALispCommandsErrorIsShown) {
    const HostRun run(L"--stop-on-error", L"(defun c:bad () (car 5))\nbad\nQUIT\n");

    EXPECT_TRUE(run.HasLine(L"; error: bad argument type: consp 5"));
    EXPECT_EQ(run.Code(), drafthost::ExitCode::ScriptFailed);
}

TEST(RunCommand, OfUnknownNameIsTold) {
    const HostRun run(L"", L"nothing\nQUIT\n");

    EXPECT_TRUE(run.HasLine(L"Unknown command \"nothing\". HELP lists the commands."));
}

TEST(RunCommand, OfMarksAloneIsUnknown) {
    const HostRun run(LoadOption(L"recorder"), L"_.\nQUIT\n");

    EXPECT_TRUE(run.HasLine(L"Unknown command \"_.\". HELP lists the commands."));
}

TEST(LispCommand, RunsCommandsInTurnAndDropsAnswers) {
    const HostRun run(LoadOption(L"recorder"),
                      L"(command \"_RECHELLO\" \"\" 5 \"recsession\")\nQUIT\n");

    EXPECT_THAT(run.Output(),
                HasSubstr(L"\nhello from Drawing1.dwg\nsession command in Drawing1.dwg\n"));
}

TEST(LispCommand, OfUnknownNameEndsTheSeries) {
    const HostRun run(LoadOption(L"recorder"), L"(command \"line\" \"rechello\")\nQUIT\n");

    EXPECT_TRUE(run.HasLine(L"Unknown command \"line\"."));
    EXPECT_THAT(run.Output(), Not(HasSubstr(L"hello from")));
}

TEST(LispCommand, WithoutArgumentsDoesNothing) {
    const HostRun run(LoadOption(L"recorder"), L"(command)\nQUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"Command: (command)\nnil\nCommand: QUIT"));
}

// LISP and modules: calls of a module's functions, values that pass, queued expressions.

#include "host_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

TEST(LispCall, ArgumentsPassToAModuleAndBack) {
    struct Row {
        const wchar_t* why;
        const wchar_t* list;  ///< as a call's arguments, and as the value that comes back
    };
    constexpr Row rows[] = {
        {L"integers of 16 and 32 bits", L"1 -2 32767 32768 -32769 2147483647"},
        {L"reals", L"1.5 -0.25"},
        {L"text, also in Chinese and empty", L"\"a b\" \"中文\" \"\""},
        {L"true and false", L"T nil"},
        {L"lists within lists", L"(1 (2 \"x\") (nil)) 3"},
        {L"dotted pairs", L"(1 . 2) (\"a\" 5 . T)"},
        {L"points of two and three reals", L"(1.5 2.5) (1.5 2.5 3.5)"},
        {L"four reals are a list", L"(1.5 2.5 3.5 4.5)"},
    };
    const auto expression = [](const Row& row) {
        return std::wstring(L"(apply 'rec-arguments '(") + row.list + L"))";
    };
    std::wstring input;
    for (const Row& row : rows)
        input += expression(row) + L"\n";

    const HostRun run(LoadOption(L"recorder"), input + L"QUIT\n");

    for (const Row& row : rows) {
        EXPECT_EQ(run.Shown(expression(row)), L"(" + std::wstring(row.list) + L")")
            << testing::PrintToString(row.why);
    }
}

TEST(LispCall, GivesWhatTheModuleAnswers) {
    struct Row {
        const wchar_t* why;
        const wchar_t* expression;
        const wchar_t* shown;
    };
    constexpr Row rows[] = {
        {L"without arguments the module gets none", L"(rec-arguments)", L"nil"},
        {L"no result yields nil", L"(list (rec-nothing))", L"(nil)"},
        {L"a void result shows nothing", L"(rec-void)", L""},
        {L"a direct function is called itself, with its code", L"(rec-direct)", L"1"},
        {L"kRetError is an error", L"(rec-failure)", L"; error: ADS request error"},
        {L"so is a direct function's RSERR", L"(rec-direct-failure)",
         L"; error: ADS request error"},
        {L"a symbol can't pass", L"(rec-arguments 'symbol)", L"; error: bad argument type: SYMBOL"},
        {L"nor can a very deep list",
         L"(progn (repeat 600 (setq deep (list deep))) (rec-arguments deep))",
         L"; error: list nested too deep for a module"},
        {L"what a function queues waits for the expression's end", L"(rec-queue)",
         L"\"function done\"\n\nqueued by a function"},
        {L"what a command queues waits for its end", L"RecQueue",
         L"\ncommand done\nqueued by a command"},
    };
    std::wstring input;
    for (const Row& row : rows)
        input += std::wstring(row.expression) + L"\n";

    const HostRun run(LoadOption(L"recorder"), input + L"QUIT\n");

    for (const Row& row : rows) {
        EXPECT_EQ(run.Shown(row.expression), row.shown) << testing::PrintToString(row.why);
    }
}

TEST(LispCall, AFunctionIsDefinedInEachDrawing) {
    const HostRun run(LoadOption(L"recorder"), L"NEW\n(rec-direct)\nCLOSE\n(rec-direct)\nQUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"Command: (rec-direct)\n1\nCommand: CLOSE\n"));
    EXPECT_THAT(run.Output(), HasSubstr(L"Command: (rec-direct)\n1\nCommand: QUIT\n"));
}

TEST(LispCall, DrawingsHaveSymbolsOfTheirOwn) {
    const HostRun run(L"", L"(setq a 1)\nNEW\n!a\nSWITCH Drawing1\n!a\nQUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"Command: NEW\nCommand: !a\nnil\n"));
    EXPECT_THAT(run.Output(), HasSubstr(L"Command: SWITCH Drawing1\nCommand: !a\n1\n"));
}

TEST(LispCall, ARedefinedFunctionStaysLispsOwnWhenTheDrawingCloses) {
    const HostRun run(LoadOption(L"recorder") + L" --strict",
                      L"(defun rec-void () 5)\n(rec-void)\nCLOSE\nQUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"Command: (rec-void)\n5\n"));
    EXPECT_EQ(run.Code(), drafthost::ExitCode::Success);
}

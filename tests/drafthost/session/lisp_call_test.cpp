// LISP and modules: calls of a module's functions, values that pass, queued expressions.

#include "host_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

namespace {

/// What the prompt shows for the expression with the recorder loaded.
std::wstring ValueOf(const std::wstring& expression) {
    const HostRun run(LoadOption(L"recorder"), expression + L"\nQUIT\n");
    const std::wstring echo = L"Command: " + expression + L"\n";
    const std::size_t start = run.Output().find(echo) + echo.size();
    return run.Output().substr(start, run.Output().find(L"\nCommand: ", start) - start);
}

}  // namespace

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
    std::wstring input;
    for (const Row& row : rows) {
        input += std::wstring(L"(equal (apply 'rec-arguments '(") + row.list + L")) '(" + row.list +
                 L"))\n";
    }

    const HostRun run(LoadOption(L"recorder"), input + L"QUIT\n");

    std::size_t start = 0;
    for (const Row& row : rows) {
        const std::wstring echo = std::wstring(L") '(") + row.list + L"))\n";
        start = run.Output().find(echo, start) + echo.size();
        EXPECT_EQ(run.Output().substr(start, 2), L"T\n") << testing::PrintToString(row.why);
    }
}

TEST(LispCall, WithoutArgumentsTheModuleGetsNone) {
    EXPECT_EQ(ValueOf(L"(rec-arguments)"), L"nil");
}

TEST(LispCall, AFunctionThatGivesNoResultYieldsNil) {
    EXPECT_EQ(ValueOf(L"(list (rec-nothing))"), L"(nil)");
}

TEST(LispCall, AVoidResultShowsNothingAtThePrompt) {
    const HostRun run(LoadOption(L"recorder"), L"(rec-void)\nQUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"Command: (rec-void)\nCommand: QUIT\n"));
}

TEST(LispCall, ADirectFunctionIsCalledInsteadOfTheMessage) {
    EXPECT_EQ(ValueOf(L"(rec-direct)"), L"1") << "the function code";
}

TEST(LispCall, FailureOfAModuleIsALispError) {
    EXPECT_EQ(ValueOf(L"(rec-failure)"), L"; error: ADS request error");
    EXPECT_EQ(ValueOf(L"(rec-direct-failure)"), L"; error: ADS request error");
}

TEST(LispCall, AValueThatCantPassIsALispError) {
    EXPECT_EQ(ValueOf(L"(rec-arguments 'symbol)"), L"; error: bad argument type: SYMBOL");
}

TEST(LispCall, AListNestedTooDeepIsALispError) {
    EXPECT_EQ(ValueOf(L"(progn (repeat 600 (setq deep (list deep))) (rec-arguments deep))"),
              L"; error: list nested too deep for a module");
}

TEST(LispCall, ExpressionsQueuedByAFunctionWaitForTheEndOfTheExpression) {
    EXPECT_EQ(ValueOf(L"(rec-queue)"), L"\"function done\"\n\nqueued by a function");
}

TEST(LispCall, ExpressionsQueuedByACommandWaitForItsEnd) {
    EXPECT_EQ(ValueOf(L"RecQueue"), L"\ncommand done\nqueued by a command");
}

TEST(LispCall, AFunctionIsDefinedInEachDrawing) {
    const HostRun run(LoadOption(L"recorder"), L"NEW\n(rec-direct)\nCLOSE\n(rec-direct)\nQUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"Command: (rec-direct)\n1\nCommand: CLOSE\n"));
    EXPECT_THAT(run.Output(), HasSubstr(L"Command: (rec-direct)\n1\nCommand: QUIT\n"));
}

TEST(LispCall, DrawingsHaveSymbolsOfTheirOwn) {
    const HostRun run(L"", L"(setq a 1)\nNEW\n!a\nSWITCH Drawing1\n!a\nQUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"Command: !a\nnil\n"));
}

TEST(LispCall, ARedefinedFunctionStaysLispsOwnWhenTheDrawingCloses) {
    const HostRun run(LoadOption(L"recorder") + L" --strict",
                      L"(defun rec-void () 5)\n(rec-void)\nCLOSE\nQUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"Command: (rec-void)\n5\n"));
    EXPECT_EQ(run.Code(), drafthost::ExitCode::Success);
}

// Commands: the modules' own by all their names, those of LISP, and LISP's `command`.

#include "host_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

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
    std::wstring input;
    for (const Row& row : rows)
        input += std::wstring(row.typed) + L"\n";

    const HostRun run(LoadOption(L"recorder"), input + L"QUIT\n");

    for (const Row& row : rows) {
        EXPECT_EQ(run.Shown(row.typed).find(std::wstring(L"\n") + row.line), 0u)
            << testing::PrintToString(row.why);
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
    const HostRun run(L"", L"(defun c:hello () (princ \"\\n你好\") (princ))\nHELLO\nQUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"Command: HELLO\n\n你好\nCommand: QUIT"));
}

TEST(RunCommand, ALispCommandsValueIsShown) {
    const HostRun run(L"", L"(defun c:val () 42)\n(defun c:none () nil)\nVAL\nNONE\nQUIT\n");

    EXPECT_EQ(run.Shown(L"VAL"), L"42");
    EXPECT_EQ(run.Shown(L"NONE"), L"nil");
}

TEST(RunCommand, ALispCommandsErrorIsShown) {
    const HostRun run(L"--stop-on-error", L"(defun c:bad () (car 5))\nbad\nQUIT\n");

    EXPECT_TRUE(run.HasLine(L"; error: bad argument type: consp 5"));
    EXPECT_EQ(run.Code(), drafthost::ExitCode::ScriptFailed);
}

TEST(RunCommand, OfUnknownNameIsTold) {
    const HostRun run(LoadOption(L"recorder"), L"nothing\n_.\nQUIT\n");

    EXPECT_EQ(run.Shown(L"nothing"), L"Unknown command \"nothing\". HELP lists the commands.");
    EXPECT_EQ(run.Shown(L"_."), L"Unknown command \"_.\". HELP lists the commands.");
}

TEST(LispCommand, RunsCommandsInTurn) {
    constexpr const wchar_t* series = L"(command \"_RECHELLO\" \"\" 5 \"recsession\")";
    constexpr const wchar_t* broken = L"(command \"line\" \"rechello\")";

    const HostRun run(LoadOption(L"recorder"),
                      std::wstring(series) + L"\n" + broken + L"\n(command)\nQUIT\n");

    EXPECT_EQ(run.Shown(series), L"\nhello from Drawing1.dwg\nsession command in Drawing1.dwg\nnil")
        << "answers to questions are dropped";
    EXPECT_EQ(run.Shown(broken), L"Unknown command \"line\".\nnil") << "ends the series";
    EXPECT_EQ(run.Shown(L"(command)"), L"nil");
}

TEST(LispCommand, NilCancelsAsEscDoes) {
    constexpr const wchar_t* cancelled = L"(command \"rechello\" nil \"recsession\" nil)";

    const HostRun run(LoadOption(L"recorder"),
                      std::wstring(cancelled) + L"\n(command nil)\nQUIT\n");

    EXPECT_EQ(run.Shown(cancelled),
              L"\nhello from Drawing1.dwg\nsession command in Drawing1.dwg\nnil")
        << "no command waits for an answer, so there is nothing to cancel";
    EXPECT_EQ(run.Shown(L"(command nil)"), L"nil");
}

TEST(LispModules, AreLoadedAndUnloadedByLisp) {
    std::wstring path = ModulePath(L"recorder");
    for (std::size_t at = 0; (at = path.find(L'\\', at)) != std::wstring::npos; ++at)
        path[at] = L'/';
    const std::wstring load = L"(= (arxload \"" + path + L"\") \"" + path + L"\")";

    const HostRun run(L"", load +
                               L"\n(arx)\nRecHello\n(arxunload \"recorder\")\n(null (arx))\n"
                               L"(arxunload \"recorder\" 'gone)\nQUIT\n");

    EXPECT_THAT(run.Shown(load), HasSubstr(L"\nT\n"));
    EXPECT_EQ(run.Shown(L"(arx)"), L"(\"recorder.arx\")");
    EXPECT_TRUE(run.HasLine(L"hello from Drawing1.dwg"));
    EXPECT_EQ(run.Shown(L"(null (arx))"), L"T");
    EXPECT_EQ(run.Shown(L"(arxunload \"recorder\" 'gone)"), L"No module recorder is loaded.\nGONE");
}

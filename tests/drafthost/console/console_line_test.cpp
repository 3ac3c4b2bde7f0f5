#include "app/console_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using drafthost::KindOfLine;
using drafthost::LineKind;
using drafthost::SplitCommandLine;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(KindOfLine, IsToldByTheBeginning) {
    struct Row {
        const wchar_t* why;
        const wchar_t* line;
        LineKind kind;
    };
    constexpr Row rows[] = {
        {L"nothing", L"", LineKind::Empty},
        {L"blanks", L" \t ", LineKind::Empty},
        {L"a remark", L"  ; remark", LineKind::Empty},
        {L"a list", L"(+ 1 2)", LineKind::Lisp},
        {L"a list behind blanks", L"  (", LineKind::Lisp},
        {L"a quoted list", L"'(1 2)", LineKind::Lisp},
        {L"a transparent command", L"'LINE", LineKind::Command},
        {L"a symbol's value", L"!a", LineKind::Value},
        {L"a word", L"LINE", LineKind::Command},
        {L"a word with a list behind it", L"LINE (1 2)", LineKind::Command},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(KindOfLine(row.line), row.kind) << testing::PrintToString(row.why);
    }
}

TEST(SplitCommandLine, PartsTheWordFromTheRest) {
    const auto split = SplitCommandLine(L"  open \t C:\\a b.dwg  ");

    EXPECT_EQ(split.word, L"OPEN");
    EXPECT_EQ(split.rest, L"C:\\a b.dwg");
    EXPECT_EQ(SplitCommandLine(L"quit").rest, L"");
    EXPECT_EQ(SplitCommandLine(L"").word, L"");
}

TEST(Words, StandBetweenBlanks) {
    EXPECT_THAT(drafthost::Words(L" a  b\tc "), ElementsAre(L"a", L"b", L"c"));
    EXPECT_THAT(drafthost::Words(L"  "), IsEmpty());
}

TEST(Unquoted, TakesOffOnePairOfMarks) {
    EXPECT_EQ(drafthost::Unquoted(L"\"a b\""), L"a b");
    EXPECT_EQ(drafthost::Unquoted(L"\"a"), L"\"a");
    EXPECT_EQ(drafthost::Unquoted(L"\""), L"\"");
    EXPECT_EQ(drafthost::Unquoted(L"a"), L"a");
}

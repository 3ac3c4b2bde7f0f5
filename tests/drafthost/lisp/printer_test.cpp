#include "runtime/lisp/printer.h"

#include "drafthost/lisp/test_host.h"

#include <gtest/gtest.h>

#include <limits>

using namespace drafthost;

TEST(LispPrin1, WritesRealsWithSixDigitsAndAPoint) {
    struct Row {
        const char* why;
        double real;
        const wchar_t* text;
    };
    const Row rows[] = {
        {"whole", 1.0, L"1.0"},
        {"third", 1.0 / 3.0, L"0.333333"},
        {"negative", -2.5, L"-2.5"},
        {"zero", 0.0, L"0.0"},
        {"rounded to a whole number", 123456.7, L"123457.0"},
        {"largest without an exponent", 999999.0, L"999999.0"},
        {"first with an exponent", 1000000.0, L"1.0e+06"},
        {"exponent of two digits", 1e10, L"1.0e+10"},
        {"digits and exponent", 1.23456789e10, L"1.23457e+10"},
        {"exponent of three digits", 1e100, L"1.0e+100"},
        {"small", 0.0001, L"0.0001"},
        {"first small one with an exponent", 0.00001, L"1.0e-05"},
        {"infinite", std::numeric_limits<double>::infinity(), L"1.#INF"},
        {"infinite below", -std::numeric_limits<double>::infinity(), L"-1.#INF"},
        {"no number", std::numeric_limits<double>::quiet_NaN(), L"1.#QNAN"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(LispPrin1(LispValue::Real(row.real)), row.text) << row.why;
    }
}

TEST(LispPrin1, QuotesStringsAndEscapesWhatNeedsIt) {
    struct Row {
        const char* why;
        const wchar_t* text;
        const wchar_t* quoted;
    };
    const Row rows[] = {
        {"plain", L"abc", L"\"abc\""},
        {"quote", L"a\"b", L"\"a\\\"b\""},
        {"backslash", L"C:\\dir", L"\"C:\\\\dir\""},
        {"control characters with letters", L"\n\r\t\x1b", L"\"\\n\\r\\t\\e\""},
        {"other control characters", L"\x01\x1f", L"\"\\001\\037\""},
        {"Chinese as it is", L"图纸", L"\"图纸\""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(LispPrin1(LispValue::String(row.text)), row.quoted) << row.why;
        EXPECT_EQ(LispPrinc(LispValue::String(row.text)), row.text) << row.why;
    }
}

TEST(LispPrinc, LeavesQuotesOutInListsToo) {
    const LispValue list = LispValue::List({LispValue::String(L"a b"), LispValue::Integer(1)},
                                           LispValue::String(L"c"));

    EXPECT_EQ(LispPrinc(list), L"(a b 1 . c)");
    EXPECT_EQ(LispPrin1(list), L"(\"a b\" 1 . \"c\")");
}

TEST(LispPrin1, WritesFunctionsWithKindAddressAndName) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.DefineExternal(L"GetPath", {1, 2});
    struct Row {
        const wchar_t* expression;
        const wchar_t* start;
        const wchar_t* end;
    };
    const Row rows[] = {
        {L"car", L"#<SUBR @", L" CAR>"},
        {L"(defun foo ()) foo", L"#<USUBR @", L" FOO>"},
        {L"(lambda ())", L"#<USUBR @", L" -lambda->"},
        {L"getpath", L"#<EXRXSUBR @", L" GETPATH>"},
    };
    for (const Row& row : rows) {
        const std::wstring shown = Shown(interpreter, row.expression);
        EXPECT_EQ(shown.find(row.start), 0u) << testing::PrintToString(shown);
        EXPECT_EQ(shown.substr(shown.find_last_of(L' ')), row.end);
        EXPECT_EQ(shown.find_first_of(L' ', shown.find(L'@')) - shown.find(L'@'), 17u);
    }
}

TEST(LispPrin1, WritesNothingForTheSymbolWithoutAName) {
    TestHost host;
    LispInterpreter interpreter(host);

    EXPECT_EQ(Shown(interpreter, L"(princ)"), L"");
    EXPECT_EQ(Shown(interpreter, L"(type (princ))"), L"SYM");
}

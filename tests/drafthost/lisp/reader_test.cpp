#include "drafthost/lisp/test_host.h"

#include <gtest/gtest.h>

using namespace drafthost;

TEST(LispReader, ReadsAtoms) {
    ExpectShown({
        {"integer", L"42", L"42"},
        {"sign", L"-7", L"-7"},
        {"plus sign", L"+7", L"7"},
        {"largest integer", L"2147483647", L"2147483647"},
        {"smallest integer", L"-2147483648", L"-2147483648"},
        {"beyond 32 bits becomes a real", L"2147483648", L"2.14748e+09"},
        {"real", L"1.5", L"1.5"},
        {"no digit behind the point", L"5.", L"5.0"},
        {"exponent", L"1e5", L"100000.0"},
        {"exponent with a sign", L"25E-1", L"2.5"},
        {"too large for a real", L"1e999", L"1.#INF"},
        {"too small for a real", L"-1e-999", L"-0.0"},
        {"an exponent without digits is a symbol", L"'1e", L"1E"},
        {"a sign alone is a symbol", L"'-", L"-"},
        {"digits and a sign are a symbol", L"'1+", L"1+"},
        {"two points are a symbol", L"'1.2.3", L"1.2.3"},
        {"symbols are upper case", L"'aBc", L"ABC"},
        {"Chinese symbol", L"(setq 长度 3) 长度", L"3"},
        {"colon and star", L"'c:*x*", L"C:*X*"},
        {"nil in any case", L"NiL", L"nil"},
        {"T in any case", L"t", L"T"},
        {"pi", L"pi", L"3.14159"},
        {"symbol without a value", L"unheard-of", L"nil"},
    });
}

TEST(LispReader, ReadsStrings) {
    ExpectShown({
        {"plain", L"\"abc\"", L"\"abc\""},
        {"empty", L"\"\"", L"\"\""},
        {"quote and backslash", LR"((strlen "\"\\"))", L"2"},
        {"line end, return, tab, escape", LR"((vl-string->list "\n\r\t\e"))", L"(10 13 9 27)"},
        {"octal", LR"((vl-string->list "\101\012"))", L"(65 10)"},
        {"two digits are no octal escape", LR"("\12x")", L"\"12x\""},
        {"eight is no octal digit", LR"("\189")", L"\"189\""},
        {"hexadecimal", LR"("\U+4E2D\U+6587")", L"\"中文\""},
        {"hexadecimal with too few digits", LR"("\U+4E2")", L"\"U+4E2\""},
        {"hexadecimal cut by the end", LR"("\U+4")", L"\"U+4\""},
        {"another letter stands for itself", LR"("C:\dir")", L"\"C:dir\""},
        {"Chinese", L"\"图纸\"", L"\"图纸\""},
        {"a line end stays", L"(strlen \"a\nb\")", L"3"},
        {"a semicolon is no comment", L"\"a;b\"", L"\"a;b\""},
        {"a string ends a symbol", L"(list 'a\"b\")", L"(A \"b\")"},
    });
}

TEST(LispReader, ReadsLists) {
    ExpectShown({
        {"list", L"'(1 \"a\" b)", L"(1 \"a\" B)"},
        {"nested", L"'((1) (2 (3)))", L"((1) (2 (3)))"},
        {"empty list is nil", L"'()", L"nil"},
        {"dotted pair", L"'(1 . 2)", L"(1 . 2)"},
        {"dotted list", L"'(1 2 . 3)", L"(1 2 . 3)"},
        {"a list behind the dot goes on", L"'(1 . (2 3))", L"(1 2 3)"},
        {"nil behind the dot", L"'(1 . nil)", L"(1)"},
        {"no blanks around parentheses", L"'(a(b)c)", L"(A (B) C)"},
        {"quotation in a list", L"'(a 'b)", L"(A (QUOTE B))"},
        {"quotation twice", L"''a", L"(QUOTE A)"},
        {"blank behind the quotation mark", L"' a", L"A"},
        {"quotation behind the dot", L"'(a . 'b)", L"(A QUOTE B)"},
        {"full-width blank separates",
         L"(list 1\x3000"
         L"2)",
         L"(1 2)"},
    });
}

TEST(LispReader, SkipsComments) {
    ExpectShown({
        {"to the end of the line", L"1 ; 2", L"1"},
        {"line end behind it", L"; one\n2", L"2"},
        {"return and line end", L"; one\r\n2", L"2"},
        {"ends a symbol", L"'ab;c", L"AB"},
        {"block", L";| 1\n2 |; 3", L"3"},
        {"block within a list", L"(+ 1 ;| 2 |; 3)", L"4"},
        {"a semicolon within a block", L";| ; |; 5", L"5"},
        {"byte order mark",
         L"(+\xFEFF"
         L"1 2)",
         L"3"},
        {"blank that doesn't break",
         L"(+\x00A0"
         L"1 2)",
         L"3"},
        {"only a comment", L"; nothing", L"nil"},
        {"nothing", L"", L"nil"},
    });
}

TEST(LispReader, RefusesWhatCannotBeRead) {
    ExpectShown({
        {"list not closed", L"(+ 1", L"; error: malformed list on input"},
        {"nothing to quote", L"'", L"; error: malformed list on input"},
        {"nothing to quote in a list", L"(')", L"; error: malformed list on input"},
        {"nothing to quote in a list that goes on", L"'((a ')))",
         L"; error: malformed list on input"},
        {"string not closed", L"\"abc", L"; error: malformed string on input"},
        {"string ends within an escape", L"\"abc\\", L"; error: malformed string on input"},
        {"comment not closed", L"1 ;| 2", L"; error: malformed comment on input"},
        {"parenthesis too many", L"(+ 1 2))", L"; error: extra right paren on input"},
        {"dot ahead of all", L"'(. 1)", L"; error: misplaced dot on input"},
        {"dot at the end", L"'(1 .)", L"; error: misplaced dot on input"},
        {"two dots", L"'(1 . . 2)", L"; error: misplaced dot on input"},
        {"dot outside a list", L".", L"; error: misplaced dot on input"},
        {"dot behind a quotation mark", L"'(1 '. 2)", L"; error: misplaced dot on input"},
        {"number that begins with a point", L".5", L"; error: misplaced dot on input"},
        {"two behind the dot", L"'(1 . 2 3)", L"; error: extra cdrs in dotted pair on input"},
    });
}

TEST(LispReader, EvaluatesWhatStandsAheadOfAnError) {
    TestHost host;
    LispInterpreter interpreter(host);

    EXPECT_EQ(Shown(interpreter, L"(setq a 1) )"), L"; error: extra right paren on input");
    EXPECT_EQ(Shown(interpreter, L"a"), L"1");
}

TEST(LispReader, BearsParenthesesOfAnyDepth) {
    TestHost host;
    LispInterpreter interpreter(host);
    const std::wstring deep = L"'" + std::wstring(200000, L'(') + L"1" + std::wstring(200000, L')');

    EXPECT_EQ(Shown(interpreter, deep), deep.substr(1));
    EXPECT_EQ(Shown(interpreter, std::wstring(200000, L'(')), L"; error: malformed list on input");
}

TEST(IsLispTextUnfinished, TellsTextThatGoesOnFromTextThatIsWrong) {
    struct Row {
        const char* why;
        const wchar_t* text;
        bool unfinished;
    };
    const Row rows[] = {
        {"nothing", L"", false},
        {"complete", L"(+ 1 2)", false},
        {"several", L"1 (a) \"b\"", false},
        {"list", L"(defun f (x)", true},
        {"string", L"(princ \"abc", true},
        {"escape", L"\"a\\", true},
        {"comment", L"1 ;| a", true},
        {"quotation", L"'", true},
        {"line comment", L"1 ; (", false},
        {"parenthesis too many ahead of the end", L") (", false},
        {"misplaced dot ahead of the end", L"(. (", false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(IsLispTextUnfinished(row.text), row.unfinished) << row.why;
    }
}

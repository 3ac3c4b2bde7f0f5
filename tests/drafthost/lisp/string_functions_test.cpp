#include "drafthost/lisp/test_host.h"

#include <gtest/gtest.h>

using namespace drafthost;

TEST(LispStrings, Parts) {
    ExpectShown({
        {"strcat", L"(strcat \"a\" \"\" \"bc\")", L"\"abc\""},
        {"strcat: nothing", L"(strcat)", L"\"\""},
        {"strcat: number", L"(strcat \"a\" 1)", L"; error: bad argument type: stringp 1"},
        {"strcat: nil", L"(strcat nil)", L"; error: bad argument type: stringp nil"},
        {"strcat: Chinese", L"(strcat \"图\" \"纸\")", L"\"图纸\""},
        {"strlen", L"(strlen \"abc\")", L"3"},
        {"strlen: several", L"(strlen \"abc\" \"de\")", L"5"},
        {"strlen: nothing", L"(strlen)", L"0"},
        {"strlen: Chinese counts one each", L"(strlen \"图纸\")", L"2"},
        {"strlen: symbol", L"(strlen 'a)", L"; error: bad argument type: stringp A"},
        {"substr", L"(substr \"abcde\" 2)", L"\"bcde\""},
        {"substr: length", L"(substr \"abcde\" 2 3)", L"\"bcd\""},
        {"substr: length beyond the end", L"(substr \"abc\" 3 9)", L"\"c\""},
        {"substr: no length", L"(substr \"abc\" 2 0)", L"\"\""},
        {"substr: start beyond the end", L"(substr \"abc\" 4)", L"\"\""},
        {"substr: start at zero", L"(substr \"abc\" 0)",
         L"; error: bad argument value: positive: 0"},
        {"substr: negative length", L"(substr \"abc\" 1 -1)",
         L"; error: bad argument value: non-negative: -1"},
        {"substr: real start", L"(substr \"abc\" 1.0)",
         L"; error: bad argument type: fixnump: 1.0"},
    });
}

TEST(LispStrings, LettersAndCodes) {
    ExpectShown({
        {"strcase: upper", L"(strcase \"aBc1\")", L"\"ABC1\""},
        {"strcase: lower", L"(strcase \"aBc\" t)", L"\"abc\""},
        {"strcase: nil is upper", L"(strcase \"a\" nil)", L"\"A\""},
        {"strcase: Chinese stays", L"(strcase \"图a\")", L"\"图A\""},
        {"strcase: beyond ASCII", L"(strcase \"é\")", L"\"É\""},
        {"ascii", L"(ascii \"ABC\")", L"65"},
        {"ascii: empty", L"(ascii \"\")", L"0"},
        {"ascii: Chinese", L"(ascii \"中\")", L"20013"},
        {"chr", L"(chr 65)", L"\"A\""},
        {"chr: zero", L"(chr 0)", L"\"\""},
        {"chr: Chinese", L"(chr 20013)", L"\"中\""},
        {"chr: negative", L"(chr -1)", L"; error: bad argument value: character code: -1"},
        {"chr: too large", L"(chr 65536)", L"; error: bad argument value: character code: 65536"},
        {"string to list", L"(vl-string->list \"A中\")", L"(65 20013)"},
        {"empty string to list", L"(vl-string->list \"\")", L"nil"},
        {"list to string", L"(vl-list->string '(65 20013))", L"\"A中\""},
        {"nil to string", L"(vl-list->string nil)", L"\"\""},
        {"list to string: no code", L"(vl-list->string '(0))",
         L"; error: bad argument value: character code: 0"},
        {"list to string: string", L"(vl-list->string '(\"a\"))",
         L"; error: bad argument type: fixnump: \"a\""},
    });
}

TEST(LispStrings, NumbersAndText) {
    ExpectShown({
        {"itoa", L"(itoa -12)", L"\"-12\""},
        {"itoa: real", L"(itoa 1.5)", L"; error: bad argument type: fixnump: 1.5"},
        {"atoi", L"(atoi \"42\")", L"42"},
        {"atoi: what follows is left", L"(atoi \"12.9mm\")", L"12"},
        {"atoi: blanks ahead", L"(atoi \"  -7\")", L"-7"},
        {"atoi: plus sign", L"(atoi \"+7\")", L"7"},
        {"atoi: no number", L"(atoi \"abc\")", L"0"},
        {"atoi: empty", L"(atoi \"\")", L"0"},
        {"atoi: sign alone", L"(atoi \"-\")", L"0"},
        {"atoi: too large", L"(atoi \"99999999999\")", L"2147483647"},
        {"atoi: too small", L"(atoi \"-99999999999\")", L"-2147483648"},
        {"atof", L"(atof \"97.1\")", L"97.1"},
        {"atof: what follows is left", L"(atof \"2.5mm\")", L"2.5"},
        {"atof: exponent", L"(atof \" 1e3\")", L"1000.0"},
        {"atof: e that is no exponent", L"(atof \"1em\")", L"1.0"},
        {"atof: begins with a point", L"(atof \".5\")", L"0.5"},
        {"atof: no number", L"(atof \"abc\")", L"0.0"},
        {"atof: empty", L"(atof \"\")", L"0.0"},
        {"read", L"(read \"(a . 1) b\")", L"(A . 1)"},
        {"read: empty", L"(read \"\")", L"nil"},
        {"read: nothing", L"(read)", L"nil"},
        {"read: not closed", L"(read \"(a\")", L"; error: malformed list on input"},
        {"prin1 to string", L"(vl-prin1-to-string '(\"a\" b))", L"\"(\\\"a\\\" B)\""},
        {"princ to string", L"(vl-princ-to-string '(\"a\" b 1.0))", L"\"(a B 1.0)\""},
    });
}

TEST(LispStrings, RToS) {
    ExpectShown({
        {"decimal with four digits unless told otherwise", L"(rtos 17.5)", L"\"17.5000\""},
        {"precision", L"(rtos 17.567 2 1)", L"\"17.6\""},
        {"integer", L"(rtos 4 2 2)", L"\"4.00\""},
        {"scientific", L"(rtos 17.5 1 4)", L"\"1.7500E+01\""},
        {"engineering", L"(rtos 17.5 3 2)", L"\"1'-5.50\\\"\""},
        {"architectural", L"(rtos 17.5 4 2)", L"\"1'-5 1/2\\\"\""},
        {"fractional", L"(rtos 17.5 5 2)", L"\"17 1/2\""},
        {"no such mode", L"(rtos 1.0 6 2)", L"; error: bad argument value: mode from 1 to 5: 6"},
        {"no number", L"(rtos nil)", L"; error: bad argument type: numberp: nil"},
    });
}

TEST(LispStrings, RToSTakesModeAndPrecisionFromTheHost) {
    TestHost host;
    LispInterpreter interpreter(host);
    host.variables[L"LUNITS"] = LispValue::Integer(1);
    host.variables[L"LUPREC"] = LispValue::Integer(2);

    EXPECT_EQ(Shown(interpreter, L"(rtos 17.5)"), L"\"1.75E+01\"");

    host.variables[L"LUNITS"] = LispValue::Integer(9);
    EXPECT_EQ(Shown(interpreter, L"(rtos 17.5)"),
              L"; error: bad argument value: mode from 1 to 5: 9");
    host.variables[L"LUNITS"] = LispValue::String(L"no number");
    EXPECT_EQ(Shown(interpreter, L"(rtos 17.5)"), L"\"17.50\"");
}

TEST(LispStrings, RToSLeavesOutTheZerosThatTheHostSays) {
    TestHost host;
    LispInterpreter interpreter(host);
    EXPECT_EQ(Shown(interpreter, L"(rtos 24 4)"), L"\"2'\"") << "as DIMZIN 0";

    host.variables[L"DIMZIN"] = LispValue::Integer(8);

    EXPECT_EQ(Shown(interpreter, L"(rtos 17.5 2 4)"), L"\"17.5\"");
}

TEST(LispStrings, WcMatch) {
    ExpectShown({
        {"matches", L"(wcmatch \"Name\" \"N*\")", L"T"},
        {"doesn't", L"(wcmatch \"Name\" \"???,~*m*\")", L"nil"},
        {"number", L"(wcmatch 1 \"*\")", L"; error: bad argument type: stringp 1"},
        {"pattern is no string", L"(wcmatch \"a\" 'a)", L"; error: bad argument type: stringp A"},
    });
}

TEST(LispStrings, Searching) {
    ExpectShown({
        {"search", L"(vl-string-search \"b\" \"abcb\")", L"1"},
        {"search: from a place", L"(vl-string-search \"b\" \"abcb\" 2)", L"3"},
        {"search: none", L"(vl-string-search \"x\" \"abc\")", L"nil"},
        {"search: place beyond the end", L"(vl-string-search \"a\" \"abc\" 9)", L"nil"},
        {"search: negative place", L"(vl-string-search \"a\" \"abc\" -1)",
         L"; error: bad argument value: non-negative: -1"},
        {"subst: the first one", L"(vl-string-subst \"X\" \"b\" \"abb\")", L"\"aXb\""},
        {"subst: from a place", L"(vl-string-subst \"X\" \"b\" \"abb\" 2)", L"\"abX\""},
        {"subst: none", L"(vl-string-subst \"X\" \"y\" \"abb\")", L"\"abb\""},
        {"position", L"(vl-string-position 98 \"abcb\")", L"1"},
        {"position: from a place", L"(vl-string-position 98 \"abcb\" 2)", L"3"},
        {"position: from the end", L"(vl-string-position 98 \"abcb\" 0 t)", L"3"},
        {"position: none", L"(vl-string-position 120 \"abc\")", L"nil"},
        {"position: none from the end", L"(vl-string-position 120 \"abc\" nil t)", L"nil"},
        {"position: no code", L"(vl-string-position -1 \"abc\")",
         L"; error: bad argument value: character code: -1"},
        {"elt", L"(vl-string-elt \"abc\" 1)", L"98"},
        {"elt: beyond the end", L"(vl-string-elt \"abc\" 3)",
         L"; error: bad argument value: place in the string: 3"},
        {"mismatch", L"(vl-string-mismatch \"abcd\" \"abxd\")", L"2"},
        {"mismatch: one ends", L"(vl-string-mismatch \"ab\" \"abc\")", L"2"},
        {"mismatch: places", L"(vl-string-mismatch \"xab\" \"abc\" 1 0)", L"2"},
        {"mismatch: without case", L"(vl-string-mismatch \"AB\" \"abc\" 0 0 t)", L"2"},
        {"mismatch: with case", L"(vl-string-mismatch \"AB\" \"abc\")", L"0"},
        {"translate", L"(vl-string-translate \"ab\" \"xy\" \"cabba\")", L"\"cxyyx\""},
        {"translate: nothing to put", L"(vl-string-translate \"ab\" \"x\" \"ab\")", L"\"xb\""},
    });
}

TEST(LispStrings, Trimming) {
    ExpectShown({
        {"both ends", L"(vl-string-trim \" \\t\" \"  a b\\t\")", L"\"a b\""},
        {"left", L"(vl-string-left-trim \" \" \"  a \")", L"\"a \""},
        {"right", L"(vl-string-right-trim \" \" \"  a \")", L"\"  a\""},
        {"nothing left", L"(vl-string-trim \"ab\" \"abba\")", L"\"\""},
        {"nothing left from the left", L"(vl-string-left-trim \"a\" \"aa\")", L"\"\""},
        {"nothing left from the right", L"(vl-string-right-trim \"a\" \"aa\")", L"\"\""},
        {"empty", L"(vl-string-right-trim \" \" \"\")", L"\"\""},
    });
}

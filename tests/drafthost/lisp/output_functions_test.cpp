#include "drafthost/lisp/test_host.h"

#include <gtest/gtest.h>

using namespace drafthost;

TEST(LispOutput, PrintsAndGivesItsArgument) {
    struct Row {
        const char* why;
        const wchar_t* expression;
        const wchar_t* printed;
        const wchar_t* shown;
    };
    const Row rows[] = {
        {"princ", L"(princ \"a\\nb\")", L"a\nb", L"\"a\\nb\""},
        {"princ: list", L"(princ '(\"a\" 1.0))", L"(a 1.0)", L"(\"a\" 1.0)"},
        {"princ: to the command line", L"(princ 'a nil)", L"A", L"A"},
        {"princ: Chinese", L"(princ \"图纸\")", L"图纸", L"\"图纸\""},
        {"prin1", L"(prin1 \"a\\nb\")", L"\"a\\nb\"", L"\"a\\nb\""},
        {"print: on a new line with a blank", L"(print \"a\")", L"\n\"a\" ", L"\"a\""},
        {"princ: nothing", L"(princ)", L"", L""},
        {"prin1: nothing", L"(prin1)", L"", L""},
        {"print: nothing", L"(print)", L"", L""},
        {"prompt", L"(prompt \"\\nReady\")", L"\nReady", L"nil"},
        {"prompt: number", L"(prompt 1)", L"", L"; error: bad argument type: stringp 1"},
        {"terpri", L"(terpri)", L"\n", L"nil"},
        {"alert", L"(alert \"Done\")", L"\nDone\n", L"nil"},
        {"write-line", L"(write-line \"a\")", L"a\n", L"\"a\""},
        {"write-line: number", L"(write-line 1)", L"", L"; error: bad argument type: stringp 1"},
        {"princ: no file", L"(princ 1 \"x\")", L"", L"; error: bad argument type: FILE \"x\""},
    };
    for (const Row& row : rows) {
        TestHost host;
        LispInterpreter interpreter(host);

        EXPECT_EQ(Shown(interpreter, row.expression), row.shown) << row.why;
        EXPECT_EQ(host.printed, row.printed) << row.why;
    }
}

TEST(LispInput, AsksTheHost) {
    struct Row {
        const char* why;
        std::deque<std::wstring> answers;
        const wchar_t* expression;
        const wchar_t* printed;
        const wchar_t* shown;
    };
    const Row rows[] = {
        {"getstring: up to a blank", {L"ab cd"}, L"(getstring \"Name: \")", L"Name: ", L"\"ab\""},
        {"getstring: nil too", {L"ab cd"}, L"(getstring nil \"Name: \")", L"Name: ", L"\"ab\""},
        {"getstring: with blanks",
         {L"ab cd"},
         L"(getstring t \"Name: \")",
         L"Name: ",
         L"\"ab cd\""},
        {"getstring: with blanks, no prompt", {L"ab cd"}, L"(getstring t)", L"", L"\"ab cd\""},
        {"getstring: no prompt", {L"图"}, L"(getstring)", L"", L"\"图\""},
        {"getstring: empty", {L""}, L"(getstring)", L"", L"\"\""},
        {"getstring: cancelled", {}, L"(getstring)", L"", L"; error: Function cancelled"},
        {"getstring: cancelled and caught",
         {},
         L"(vl-catch-all-error-message (vl-catch-all-apply 'getstring))",
         L"",
         L"\"Function cancelled\""},
        {"getint", {L" 42 "}, L"(getint \"Count: \")", L"Count: ", L"42"},
        {"getint: asks again",
         {L"x", L"1.5", L"2"},
         L"(getint \"N:\")",
         L"N:Requires an integer value.\nN:Requires an integer value.\nN:",
         L"2"},
        {"getint: empty", {L""}, L"(getint)", L"", L"nil"},
        {"getint: cancelled",
         {L"x"},
         L"(getint)",
         L"Requires an integer value.\n",
         L"; error: Function cancelled"},
        {"getreal", {L"2.5"}, L"(getreal)", L"", L"2.5"},
        {"getreal: whole", {L"3"}, L"(getreal \"R:\")", L"R:", L"3.0"},
        {"getreal: asks again", {L"a", L"1"}, L"(getreal)", L"Requires numeric value.\n", L"1.0"},
        {"getreal: empty", {L"  "}, L"(getreal)", L"", L"nil"},
        {"read-line: the user's line", {L"ab cd"}, L"(read-line)", L"", L"\"ab cd\""},
        {"read-line: no more", {}, L"(read-line)", L"", L"nil"},
        {"prompt is no string",
         {L"1"},
         L"(getint 5)",
         L"",
         L"; error: bad argument type: stringp 5"},
    };
    for (const Row& row : rows) {
        TestHost host;
        host.answers = row.answers;
        LispInterpreter interpreter(host);

        EXPECT_EQ(Shown(interpreter, row.expression), row.shown) << row.why;
        EXPECT_EQ(host.printed, row.printed) << row.why;
    }
}

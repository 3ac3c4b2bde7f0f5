#include "drafthost/lisp/test_host.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

using namespace drafthost;

namespace {

/// An interpreter whose host finds files in a new folder.
class LispEnvironment : public testing::Test {
  protected:
    LispEnvironment() { host.folder = folder.Path() + L"\\"; }

    void Write(const std::wstring& name, const std::string& bytes) {
        WriteFileBytes(folder / name, bytes);
    }

    TempFolder folder{L"支持 lisp"};
    TestHost host;
    LispInterpreter interpreter{host};
};

}  // namespace

TEST_F(LispEnvironment, Settings) {
    host.environment[L"ACAD"] = L"C:\\support;D:\\图";
    host.variables[L"CMDECHO"] = LispValue::Integer(1);
    host.variables[L"READONLY"] = LispValue::String(L"x");
    struct Row {
        const char* why;
        const wchar_t* expression;
        const wchar_t* shown;
    };
    const Row rows[] = {
        {"getenv", L"(getenv \"ACAD\")", L"\"C:\\\\support;D:\\\\图\""},
        {"getenv: unknown", L"(getenv \"NOSUCH\")", L"nil"},
        {"getenv: number", L"(getenv 1)", L"; error: bad argument type: stringp 1"},
        {"setenv: gives the value", L"(setenv \"Mine\" \"v\")", L"\"v\""},
        {"setenv: can be read", L"(getenv \"Mine\")", L"\"v\""},
        {"setenv: refused", L"(setenv \"LOCKED\" \"v\")", L"nil"},
        {"setenv: number", L"(setenv \"Mine\" 1)", L"; error: bad argument type: stringp 1"},
        {"getvar", L"(getvar \"CMDECHO\")", L"1"},
        {"getvar: unknown", L"(getvar \"NOSUCH\")", L"nil"},
        {"setvar", L"(setvar \"CMDECHO\" 0)", L"0"},
        {"setvar: can be read", L"(getvar \"CMDECHO\")", L"0"},
        {"setvar: refused", L"(setvar \"READONLY\" \"y\")",
         L"; error: variable setting rejected: \"READONLY\" \"y\""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Shown(interpreter, row.expression), row.shown) << row.why;
}

TEST_F(LispEnvironment, FindFile) {
    Write(L"样.txt", "");
    const std::wstring found = LispPrin1(LispValue::String(folder / L"样.txt"));

    EXPECT_EQ(Shown(interpreter, L"(findfile \"样.txt\")"), found);
    EXPECT_EQ(Shown(interpreter, L"(findfile \"nosuch.txt\")"), L"nil");
    EXPECT_EQ(Shown(interpreter, L"(findfile \"\")"), L"nil");
    EXPECT_EQ(Shown(interpreter, L"(findfile nil)"), L"; error: bad argument type: stringp nil");
}

TEST_F(LispEnvironment, Command) {
    struct Row {
        const char* why;
        const wchar_t* expression;
        const wchar_t* shown;
        std::vector<std::wstring> commands;
    };
    const Row rows[] = {
        {"arguments are evaluated",
         L"(setq p '(1.0 2.0)) (command \"_LINE\" p 3 0.5 \"\")",
         L"nil",
         {L"(\"_LINE\" (1.0 2.0) 3 0.5 \"\")"}},
        {"nothing cancels", L"(command)", L"nil", {L"nil"}},
        {"pause", L"(command \"MOVE\" pause)", L"nil", {L"(\"MOVE\" \"\\\\\")"}},
        {"command-s", L"(command-s \"REGEN\")", L"nil", {L"(\"REGEN\")"}},
        {"vl-cmdf gives T", L"(vl-cmdf \"REGEN\")", L"T", {L"(\"REGEN\")"}},
        {"a symbol is no argument",
         L"(command \"A\" 'b)",
         L"; error: bad argument type: command argument B",
         {}},
        {"nil is ESC", L"(command nil)", L"nil", {L"(nil)"}},
        {"nil among others", L"(command \"LINE\" nil)", L"nil", {L"(\"LINE\" nil)"}},
    };
    for (const Row& row : rows) {
        host.commands.clear();

        EXPECT_EQ(Shown(interpreter, row.expression), row.shown) << row.why;
        EXPECT_EQ(host.commands, row.commands) << row.why;
    }
}

TEST_F(LispEnvironment, LoadEvaluatesAFile) {
    Write(L"start.lsp", "; comment\r\n(setq loaded 1)\r\n(defun c:go () 'gone)\r\n'last");
    Write(L"sub dir/图.lsp", "(setq where 'here)");
    const std::wstring full = folder / L"sub dir/图.lsp";
    interpreter.SetSymbol(L"full", LispValue::String(full));

    EXPECT_EQ(Shown(interpreter, L"(load \"start.lsp\")"), L"LAST");
    EXPECT_EQ(Shown(interpreter, L"(list loaded (c:go))"), L"(1 GONE)");
    EXPECT_EQ(Shown(interpreter, L"(load full)"), L"HERE");
    EXPECT_EQ(Shown(interpreter, L"(load \"sub dir/图.lsp\")"), L"HERE");
    EXPECT_EQ(Shown(interpreter, L"(load 1)"), L"; error: bad argument type: stringp 1");
}

TEST_F(LispEnvironment, LoadTriesTheExtensionsOfLispFiles) {
    Write(L"app.lsp", "'lsp");
    Write(L"plain", "'plain");
    EXPECT_EQ(Shown(interpreter, L"(load \"app\")"), L"LSP");
    EXPECT_EQ(Shown(interpreter, L"(load \"plain\")"), L"PLAIN");

    Write(L"app.fas", "'fas");
    EXPECT_EQ(Shown(interpreter, L"(load \"app\")"), L"FAS");

    Write(L"app.vlx", "'vlx");
    EXPECT_EQ(Shown(interpreter, L"(load \"app\")"), L"VLX");
    EXPECT_EQ(Shown(interpreter, L"(load \"app.lsp\")"), L"LSP");
}

TEST_F(LispEnvironment, LoadOfAMissingFile) {
    struct Row {
        const char* why;
        const wchar_t* expression;
        const wchar_t* shown;
    };
    const Row rows[] = {
        {"an error", L"(load \"no/such\")", L"; error: LOAD failed: \"no/such\""},
        {"no name", L"(load \"\")", L"; error: LOAD failed: \"\""},
        {"a folder", L"(load \"folder.lsp\")", L"; error: LOAD failed: \"folder.lsp\""},
        {"a value instead", L"(load \"nosuch\" \"not there\")", L"\"not there\""},
        {"nil instead", L"(load \"nosuch\" nil)", L"nil"},
        {"a function instead", L"(defun f () 'called) (load \"nosuch\" 'f)", L"CALLED"},
        {"a lambda instead", L"(load \"nosuch\" '(lambda () 5))", L"5"},
        {"a symbol without a function", L"(load \"nosuch\" 'a)", L"A"},
    };
    Write(L"folder.lsp/x", "");
    for (const Row& row : rows)
        EXPECT_EQ(Shown(interpreter, row.expression), row.shown) << row.why;
}

TEST_F(LispEnvironment, LoadStopsAtAnErrorOfTheFile) {
    Write(L"bad.lsp", "(setq before 1) (car 1) (setq after 1)");
    Write(L"open.lsp", "(setq before 2) (princ");

    EXPECT_EQ(Shown(interpreter, L"(load \"bad.lsp\" \"unused\")"),
              L"; error: bad argument type: consp 1");
    EXPECT_EQ(Shown(interpreter, L"(list before after)"), L"(1 nil)");
    EXPECT_EQ(Shown(interpreter, L"(load \"open.lsp\")"), L"; error: malformed list on input");
    EXPECT_EQ(Shown(interpreter, L"before"), L"2");
}

TEST_F(LispEnvironment, LoadKnowsTheEncodings) {
    struct Row {
        const char* why;
        std::string bytes;
    };
    const Row rows[] = {
        {"UTF-8", "\"\xE4\xB8\xAD\xE6\x96\x87\""},
        {"UTF-8 with its mark", "\xEF\xBB\xBF\"\xE4\xB8\xAD\xE6\x96\x87\""},
        {"the ANSI code page where it is no UTF-8", "\"中文\""},
        {"UTF-16 with its mark", std::string("\xFF\xFE\"\0\x2D\x4E\x87\x65\"\0", 10)},
    };
    for (const Row& row : rows) {
        Write(L"text.lsp", row.bytes);
        EXPECT_EQ(Shown(interpreter, L"(load \"text.lsp\")"), L"\"中文\"") << row.why;
    }
}

TEST_F(LispEnvironment, LoadRefusesCompiledFiles) {
    struct Row {
        const char* why;
        std::string bytes;
    };
    const Row rows[] = {
        {"FAS", "\r\n FAS4-FILE ; Do not change it!\r\n12"},
        {"VLX", "VRTLIB-1\r\n"},
        {"a zero byte", std::string("(princ)\0x", 9)},
    };
    for (const Row& row : rows) {
        Write(L"app.vlx", row.bytes);
        EXPECT_EQ(Shown(interpreter, L"(load \"app\" \"unused\")"),
                  L"; error: LOAD failed: \"app\" is compiled (FAS or VLX); only LISP text can be "
                  L"loaded here")
            << row.why;
    }
}

TEST_F(LispEnvironment, EmptyFileLoads) {
    Write(L"empty.lsp", "");

    EXPECT_EQ(Shown(interpreter, L"(load \"empty.lsp\")"), L"nil");
}

TEST(LispFileNames, Parts) {
    ExpectShown({
        {"base", L"(vl-filename-base \"C:\\\\dir\\\\a.b.lsp\")", L"\"a.b\""},
        {"base: forward slashes", L"(vl-filename-base \"/dir/a\")", L"\"a\""},
        {"directory", L"(vl-filename-directory \"C:\\\\dir\\\\a.lsp\")", L"\"C:\\\\dir\""},
        {"directory: root", L"(vl-filename-directory \"C:\\\\a.lsp\")", L"\"C:\\\\\""},
        {"directory: root without a drive", L"(vl-filename-directory \"/a.lsp\")", L"\"/\""},
        {"directory: drive", L"(vl-filename-directory \"C:a.lsp\")", L"\"C:\""},
        {"directory: none", L"(vl-filename-directory \"a.lsp\")", L"\"\""},
        {"directory: three letters", L"(vl-filename-directory \"ab/c\")", L"\"ab\""},
        {"extension", L"(vl-filename-extension \"a.b.lsp\")", L"\".lsp\""},
        {"extension: none", L"(vl-filename-extension \"dir.d\\\\a\")", L"nil"},
    });
}

TEST(LispEnvironmentFunctions, WhatHasNothingToDoHere) {
    ExpectShown({
        {"extensions", L"(vl-load-com)", L"nil"},
        {"reactors", L"(vl-load-reactors)", L"nil"},
        {"graphics", L"(graphscr)", L"nil"},
        {"text", L"(textscr)", L"nil"},
        {"version", L"(ver)", L"\"drafthost LISP 17.0\""},
    });
}

#include "drafthost/lisp/test_host.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

using namespace drafthost;

namespace {

/// An interpreter whose symbol `file` holds a path in a new folder.
class LispFiles : public testing::Test {
  protected:
    LispFiles() {
        interpreter.SetSymbol(L"file", LispValue::String(path));
        interpreter.SetSymbol(L"folder", LispValue::String(folder.Path()));
    }

    TempFolder folder{L"图 lisp"};
    const std::wstring path = folder / L"数据.txt";
    TestHost host;
    LispInterpreter interpreter{host};
};

}  // namespace

TEST_F(LispFiles, WritesLinesInUtf8WithCrLf) {
    EXPECT_EQ(Shown(interpreter, L"(setq f (open file \"w\")) (write-line \"图纸\" f)"),
              L"\"图纸\"");
    EXPECT_EQ(Shown(interpreter, L"(princ \"a\" f) (prin1 \"b\" f) (print 1.5 f) (close f)"),
              L"nil");

    EXPECT_EQ(ReadFileBytes(path), "\xE5\x9B\xBE\xE7\xBA\xB8\r\na\"b\"\r\n1.5 ");
    EXPECT_EQ(host.printed, L"");
}

TEST_F(LispFiles, AppendsAndReplaces) {
    interpreter.Evaluate(L"(setq f (open file \"w\")) (write-line \"1\" f) (close f)");
    interpreter.Evaluate(L"(setq f (open file \"a\")) (write-line \"2\" f) (close f)");
    EXPECT_EQ(ReadFileBytes(path), "1\r\n2\r\n");

    interpreter.Evaluate(L"(setq f (open file \"w\")) (write-line \"3\" f) (close f)");
    EXPECT_EQ(ReadFileBytes(path), "3\r\n");
}

TEST_F(LispFiles, ReadsLineByLine) {
    struct Row {
        const char* why;
        std::string bytes;
        const wchar_t* lines;
    };
    const Row rows[] = {
        {"CR LF and LF", "a\r\nb\n", L"(\"a\" \"b\" nil nil)"},
        {"no line end at the end", "a\nb", L"(\"a\" \"b\" nil nil)"},
        {"empty lines", "\r\n\nc", L"(\"\" \"\" \"c\" nil)"},
        {"empty file", "", L"(nil nil nil nil)"},
        {"UTF-8 with its mark", "\xEF\xBB\xBF\xE5\x9B\xBE\n", L"(\"图\" nil nil nil)"},
        {"UTF-8 without", "\xE5\x9B\xBE", L"(\"图\" nil nil nil)"},
        {"the ANSI code page where it is no UTF-8", "中文\n", L"(\"中文\" nil nil nil)"},
    };
    for (const Row& row : rows) {
        WriteFileBytes(path, row.bytes);

        EXPECT_EQ(Shown(interpreter,
                        L"(setq f (open file \"r\"))"
                        L"(setq l (list (read-line f) (read-line f) (read-line f) (read-line f)))"
                        L"(close f) l"),
                  row.lines)
            << row.why;
    }
}

TEST_F(LispFiles, ForwardSlashesWork) {
    std::wstring forward = path;
    for (wchar_t& letter : forward) {
        if (letter == L'\\') letter = L'/';
    }
    WriteFileBytes(path, "x");
    interpreter.SetSymbol(L"file", LispValue::String(forward));

    EXPECT_EQ(Shown(interpreter, L"(setq f (open file \"r\")) (read-line f)"), L"\"x\"");
}

TEST_F(LispFiles, RefusesWhatCannotBe) {
    WriteFileBytes(path, "x");
    struct Row {
        const char* why;
        const wchar_t* expression;
        const wchar_t* shown;
    };
    const Row rows[] = {
        {"no such file", L"(open (strcat file \"x\") \"r\")", L"nil"},
        {"a folder", L"(open folder \"w\")", L"nil"},
        {"no such mode", L"(open file \"rw\")", L"; error: bad argument value: file mode: \"rw\""},
        {"closed", L"(setq f (open \"NUL\" \"w\")) (close f) (write-line \"a\" f)",
         L"; error: file is closed: #<file \"NUL\">"},
        {"closed twice", L"(setq f (open file \"r\")) (close f) (close f)", L"nil"},
        {"written while open for reading", L"(setq f (open \"NUL\" \"r\")) (princ 1 f)",
         L"; error: file not open for writing: #<file \"NUL\">"},
        {"read while open for writing", L"(setq f (open \"NUL\" \"w\")) (read-line f)",
         L"; error: file not open for reading: #<file \"NUL\">"},
        {"close of no file", L"(close 1)", L"; error: bad argument type: FILE 1"},
        {"read-line of no file", L"(read-line 1)", L"; error: bad argument type: FILE 1"},
        {"type", L"(type (open file \"r\"))", L"FILE"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Shown(interpreter, row.expression), row.shown) << row.why;
}

TEST_F(LispFiles, AreClosedWithTheirLastValue) {
    interpreter.Evaluate(L"(setq f (open file \"w\")) (write-line \"a\" f)");
    EXPECT_EQ(ReadFileBytes(path), "");

    interpreter.Evaluate(L"(setq f nil)");

    EXPECT_EQ(ReadFileBytes(path), "a\r\n");
}

#include "drafthost/lisp/test_host.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace drafthost;

namespace {

/// An interpreter whose variable `f` is a folder with its slash, for (strcat f "name").
class LispFileSystem : public testing::Test {
  protected:
    LispFileSystem() { interpreter.SetSymbol(L"f", LispValue::String(folder.Path() + L"\\")); }

    std::wstring Shown(const std::wstring& expression) { return ::Shown(interpreter, expression); }

    TempFolder folder{L"文件 system"};
    TestHost host;
    LispInterpreter interpreter{host};
};

}  // namespace

TEST_F(LispFileSystem, SizesAndFolders) {
    WriteFileBytes(folder / L"五.txt", "12345");

    EXPECT_EQ(Shown(L"(vl-file-size (strcat f \"五.txt\"))"), L"5");
    EXPECT_EQ(Shown(L"(vl-file-size (strcat f \"none\"))"), L"nil");
    EXPECT_EQ(Shown(L"(vl-file-size f)"), L"0") << "a folder";
    EXPECT_EQ(Shown(L"(vl-file-directory-p f)"), L"T");
    EXPECT_EQ(Shown(L"(vl-file-directory-p (strcat f \"五.txt\"))"), L"nil");
    EXPECT_EQ(Shown(L"(vl-file-directory-p (strcat f \"none\"))"), L"nil");
}

TEST_F(LispFileSystem, DirectoryFiles) {
    WriteFileBytes(folder / L"a.txt", "");
    WriteFileBytes(folder / L"b.lsp", "");
    WriteFileBytes(folder / L"sub.txt\\inside", "");

    EXPECT_EQ(Shown(L"(acad_strlsort (vl-directory-files f nil 1))"), L"(\"a.txt\" \"b.lsp\")");
    EXPECT_EQ(Shown(L"(acad_strlsort (vl-directory-files f \"*.txt\"))"),
              L"(\"a.txt\" \"sub.txt\")");
    EXPECT_EQ(Shown(L"(vl-directory-files f \"*.txt\" 1)"), L"(\"a.txt\")");
    EXPECT_EQ(Shown(L"(vl-directory-files f \"*.txt\" -1)"), L"(\"sub.txt\")");
    EXPECT_EQ(Shown(L"(acad_strlsort (vl-directory-files f nil -1))"),
              L"(\".\" \"..\" \"sub.txt\")");
    EXPECT_EQ(Shown(L"(vl-directory-files f \"*.none\")"), L"nil");
    EXPECT_EQ(Shown(L"(vl-directory-files (strcat f \"none\"))"), L"nil");
    EXPECT_EQ(Shown(L"(null (vl-directory-files))"), L"nil") << "the working folder";
}

TEST_F(LispFileSystem, MakeDirectory) {
    EXPECT_EQ(Shown(L"(vl-mkdir (strcat f \"new\"))"), L"T");
    EXPECT_EQ(Shown(L"(vl-file-directory-p (strcat f \"new\"))"), L"T");
    EXPECT_EQ(Shown(L"(vl-mkdir (strcat f \"new\"))"), L"nil") << "there already";
    EXPECT_EQ(Shown(L"(vl-mkdir (strcat f \"none\\\\deeper\"))"), L"nil");
}

TEST_F(LispFileSystem, CopyOverwritesNothing) {
    WriteFileBytes(folder / L"a", "123");
    WriteFileBytes(folder / L"b", "4");

    EXPECT_EQ(Shown(L"(vl-file-copy (strcat f \"a\") (strcat f \"new\"))"), L"3");
    EXPECT_EQ(ReadFileBytes(folder / L"new"), "123");
    EXPECT_EQ(Shown(L"(vl-file-copy (strcat f \"a\") (strcat f \"b\"))"), L"nil");
    EXPECT_EQ(ReadFileBytes(folder / L"b"), "4");
    EXPECT_EQ(Shown(L"(vl-file-copy (strcat f \"none\") (strcat f \"c\"))"), L"nil");
    EXPECT_EQ(Shown(L"(vl-file-copy f (strcat f \"c\"))"), L"nil") << "a folder";
}

TEST_F(LispFileSystem, CopyAppendsWhenToldSo) {
    WriteFileBytes(folder / L"a", "123");
    WriteFileBytes(folder / L"b", "4");
    WriteFileBytes(folder / L"empty", "");

    EXPECT_EQ(Shown(L"(vl-file-copy (strcat f \"a\") (strcat f \"b\") t)"), L"3");
    EXPECT_EQ(ReadFileBytes(folder / L"b"), "4123");
    EXPECT_EQ(Shown(L"(vl-file-copy (strcat f \"empty\") (strcat f \"b\") t)"), L"0");
    EXPECT_EQ(ReadFileBytes(folder / L"b"), "4123");
    EXPECT_EQ(Shown(L"(vl-file-copy (strcat f \"a\") (strcat f \"new\") t)"), L"3");
    EXPECT_EQ(ReadFileBytes(folder / L"new"), "123");
}

TEST_F(LispFileSystem, DeleteAndRename) {
    WriteFileBytes(folder / L"a", "1");
    WriteFileBytes(folder / L"b", "2");

    EXPECT_EQ(Shown(L"(vl-file-rename (strcat f \"a\") (strcat f \"b\"))"), L"nil");
    EXPECT_EQ(ReadFileBytes(folder / L"b"), "2") << "it isn't overwritten";
    EXPECT_EQ(Shown(L"(vl-file-rename (strcat f \"a\") (strcat f \"c\"))"), L"T");
    EXPECT_EQ(ReadFileBytes(folder / L"c"), "1");
    EXPECT_EQ(Shown(L"(vl-file-delete (strcat f \"c\"))"), L"T");
    EXPECT_EQ(Shown(L"(vl-file-delete (strcat f \"c\"))"), L"nil");
    EXPECT_EQ(Shown(L"(vl-file-rename (strcat f \"none\") (strcat f \"d\"))"), L"nil");
}

TEST_F(LispFileSystem, TemporaryNamesAreNew) {
    const std::wstring start = LispPrin1(LispValue::String(folder / L"样"));

    const std::wstring first = Shown(L"(setq a (vl-filename-mktemp (strcat f \"样.tmp\")))");
    const std::wstring second = Shown(L"(vl-filename-mktemp \"样\" f \".tmp\")");

    for (const std::wstring& name : {first, second}) {
        EXPECT_THAT(name, testing::StartsWith(start.substr(0, start.size() - 1)));
        EXPECT_THAT(name, testing::EndsWith(L".tmp\""));
    }
    EXPECT_NE(first, second);
    EXPECT_EQ(Shown(L"(vl-file-size a)"), L"nil") << "no file is made";
    EXPECT_EQ(Shown(L"(vl-file-directory-p (vl-filename-directory (vl-filename-mktemp)))"), L"T");
}

TEST_F(LispFileSystem, TemporaryNamesPassFilesThatAreThere) {
    const std::wstring text = Shown(L"(setq a (vl-filename-mktemp \"x\" f))");
    const int number = std::stoi(text.substr(text.size() - 4, 3));
    wchar_t next[16];
    swprintf(next, 16, L"x%03d", number + 1);
    WriteFileBytes(folder / next, "");

    swprintf(next, 16, L"x%03d\"", number + 2);
    EXPECT_THAT(Shown(L"(vl-filename-mktemp \"x\" f)"), testing::EndsWith(next));
}

#include "drafthost/lisp/test_host.h"

#include <gtest/gtest.h>

#include <windows.h>

using namespace drafthost;

namespace {

/// An interpreter whose variable `k` is the path of a registry key that goes with the test.
class LispRegistry : public testing::Test {
  protected:
    LispRegistry()
        : m_path(L"Software\\Drafthost\\Test " + std::to_wstring(GetCurrentProcessId())) {
        interpreter.SetSymbol(L"k", LispValue::String(L"HKEY_CURRENT_USER\\" + m_path));
    }
    ~LispRegistry() override { RegDeleteTreeW(HKEY_CURRENT_USER, m_path.c_str()); }

    std::wstring Shown(const std::wstring& expression) { return ::Shown(interpreter, expression); }

    void Store(const wchar_t* name, DWORD type, const void* data, DWORD size) {
        RegSetKeyValueW(HKEY_CURRENT_USER, m_path.c_str(), name, type, data, size);
    }

    const std::wstring m_path;
    TestHost host;
    LispInterpreter interpreter{host};
};

}  // namespace

TEST_F(LispRegistry, TextsAndNumbersAreWrittenAndRead) {
    EXPECT_EQ(Shown(L"(vl-registry-write k \"text\" \"中 文\")"), L"\"中 文\"");
    EXPECT_EQ(Shown(L"(vl-registry-write k \"number\" -5)"), L"-5");
    EXPECT_EQ(Shown(L"(vl-registry-write k nil \"own\")"), L"\"own\"");
    EXPECT_EQ(Shown(L"(vl-registry-read k \"text\")"), L"\"中 文\"");
    EXPECT_EQ(Shown(L"(vl-registry-read k \"number\")"), L"-5");
    EXPECT_EQ(Shown(L"(vl-registry-read k)"), L"\"own\"");
}

TEST_F(LispRegistry, AKeyAloneCanBeMade) {
    EXPECT_EQ(Shown(L"(vl-registry-write (strcat k \"\\\\sub\"))"), L"\"\"");
    EXPECT_EQ(Shown(L"(vl-registry-read (strcat k \"\\\\sub\"))"), L"\"\"");
}

TEST_F(LispRegistry, WhatIsMissingIsNil) {
    EXPECT_EQ(Shown(L"(vl-registry-read k \"x\")"), L"nil") << "no key";
    EXPECT_EQ(Shown(L"(vl-registry-write k \"a\" 1) (vl-registry-read k \"x\")"), L"nil");
}

TEST_F(LispRegistry, OtherKindsOfValues) {
    Store(L"several", REG_MULTI_SZ, L"a\0b c\0", 7 * sizeof(wchar_t));
    Store(L"expand", REG_EXPAND_SZ, L"%x%", 4 * sizeof(wchar_t));
    Store(L"bytes", REG_BINARY, "abc", 3);

    EXPECT_EQ(Shown(L"(vl-registry-read k \"several\")"), L"(\"a\" \"b c\")");
    EXPECT_EQ(Shown(L"(vl-registry-read k \"expand\")"), L"\"%x%\"");
    EXPECT_EQ(Shown(L"(vl-registry-read k \"bytes\")"), L"nil");
}

TEST_F(LispRegistry, ValuesAndKeysAreDeleted) {
    Shown(L"(vl-registry-write k \"a\" 1) (vl-registry-write (strcat k \"\\\\sub\") \"b\" 2)");

    EXPECT_EQ(Shown(L"(vl-registry-delete k \"a\")"), L"T");
    EXPECT_EQ(Shown(L"(vl-registry-delete k \"a\")"), L"nil") << "gone";
    EXPECT_EQ(Shown(L"(vl-registry-delete k)"), L"nil") << "it has a key of its own";
    EXPECT_EQ(Shown(L"(vl-registry-delete (strcat k \"\\\\sub\"))"), L"T");
    EXPECT_EQ(Shown(L"(vl-registry-delete k)"), L"T");
    EXPECT_EQ(Shown(L"(vl-registry-delete k)"), L"nil") << "gone";
}

TEST_F(LispRegistry, WrongArguments) {
    ExpectShown({
        {"no root", L"(vl-registry-read \"HKEY_NOWHERE\\\\x\")",
         L"; error: bad argument value: registry key: \"HKEY_NOWHERE\\\\x\""},
        {"a root is never deleted", L"(vl-registry-delete \"HKEY_CURRENT_USER\")", L"nil"},
        {"real", L"(vl-registry-write \"HKEY_CURRENT_USER\\\\Software\" \"x\" 1.5)",
         L"; error: bad argument type: stringp 1.5"},
        {"no text", L"(vl-registry-read 5)", L"; error: bad argument type: stringp 5"},
    });
}

#include "http/text_conversion.h"

#include "support/import_hook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <string>
#include <vector>

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using ToWide = decltype(&MultiByteToWideChar);
using ToNarrow = decltype(&WideCharToMultiByte);

ToWide g_toWide = nullptr;
ToNarrow g_toNarrow = nullptr;
std::vector<std::string>* g_calls = nullptr;

std::string Note(const char* direction, UINT codePage, DWORD flags, int length, bool sizing) {
    return direction + (" " + std::to_string(codePage)) + " flags " + std::to_string(flags) +
           " length " + std::to_string(length) + (sizing ? " sizing" : "");
}

int WINAPI NoteToWide(UINT codePage, DWORD flags, LPCCH text, int length, LPWSTR wide, int size) {
    g_calls->push_back(Note("to wide", codePage, flags, length, wide == nullptr && size == 0));
    return g_toWide(codePage, flags, text, length, wide, size);
}

int WINAPI NoteToNarrow(UINT codePage, DWORD flags, LPCWCH wide, int length, LPSTR text, int size,
                        LPCCH defaultCharacter, LPBOOL usedDefault) {
    g_calls->push_back(Note("to narrow", codePage, flags, length, text == nullptr && size == 0));
    if (defaultCharacter != nullptr || usedDefault != nullptr) g_calls->back() += " default";
    return g_toNarrow(codePage, flags, wide, length, text, size, defaultCharacter, usedDefault);
}

int g_failures = 0;

int WINAPI FailToWide(UINT, DWORD, LPCCH, int, LPWSTR, int) {
    ++g_failures;
    return 0;
}

int WINAPI FailToNarrow(UINT, DWORD, LPCWCH, int, LPSTR, int, LPCCH, LPBOOL) {
    return 0;
}

/// Notes down every conversion that the program asks the platform for.
class ConversionCalls {
  public:
    ConversionCalls() {
        g_toWide = m_toWide.Original();
        g_toNarrow = m_toNarrow.Original();
        g_calls = &m_calls;
    }
    const std::vector<std::string>& Get() const { return m_calls; }

  private:
    std::vector<std::string> m_calls;
    ImportHook<ToWide> m_toWide{"KERNEL32.dll", "MultiByteToWideChar", &NoteToWide};
    ImportHook<ToNarrow> m_toNarrow{"KERNEL32.dll", "WideCharToMultiByte", &NoteToNarrow};
};

}  // namespace

TEST(AnsiToWide, TakesTheCodePageOfTheSystem) {
    EXPECT_EQ(AnsiToWide("plain"), L"plain");
    EXPECT_EQ(AnsiToWide("中文路径"), L"中文路径");  // Narrow literals are in code page 936.
    EXPECT_EQ(AnsiToWide("a\0b"s), L"a\0b"s);
}

TEST(AnsiToWide, SizesByTheLengthOfTheText) {
    const ConversionCalls calls;

    AnsiToWide("文");

    EXPECT_THAT(calls.Get(),
                ElementsAre("to wide 0 flags 0 length 2 sizing", "to wide 0 flags 0 length 2"));
}

TEST(AnsiToWide, GivesAnEmptyTextBackWithoutAConversion) {
    const ConversionCalls calls;

    EXPECT_EQ(AnsiToWide(""), L"");

    EXPECT_THAT(calls.Get(), IsEmpty());
}

TEST(AnsiToWide, IsEmptyWhenTheTextCannotBeSized) {
    const ImportHook<ToWide> hook("KERNEL32.dll", "MultiByteToWideChar", &FailToWide);
    g_failures = 0;

    EXPECT_EQ(AnsiToWide("plain"), L"");

    EXPECT_EQ(g_failures, 1);  // The text isn't converted after that.
}

TEST(Utf8ToAnsi, GivesTheCodePageOfTheSystem) {
    struct Row {
        const char* why;
        std::string utf8;
        std::string ansi;
    };
    const Row rows[] = {
        {"empty", "", ""},
        {"plain", "plain\r\n", "plain\r\n"},
        {"Chinese", u8"中文正文", "中文正文"},
        {"letter of another language that 936 has", u8"é", "é"},
        {"letter that 936 lacks", u8"[ก]", "[?]"},
        {"character of two UTF-16 units", u8"[😀]", "[??]"},
        {"byte order mark stays", u8"\uFEFFa", "?a"},
        {"bytes that are no UTF-8",
         "a\x80"
         "b\xFF"
         "c",
         "a?b?c"},
        {"character cut short", "a\xE4\xB8", "a?"},
        {"NUL ends the text", "before\0behind"s, "before"},
        {"NUL alone", "\0"s, ""},
    };

    for (const Row& row : rows) {
        EXPECT_EQ(Utf8ToAnsi(row.utf8), row.ansi) << row.why;
    }
}

TEST(Utf8ToAnsi, LetsThePlatformSizeBothWaysUpToTheNul) {
    const ConversionCalls calls;

    Utf8ToAnsi(u8"文\0文"s);

    EXPECT_THAT(
        calls.Get(),
        ElementsAre("to wide 65001 flags 0 length -1 sizing", "to wide 65001 flags 0 length -1",
                    "to narrow 0 flags 0 length -1 sizing", "to narrow 0 flags 0 length -1"));
}

TEST(Utf8ToAnsi, IsEmptyWhenThePlatformFails) {
    {
        const ImportHook<ToWide> hook("KERNEL32.dll", "MultiByteToWideChar", &FailToWide);
        EXPECT_EQ(Utf8ToAnsi("plain"), "");
    }
    const ImportHook<ToNarrow> hook("KERNEL32.dll", "WideCharToMultiByte", &FailToNarrow);
    EXPECT_EQ(Utf8ToAnsi("plain"), "");
}

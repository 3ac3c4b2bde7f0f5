// The standard input at a console window, which hooks stand in for.

#include "app/line_source.h"

#include "support/import_hook.h"

#include <gtest/gtest.h>

#include <deque>
#include <string>

namespace {

/// What one call of ReadConsoleW gives.
struct Reading {
    std::wstring text;
    DWORD error = ERROR_SUCCESS;
    BOOL succeeds = TRUE;
};

std::deque<Reading>* g_readings = nullptr;

BOOL WINAPI SayConsole(HANDLE, DWORD* mode) {
    *mode = ENABLE_LINE_INPUT;
    return TRUE;
}

BOOL WINAPI GiveNextReading(HANDLE, void* buffer, DWORD, DWORD* count, void*) {
    *count = 0;
    if (g_readings->empty()) return FALSE;
    const Reading reading = g_readings->front();
    g_readings->pop_front();
    reading.text.copy(static_cast<wchar_t*>(buffer), reading.text.size());
    *count = static_cast<DWORD>(reading.text.size());
    SetLastError(reading.error);
    return reading.succeeds;
}

class TypedInput : public testing::Test {
  protected:
    TypedInput() { g_readings = &readings; }
    ~TypedInput() override { g_readings = nullptr; }

    std::deque<Reading> readings;
    ImportHook<decltype(&GetConsoleMode)> m_mode{nullptr, "GetConsoleMode", &SayConsole};
    ImportHook<decltype(&ReadConsoleW)> m_read{nullptr, "ReadConsoleW", &GiveNextReading};
};

}  // namespace

TEST_F(TypedInput, IsShownWhileItIsTyped) {
    EXPECT_TRUE(drafthost::StandardInput().ShowsTyping());
}

TEST_F(TypedInput, ALineComesWithoutItsEnd) {
    readings = {{L"(+ 1 2)\r\n"}, {L"\r\n"}};
    drafthost::StandardInput input;

    EXPECT_EQ(input.NextLine(), L"(+ 1 2)");
    EXPECT_EQ(input.NextLine(), L"");
}

TEST_F(TypedInput, ALongLineComesInPieces) {
    readings = {{std::wstring(256, L'a')}, {L"b\r\n"}};
    drafthost::StandardInput input;

    EXPECT_EQ(input.NextLine(), std::wstring(256, L'a') + L"b");
}

TEST_F(TypedInput, CtrlCIsAnEmptyLineAndNotTheEnd) {
    readings = {{L"", ERROR_OPERATION_ABORTED}, {L"QUIT\r\n"}};
    drafthost::StandardInput input;

    EXPECT_EQ(input.NextLine(), L"");
    EXPECT_EQ(input.NextLine(), L"QUIT");
}

TEST_F(TypedInput, CtrlZIsTheEnd) {
    readings = {{L"\x1A\r\n"}};

    EXPECT_EQ(drafthost::StandardInput().NextLine(), std::nullopt);
}

TEST_F(TypedInput, EndsWithTheConsole) {
    readings = {{L"", ERROR_INVALID_HANDLE, FALSE}};
    EXPECT_EQ(drafthost::StandardInput().NextLine(), std::nullopt) << "it is gone";

    readings = {{L""}};
    EXPECT_EQ(drafthost::StandardInput().NextLine(), std::nullopt) << "it gives nothing more";
}

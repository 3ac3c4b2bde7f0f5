#include "install/registry_text.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace {

struct Row {
    const char* why;
    DWORD type;
    const wchar_t* buffer;
    unsigned long bytes;
    bool accepted;
};

constexpr Row rows[] = {
    {"a plain string with its terminator", REG_SZ, L"ab", 6, true},
    {"an expandable string too", REG_EXPAND_SZ, L"%a", 6, true},
    {"binary data that happens to be text", REG_BINARY, L"ab", 6, false},
    {"a list of strings", REG_MULTI_SZ, L"ab", 6, false},
    {"a number", REG_DWORD, L"ab", 4, false},
    {"no type at all", REG_NONE, L"ab", 6, false},
    {"the last character is none", REG_SZ, L"abc", 4, false},
    {"an odd size, zero or not at its end", REG_SZ, L"ab", 5, false},
    {"an odd size of one", REG_SZ, L"", 1, false},
    {"a terminator alone", REG_SZ, L"", 2, true},
    {"a zero inside is no terminator", REG_SZ, L"a\0b", 6, false},
    {"no bytes of the wrong type", REG_BINARY, L"ab", 0, false},
};

}  // namespace

TEST(AcceptRegistryText, TestsTypeAndShape) {
    for (const Row& row : rows) {
        wchar_t buffer[4] = {};
        memcpy(buffer, row.buffer, row.bytes);
        EXPECT_EQ(AcceptRegistryText(row.type, buffer, row.bytes), row.accepted) << row.why;
    }
}

TEST(AcceptRegistryText, NoBytesAreTheEmptyText) {
    wchar_t buffer[] = L"old";

    EXPECT_TRUE(AcceptRegistryText(REG_SZ, buffer, 0));

    EXPECT_STREQ(buffer, L"");
}

TEST(AcceptRegistryText, ANullBufferPassesWhateverTypeAndSize) {
    EXPECT_TRUE(AcceptRegistryText(REG_SZ, nullptr, 6));
    EXPECT_TRUE(AcceptRegistryText(REG_BINARY, nullptr, 6));
    EXPECT_TRUE(AcceptRegistryText(REG_SZ, nullptr, 5));
    EXPECT_TRUE(AcceptRegistryText(REG_SZ, nullptr, 0));
}

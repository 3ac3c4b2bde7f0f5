#include "runtime/host/crash_text.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::wstring Describe(unsigned long code, std::uintptr_t access = 0, std::uintptr_t address = 0) {
    const std::uintptr_t parameters[] = {access, address};
    wchar_t text[128];
    drafthost::DescribeException(code, 2, parameters, text, 128);
    return text;
}

}  // namespace

TEST(DescribeException, SaysWhatAnAccessViolationTouched) {
    EXPECT_EQ(Describe(0xC0000005, 0, 0x10),
              L"access violation reading 0x0000000000000010 (0xC0000005)");
    EXPECT_EQ(Describe(0xC0000005, 1, 0x10),
              L"access violation writing 0x0000000000000010 (0xC0000005)");
    EXPECT_EQ(Describe(0xC0000005, 8, 0x10),
              L"access violation executing 0x0000000000000010 (0xC0000005)");
}

TEST(DescribeException, NamesTheCommonOnesAndGivesTheCodeOfAll) {
    EXPECT_EQ(Describe(0xC0000094), L"integer division by zero (0xC0000094)");
    EXPECT_EQ(Describe(0xC00000FD), L"stack overflow (0xC00000FD)");
    EXPECT_EQ(Describe(0xC000001D), L"illegal instruction (0xC000001D)");
    EXPECT_EQ(Describe(0x20474343), L"C++ exception (0x20474343)");
    EXPECT_EQ(Describe(0xE1234567), L"exception (0xE1234567)");
}

TEST(DescribeException, CutsTheTextAtTheCapacity) {
    wchar_t text[8];

    drafthost::DescribeException(0xC00000FD, 0, nullptr, text, 8);

    EXPECT_EQ(std::wstring(text), L"stack o");
}

TEST(IsFatal, TellsHardwareErrorsFromExceptionsOfPrograms) {
    EXPECT_TRUE(drafthost::IsFatal(0xC0000005));
    EXPECT_FALSE(drafthost::IsFatal(0x20474343)) << "a throw of gcc's may be caught";
    EXPECT_FALSE(drafthost::IsFatal(0xE06D7363)) << "so may one of MSVC's";
    EXPECT_FALSE(drafthost::IsFatal(0x406D1388)) << "naming a thread";
    EXPECT_FALSE(drafthost::IsFatal(0x80000003)) << "a breakpoint";
}

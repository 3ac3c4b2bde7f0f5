#include "host/section_table.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <vector>

namespace {

struct TestRow {
    int number;
    bool changed;
};

TestRow g_first = {1, false};
TestRow g_second = {2, false};
TestRow g_third = {3, false};

}  // namespace

SECTION_TABLE(TESTFULL, TestRow, FullTable)
SECTION_TABLE(TESTNONE, TestRow, EmptyTable)

SECTION_TABLE_ROW(TESTFULL, 001, TestRow, g_first);
SECTION_TABLE_SLOT(TESTFULL, m002, TestRow, g_nullSlot, nullptr);
SECTION_TABLE_ROW(TESTFULL, 009, TestRow, g_second);
SECTION_TABLE_ROW(TESTFULL, 010, TestRow, g_third);

namespace {

DWORD Protection(const void* address) {
    MEMORY_BASIC_INFORMATION memory = {};
    VirtualQuery(address, &memory, sizeof memory);
    return memory.Protect;
}

}  // namespace

TEST(SectionTable, MeetsTheRowsInTheOrderOfDeclaration) {
    std::vector<int> numbers;
    for (const TestRow& row : FullTable())
        numbers.push_back(row.number);

    EXPECT_EQ(numbers, (std::vector<int>{1, 2, 3}));
}

TEST(SectionTable, AnEmptyTableHasNoRow) {
    int rows = 0;
    for (const TestRow& row : EmptyTable())
        rows += row.number;

    EXPECT_EQ(rows, 0);
}

TEST(SectionTable, SlotsAreReadOnlyRecordsAreNot) {
    EXPECT_EQ(Protection(&g_nullSlot), static_cast<DWORD>(PAGE_READONLY));

    for (TestRow& row : FullTable())
        row.changed = true;

    EXPECT_TRUE(g_first.changed && g_second.changed && g_third.changed);
}

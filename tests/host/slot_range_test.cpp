#include "host/slot_range.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

struct Row {
    int number;
};

Row one = {1};
Row two = {2};
Row three = {3};
// Neither mark may be read: following this pointer ends the test program.
Row* const poison = reinterpret_cast<Row*>(1);

template <size_t size>
std::vector<int> Walk(Row* const (&slots)[size]) {
    std::vector<int> numbers;
    for (Row& row : SlotRange<Row>(&slots[0], &slots[size - 1]))
        numbers.push_back(row.number);
    return numbers;
}

using Numbers = std::vector<int>;

}  // namespace

TEST(SlotRange, WalksFromBehindTheBeginMarkToTheEndMark) {
    Row* const slots[] = {poison, &one, &two, &three, poison};

    EXPECT_EQ(Walk(slots), (Numbers{1, 2, 3}));
}

TEST(SlotRange, SkipsNullSlotsWhereverTheyStand) {
    Row* const between[] = {poison, &one, nullptr, nullptr, &two, poison};
    Row* const atTheEnds[] = {poison, nullptr, &one, nullptr, poison};

    EXPECT_EQ(Walk(between), (Numbers{1, 2}));
    EXPECT_EQ(Walk(atTheEnds), (Numbers{1}));
}

TEST(SlotRange, AnEmptyTableHasNoRow) {
    Row* const marksAlone[] = {poison, poison};
    Row* const nullAlone[] = {poison, nullptr, poison};

    EXPECT_EQ(Walk(marksAlone), Numbers{});
    EXPECT_EQ(Walk(nullAlone), Numbers{});
}

TEST(SlotRange, GivesTheRecordsThemselves) {
    Row row = {7};
    Row* const slots[] = {poison, &row, poison};

    for (Row& found : SlotRange<Row>(&slots[0], &slots[2]))
        found.number = 8;

    EXPECT_EQ(row.number, 8);
}

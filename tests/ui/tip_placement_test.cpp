#include "ui/tip_placement.h"

#include <gtest/gtest.h>

#include <ostream>

// Found by name from the templates of GoogleTest.
static bool operator==(TipPoint left, TipPoint right) {
    return left.x == right.x && left.y == right.y;
}
static void PrintTo(TipPoint point, std::ostream* out) {
    *out << point.x << ", " << point.y;
}

namespace {

constexpr TipSize fullHd = {1920, 1080};
constexpr TipSize small = {640, 480};
constexpr TipSize portrait = {1080, 1920};

}  // namespace

TEST(PlaceByCursor, PutsTheTipBesideTheCursorAndOntoTheScreen) {
    struct Row {
        const char* why;
        TipPoint cursor;
        TipSize tip;
        TipSize screen;
        TipPoint expected;
    };
    constexpr Row rows[] = {
        {"room on both sides", {100, 100}, {200, 50}, fullHd, {115, 115}},
        {"no room at the right", {1800, 1000}, {200, 50}, fullHd, {1585, 1015}},
        {"no room below", {500, 1050}, {200, 50}, fullHd, {515, 985}},
        {"last x with room at the right", {1704, 100}, {200, 50}, fullHd, {1719, 115}},
        {"the sum just meets the width", {1705, 100}, {200, 50}, fullHd, {1490, 115}},
        {"last y with room below", {100, 1009}, {200, 50}, fullHd, {115, 1024}},
        {"the sum just meets the height", {100, 1010}, {200, 50}, fullHd, {115, 945}},
        {"an offset of 15 has room, 20 hasn't", {100, 1012}, {200, 50}, fullHd, {115, 947}},
        {"top left corner", {0, 0}, {200, 50}, fullHd, {15, 15}},
        {"bottom right corner", {1919, 1079}, {200, 50}, fullHd, {1704, 1014}},
        {"flipped over the left edge", {300, 100}, {500, 50}, small, {0, 115}},
        {"flipped over the top edge", {10, 300}, {50, 400}, small, {25, 0}},
        {"wider than the screen", {300, 100}, {700, 50}, small, {0, 115}},
        {"higher than the screen", {10, 100}, {50, 500}, small, {25, 0}},
        {"wider, cursor far outside", {800, 100}, {700, 50}, small, {-60, 115}},
        {"screen left of the primary one", {-500, 100}, {200, 50}, fullHd, {0, 115}},
        {"screen above the primary one", {100, -500}, {200, 50}, fullHd, {115, 0}},
        {"screen at the right", {2500, 100}, {200, 50}, fullHd, {1720, 115}},
        {"first x that is clamped at the right", {1936, 100}, {200, 50}, fullHd, {1720, 115}},
        {"outside, yet flipped onto the screen", {1934, 100}, {200, 50}, fullHd, {1719, 115}},
        {"screen below", {100, 1500}, {200, 50}, fullHd, {115, 1030}},
        {"upright screen", {1000, 1800}, {200, 50}, portrait, {785, 1815}},
    };

    for (const Row& row : rows) {
        EXPECT_EQ(PlaceByCursor(row.cursor, row.tip, row.screen), row.expected) << row.why;
    }
}

TEST(PlaceByItem, KeepsToTheRectangleAndOntoTheScreen) {
    struct Row {
        const char* why;
        TipRect item;
        TipSize tip;
        TipSize screen;
        TipPoint expected;
    };
    constexpr Row rows[] = {
        {"left half, room below", {100, 100, 200, 130}, {200, 50}, fullHd, {120, 132}},
        {"right half", {1500, 100, 1600, 130}, {200, 50}, fullHd, {1380, 132}},
        {"centre in the very middle", {910, 100, 1010, 130}, {200, 50}, fullHd, {930, 132}},
        {"centre one right of it", {911, 100, 1011, 130}, {200, 50}, fullHd, {791, 132}},
        {"odd width halves downwards", {910, 100, 1011, 130}, {200, 50}, fullHd, {930, 132}},
        {"inverted halves toward zero", {963, 100, 958, 130}, {200, 50}, fullHd, {738, 132}},
        {"last bottom with room", {100, 900, 200, 1019}, {200, 50}, fullHd, {120, 1021}},
        {"the sum just meets the height", {100, 900, 200, 1020}, {200, 50}, fullHd, {120, 848}},
        {"above and over the top edge", {100, 20, 200, 1070}, {200, 50}, fullHd, {120, 0}},
        {"item beyond the left edge", {-300, 100, -200, 130}, {200, 50}, fullHd, {0, 132}},
        {"item at the far right", {2400, 100, 2500, 130}, {200, 50}, fullHd, {1720, 132}},
        {"item far below", {100, 2000, 200, 2030}, {200, 50}, fullHd, {120, 1030}},
        {"right of the left edge, too wide", {0, 100, 100, 130}, {1910, 50}, fullHd, {10, 132}},
        {"wider than the screen, left half", {100, 10, 200, 40}, {700, 50}, small, {-60, 42}},
        {"wider than the screen, right half", {500, 10, 600, 40}, {700, 50}, small, {0, 42}},
        {"higher than the screen", {100, 10, 200, 40}, {50, 500}, small, {120, 0}},
        {"upright screen", {600, 1880, 700, 1910}, {200, 50}, portrait, {480, 1828}},
    };

    for (const Row& row : rows) {
        EXPECT_EQ(PlaceByItem(row.item, row.tip, row.screen), row.expected) << row.why;
    }
}

#include "config/element_path.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

TEST(ElementPath, IsCutAtTheFirstDot) {
    struct Row {
        const char* why;
        const char* path;
        const char* head;
        const char* tail;
        bool hasTail;
    };
    constexpr Row rows[] = {
        {"no dot: all head", "Config", "Config", "", false},
        {"one dot", "Config.EnableLog", "Config", "EnableLog", true},
        {"only the first of several", "A.B.C", "A", "B.C", true},
        {"a dot at the end leaves an empty tail", "Config.", "Config", "", true},
        {"a dot at the start leaves an empty head", ".A", "", "A", true},
        {"two dots in a row", "A..B", "A", ".B", true},
        {"a dot alone", ".", "", "", true},
        {"nothing", "", "", "", false},
        {"blanks and brackets are part of a name", " A [1].B", " A [1]", "B", true},
    };
    for (const Row& row : rows) {
        const PathCut cut = CutPath(row.path);

        EXPECT_EQ(cut.head, row.head) << row.why;
        EXPECT_EQ(cut.tail, row.tail) << row.why;
        EXPECT_EQ(cut.hasTail, row.hasTail) << row.why;
    }
}

TEST(SameText, ComparesWholeByteByByteAndByCase) {
    struct Row {
        const char* why;
        const char* left;
        const char* right;
        bool same;
    };
    constexpr Row rows[] = {
        {"equal", "Config", "Config", true},
        {"both empty", "", "", true},
        {"case", "Config", "config", false},
        {"the start of the other", "Config", "Conf", false},
        {"the other way round", "Conf", "Config", false},
        {"bytes above 127", "图层", "图层", true},
        {"another last byte", "图层", "图\xB2\xE4", false},
    };
    for (const Row& row : rows) {
        const std::string left = row.left;  // Copies: two literals may share one address.
        const std::string right = row.right;

        EXPECT_EQ(SameText(left.c_str(), right.c_str()), row.same) << row.why;
        EXPECT_EQ(SameName(left.c_str(), right), row.same) << row.why;
    }
}

TEST(SameName, LooksAtNothingBehindTheName) {
    EXPECT_TRUE(SameName("Config", CutPath("Config.EnableLog").head));
    EXPECT_FALSE(SameName("Config.", CutPath("Config.EnableLog").head));
}

TEST(SameName, ANameEndsAtAZeroCharacter) {
    EXPECT_TRUE(SameName("A", std::string_view("A\0x", 3)));
    EXPECT_FALSE(SameName("AB", std::string_view("A\0B", 3)));
}

TEST(SameText, TakesOnePointerForEqualWithoutLooking) {
    EXPECT_TRUE(SameText(nullptr, nullptr));
}

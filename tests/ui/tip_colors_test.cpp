#include "ui/tip_colors.h"

#include <gtest/gtest.h>

#include <cstdint>

TEST(TipColors, FollowTheLevelInDoublesCutTowardZero) {
    struct Row {
        double level;
        std::uint32_t first;
        std::uint32_t second;
        std::uint32_t upLeft;
        std::uint32_t downRight;
    };
    constexpr Row rows[] = {
        {0.0, 0xFFFFFFFF, 0xFFD2C38F, 0xFFBEBEB4, 0xFFFFFFF5},
        {0.1, 0xFFFDFDF9, 0xFFD6C99A, 0xFFC4C4BA, 0xFFF8F8EE},
        {0.2, 0xFFFBFBF4, 0xFFDBCFA5, 0xFFCBCBC1, 0xFFF2F2E8},
        {0.30000000000000004, 0xFFF9F9EE, 0xFFDFD5B0, 0xFFD1D1C7, 0xFFEBEBE1},
        {0.4, 0xFFF7F7E9, 0xFFE4DBBB, 0xFFD8D8CE, 0xFFE5E5DB},
        {0.5, 0xFFF5F5E3, 0xFFE8E1C7, 0xFFDEDED4, 0xFFDEDED4},
        {0.6, 0xFFF3F3DE, 0xFFEDE7D2, 0xFFE5E5DB, 0xFFD8D8CE},
        {0.7, 0xFFF1F1D8, 0xFFF1EDDD, 0xFFEBEBE1, 0xFFD1D1C7},
        {0.7999999999999999, 0xFFEFEFD3, 0xFFF6F3E8, 0xFFF2F2E8, 0xFFCBCBC1},
        {0.8999999999999999, 0xFFEDEDCD, 0xFFFAF9F3, 0xFFF8F8EE, 0xFFC4C4BA},
        {0.9999999999999999, 0xFFEBEBC8, 0xFFFFFFFF, 0xFFFFFFF5, 0xFFBEBEB4},
        {1.0, 0xFFEBEBC8, 0xFFFFFFFF, 0xFFFFFFF5, 0xFFBEBEB4},
    };

    for (const Row& row : rows) {
        EXPECT_EQ(GradientFirstColor(row.level), row.first) << row.level;
        EXPECT_EQ(GradientSecondColor(row.level), row.second) << row.level;
        EXPECT_EQ(UpLeftTextColor(row.level), row.upLeft) << row.level;
        EXPECT_EQ(DownRightTextColor(row.level), row.downRight) << row.level;
    }
}

TEST(TipColors, KeepTheLowEightBitsBeyondTheEndsAndDontSaturate) {
    EXPECT_EQ(GradientSecondColor(1.0999999999999999), 0xFF03050Au);
    EXPECT_EQ(UpLeftTextColor(1.0999999999999999), 0xFF0505FBu);
    EXPECT_EQ(GradientFirstColor(-1.0), 0xFF131336u);
    EXPECT_EQ(DownRightTextColor(2.0), 0xFF7D7D73u);
}

TEST(TipColors, OfTheTextInItsPlaceIsOpaqueBlack) {
    EXPECT_EQ(textColor, 0xFF000000u);
}

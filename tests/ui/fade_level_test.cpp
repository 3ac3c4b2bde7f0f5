#include "ui/fade_level.h"

#include <gtest/gtest.h>

TEST(FadeLevel, RunsThroughElevenSumsToTheLastBit) {
    constexpr double drawn[] = {0.0,
                                0.1,
                                0.2,
                                0.30000000000000004,
                                0.4,
                                0.5,
                                0.6,
                                0.7,
                                0.7999999999999999,
                                0.8999999999999999,
                                0.9999999999999999};
    double level = fadeFirstLevel;

    for (const double expected : drawn) {
        EXPECT_EQ(level, expected);
        EXPECT_FALSE(FadeIsOver(level)) << level;
        level = NextFadeLevel(level);
    }

    EXPECT_EQ(level, 1.0999999999999999);
    EXPECT_TRUE(FadeIsOver(level));
}

TEST(FadeLevel, IsStillDrawnAtExactlyOne) {
    EXPECT_FALSE(FadeIsOver(fadeFullLevel));
    EXPECT_TRUE(FadeIsOver(1.0000000000000002));
}

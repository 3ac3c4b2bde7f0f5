#include "ui/color_key.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace {

using testing::ElementsAre;

/// A pixel as it lies in memory, read as one little-endian word.
constexpr std::uint32_t Pixel(int red, int green, int blue, int alpha = 255) {
    return static_cast<std::uint32_t>(alpha) << 24 | static_cast<std::uint32_t>(red) << 16 |
           static_cast<std::uint32_t>(green) << 8 | static_cast<std::uint32_t>(blue);
}

std::uint32_t Keyed(std::uint32_t pixel, std::uint32_t color = 0xFFFEFDCE) {
    KeyOutColor({reinterpret_cast<std::uint8_t*>(&pixel), 4, 1, 1}, color);
    return pixel;
}

}  // namespace

TEST(KeyOutColor, ClearsTheAlphaUpToASummedDistanceOfTen) {
    struct Row {
        const char* why;
        int red, green, blue;
        bool cleared;
    };
    constexpr Row rows[] = {
        {"the colour itself", 254, 253, 206, true},
        {"ten, over two channels, below", 249, 248, 206, true},
        {"ten, one channel, below", 244, 253, 206, true},
        {"eleven, one channel, below", 243, 253, 206, false},
        {"ten in blue, above", 254, 253, 216, true},
        {"eleven in blue, above", 254, 253, 217, false},
        {"signs don't cancel: ten", 255, 251, 213, true},
        {"signs don't cancel: eleven", 255, 251, 214, false},
        {"eleven over two channels", 249, 247, 206, false},
        {"red and blue exchanged", 206, 253, 254, false},
        {"white", 255, 255, 255, false},
    };

    for (const Row& row : rows) {
        const std::uint32_t expected = Pixel(row.red, row.green, row.blue, row.cleared ? 0 : 255);
        EXPECT_EQ(Keyed(Pixel(row.red, row.green, row.blue)), expected) << row.why;
    }
}

TEST(KeyOutColor, LooksForTheColorThatItIsGiven) {
    EXPECT_EQ(Keyed(Pixel(10, 20, 30), 0xFF0A141E), Pixel(10, 20, 30, 0));
    EXPECT_EQ(Keyed(Pixel(254, 253, 206), 0xFF0A141E), Pixel(254, 253, 206));
}

TEST(KeyOutColor, DoesntCompareAlphaAndKeepsThatOfOtherPixels) {
    EXPECT_EQ(Keyed(Pixel(254, 253, 206, 7)), Pixel(254, 253, 206, 0));
    EXPECT_EQ(Keyed(Pixel(1, 2, 3, 7)), Pixel(1, 2, 3, 7));
}

TEST(KeyOutColor, StepsByTheStrideAndLeavesThePaddingAlone) {
    constexpr std::uint32_t key = Pixel(254, 253, 206);
    constexpr std::uint32_t keyed = Pixel(254, 253, 206, 0);
    std::vector<std::uint32_t> pixels(6, key);

    KeyOutColor({reinterpret_cast<std::uint8_t*>(pixels.data()), 12, 2, 2}, key);

    EXPECT_THAT(pixels, ElementsAre(keyed, keyed, key, keyed, keyed, key));
}

TEST(KeyOutColor, FollowsANegativeStrideUpwards) {
    constexpr std::uint32_t key = Pixel(254, 253, 206);
    constexpr std::uint32_t keyed = Pixel(254, 253, 206, 0);
    std::vector<std::uint32_t> pixels(4, key);

    KeyOutColor({reinterpret_cast<std::uint8_t*>(&pixels[2]), -8, 1, 2}, key);

    EXPECT_THAT(pixels, ElementsAre(keyed, key, keyed, key));
}

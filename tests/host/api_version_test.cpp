#include "host/api_version.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

struct Row {
    const char* why;
    std::uint32_t before;
    std::uint32_t argument;
    std::uint32_t answer;
    std::uint32_t after;
};

constexpr Row rows[] = {
    {"a query on a fresh module", 0, 0, 0x110000, 0},
    {"the answer is the generation, not the word", 0, 5, 0x110000, 0x110005},
    {"the second 5 takes the first out again", 0x110005, 5, 0x110000, 0x110000},
    {"another argument", 0x110005, 3, 0x110006, 0x110006},
    {"zero gives the word and clears it", 0x110005, 0, 0x110005, 0},
    {"the generation as argument leaves a fresh word", 0, 0x110000, 0x110000, 0},
    {"a word XORed away is fresh again", 0x110005, 0x110005, 0, 0},
    {"all 32 bits count", 0, 0xFFFFFFFF, 0x110000, 0xFFEEFFFF},
};

}  // namespace

TEST(AnswerApiVersion, FollowsTheWord) {
    for (const Row& row : rows) {
        std::uint32_t state = row.before;
        EXPECT_EQ(AnswerApiVersion(state, row.argument), row.answer) << row.why;
        EXPECT_EQ(state, row.after) << row.why;
    }
}

TEST(GetApiVersion, BeginsWithAJumpOverTheGeneration) {
    constexpr unsigned char head[] = {0xEB, 0x04, 0x00, 0x00, 0x11, 0x00};

    EXPECT_EQ(std::memcmp(reinterpret_cast<const void*>(&acrxGetApiVersion), head, sizeof head), 0);
}

TEST(GetApiVersion, AnswersFromOneWordOfItsOwn) {
    EXPECT_EQ(acrxGetApiVersion(0), 0x110000u);
    EXPECT_EQ(acrxGetApiVersion(0), 0x110000u);
    EXPECT_EQ(acrxGetApiVersion(5), 0x110000u);
    EXPECT_EQ(acrxGetApiVersion(5), 0x110000u);
    EXPECT_EQ(acrxGetApiVersion(0), 0x110000u);
}

#include "runtime/host/api_version.h"

#include <gtest/gtest.h>

using drafthost::ApiVersionInHead;
using drafthost::GenerationOf;

TEST(ApiVersionInHead, IsReadBehindAShortJumpOverFourBytes) {
    const unsigned char code[] = {0xEB, 0x04, 0x00, 0x00, 0x11, 0x00, 0xC3};

    EXPECT_EQ(ApiVersionInHead(code), 0x00110000u);
    EXPECT_EQ(GenerationOf(*ApiVersionInHead(code)), 17u);
}

TEST(ApiVersionInHead, TheLowestByteStandsFirst) {
    const unsigned char code[] = {0xEB, 0x04, 0x78, 0x56, 0x34, 0x92};

    EXPECT_EQ(ApiVersionInHead(code), 0x92345678u);
}

TEST(ApiVersionInHead, AnOrdinaryFunctionHasNone) {
    const unsigned char prologue[] = {0x55, 0x48, 0x89, 0xE5, 0x11, 0x00};
    const unsigned char longerJump[] = {0xEB, 0x05, 0x00, 0x00, 0x11, 0x00};

    EXPECT_FALSE(ApiVersionInHead(prologue));
    EXPECT_FALSE(ApiVersionInHead(longerJump));
}

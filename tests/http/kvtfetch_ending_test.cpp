#include "kvtfetch/ending.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

TEST(MeaningOfExitCode, HasOneForEachCodeOfTheClientAndForUsage) {
    for (const int code : {0, 1, 2, 3, 5, 64}) {
        EXPECT_THAT(MeaningOfExitCode(code), Not(IsEmpty())) << code;
    }
    EXPECT_EQ(MeaningOfExitCode(2), "no connection handle");
    EXPECT_EQ(MeaningOfExitCode(5), "the server answered with status 404");
}

TEST(MeaningOfExitCode, HasNoneForTheFreeCode) {
    EXPECT_EQ(MeaningOfExitCode(4), "");
}

TEST(ExitCodeList, ShowsEveryCodeOnALineOfItsOwn) {
    const std::string list = ExitCodeList();

    for (const int code : {0, 1, 2, 3, 5}) {
        EXPECT_THAT(list, HasSubstr("\n   " + std::to_string(code) + "  " +
                                    MeaningOfExitCode(code) + "\n"));
    }
    EXPECT_THAT(list, HasSubstr("\n  64  " + MeaningOfExitCode(exitUsage) + "\n"));
}

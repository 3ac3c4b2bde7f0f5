#include "support/leak_rounds.h"
#include "support/planted_leaks.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

// Each counter must see a leak that is planted, and only that one.

void PrintTo(const PlantedLeak& leak, std::ostream* stream) {
    *stream << leak.name;
}

namespace {

TEST(ResourceCounters, StayTheSameWhenNothingHappens) {
    ExpectNoGrowth(1, [] {});
}

class PlantedLeakTest : public testing::TestWithParam<PlantedLeak> {};

TEST_P(PlantedLeakTest, IsSeenByItsCounterAlone) {
    ExpectGrowth(10, GetParam().plant, GetParam().shows);

    GetParam().mend();
}

TEST_P(PlantedLeakTest, IsSeenToEnd) {
    const PlantedLeak& leak = GetParam();

    ExpectNoGrowth(10, [&] {
        leak.plant();
        leak.mend();
    });
}

INSTANTIATE_TEST_SUITE_P(Of, PlantedLeakTest, testing::ValuesIn(PlantedLeaks()),
                         [](const auto& info) { return std::string(info.param.name); });

// What the soaks rely on.

TEST(ExpectGrowth, FailsWhenMoreGrowsThanIsWanted) {
    static PlantedLeak leak;
    leak = PlantedLeaks().front();

    EXPECT_NONFATAL_FAILURE(ExpectGrowth(10, leak.plant, {}), "heap blocks 10");
    EXPECT_NONFATAL_FAILURE(ExpectGrowth(10, leak.plant, leak.shows * 2), "heap blocks 20");

    leak.mend();
    leak = {};
}

TEST(GrowthOver, IsOfTheRoundsBehindTheWarmUp) {
    const PlantedLeak leak = PlantedLeaks().front();
    int rounds = 0;

    const ResourceCounts growth = GrowthOver(7, [&] {
        // In the warm-up, and once behind it.
        if (++rounds % 100 == 1) leak.plant();
    });
    leak.mend();

    EXPECT_EQ(growth, leak.shows);
    EXPECT_EQ(rounds, 107);
}

TEST(ExpectGrowth, CountsAgainWhileSomethingElseGrowsThanIsWanted) {
    const PlantedLeak leak = PlantedLeaks().front();
    int rounds = 0;

    const ResourceCounts growth = ExpectNoGrowth(10, [&] {
        // The first count sees a leak that doesn't come again.
        if (++rounds == 105) leak.plant();
    });
    leak.mend();

    EXPECT_EQ(growth, ResourceCounts());
    EXPECT_EQ(rounds, 120);
}

}  // namespace

#include "support/leak_rounds.h"

#include "support/test_progress.h"

#include <gtest/gtest.h>

namespace {

constexpr int attempts = 3;

void Run(int rounds, const std::function<void()>& round) {
    for (int i = 0; i < rounds; ++i) {
        round();
        if (testing::Test::HasFatalFailure()) return;  // One message is enough.
        if (i % 100 == 0) ReportTestProgress();
    }
}

}  // namespace

ResourceCounts GrowthOver(int rounds, const std::function<void()>& round,
                          const ResourceCounts& wanted) {
    Run(warmUpRounds, round);
    CountResources();  // Result ignored: the first count allocates what counting needs.
    ResourceCounts growth;
    ResourceCounts after = CountResources();
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const ResourceCounts before = after;
        Run(rounds, round);
        after = CountResources();
        growth = after - before;
        if (growth == wanted * rounds) break;
    }
    return growth;
}

ResourceCounts ExpectGrowth(int rounds, const std::function<void()>& round,
                            const ResourceCounts& wanted) {
    const ResourceCounts growth = GrowthOver(rounds, round, wanted);
    EXPECT_EQ(growth, wanted * rounds) << "in " << rounds << " rounds";
    return growth;
}

ResourceCounts ExpectNoGrowth(int rounds, const std::function<void()>& round) {
    return ExpectGrowth(rounds, round, {});
}

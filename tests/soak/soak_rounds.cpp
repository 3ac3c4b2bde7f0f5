#include "soak/soak_rounds.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace {

constexpr int warmUpRounds = 100;

ResourceCounts Grown(ResourceCounts counts, const ResourceCounts& perRound, int rounds) {
    const size_t times = static_cast<size_t>(rounds);
    counts.heapBlocks += times * perRound.heapBlocks;
    counts.heapBytes += times * perRound.heapBytes;
    counts.kernelHandles += times * perRound.kernelHandles;
    counts.gdiObjects += times * perRound.gdiObjects;
    counts.userObjects += times * perRound.userObjects;
    counts.threads += times * perRound.threads;
    counts.tlsSlots += times * perRound.tlsSlots;
    return counts;
}

ResourceCounts CountAfterWarmUp(const std::function<void()>& round) {
    for (int i = 0; i < warmUpRounds; ++i)
        round();
    CountResources();  // Result ignored: the first count allocates what counting needs.
    return CountResources();
}

}  // namespace

int SoakRounds(int full) {
    const char* form = std::getenv("KVT_SOAK");
    return form != nullptr && std::strcmp(form, "full") == 0 ? full : full / 10;
}

ResourceCounts GrowthOfARound(const std::function<void()>& round) {
    const ResourceCounts before = CountAfterWarmUp(round);
    round();
    const ResourceCounts after = CountResources();
    const auto difference = [](size_t later, size_t earlier) {
        if (later < earlier) throw std::runtime_error("a counter went down");
        return later - earlier;
    };
    ResourceCounts growth;
    growth.heapBlocks = difference(after.heapBlocks, before.heapBlocks);
    growth.heapBytes = difference(after.heapBytes, before.heapBytes);
    growth.kernelHandles = difference(after.kernelHandles, before.kernelHandles);
    growth.gdiObjects = difference(after.gdiObjects, before.gdiObjects);
    growth.userObjects = difference(after.userObjects, before.userObjects);
    growth.threads = difference(after.threads, before.threads);
    growth.tlsSlots = difference(after.tlsSlots, before.tlsSlots);
    return growth;
}

void ExpectNoGrowth(int rounds, const std::function<void()>& round,
                    const ResourceCounts& expectedPerRound) {
    ResourceCounts before;
    ResourceCounts after = CountAfterWarmUp(round);
    // The table of USER objects serves all processes, and another one may make or drop one in
    // between; what the rounds add is there each time.
    for (int attempt = 0; attempt < 3; ++attempt) {
        before = after;
        for (int i = 0; i < rounds; ++i)
            round();
        after = CountResources();
        if (after == Grown(before, expectedPerRound, rounds)) break;
    }

    EXPECT_EQ(after, Grown(before, expectedPerRound, rounds)) << rounds << " rounds";
}

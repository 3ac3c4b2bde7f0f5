#pragma once

#include "support/resource_counters.h"

#include <functional>

/// How many rounds a soak of `full` rounds takes here: all of them when the environment variable
/// KVT_SOAK is "full", else a tenth.
int SoakRounds(int full);

/// What one round adds, once 100 others have warmed up. Throws std::runtime_error when a counter
/// goes down.
ResourceCounts GrowthOfARound(const std::function<void()>& round);

/// Runs `round` 100 times to warm up, counts, runs it `rounds` times and counts again. What is
/// wanted to grow is `expected` for each round; everything else has to stay the same.
void ExpectNoGrowth(int rounds, const std::function<void()>& round,
                    const ResourceCounts& expectedPerRound = {});

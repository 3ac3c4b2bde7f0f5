#pragma once

#include "support/resource_counters.h"

#include <functional>

/// What `rounds` rounds add to each counter, behind 100 others that warm up.
ResourceCounts GrowthOver(int rounds, const std::function<void()>& round);

/// Expects that exactly `wanted` grows in each round behind as many others, and nothing else. Gives
/// the whole growth.
///
/// Counts up to three times, and says so: the table of USER objects serves all processes, and
/// another one may make or drop one in between. What the rounds add themselves is there each time.
ResourceCounts ExpectGrowth(int rounds, const std::function<void()>& round,
                            const ResourceCounts& wanted);

/// As above, with nothing wanted.
ResourceCounts ExpectNoGrowth(int rounds, const std::function<void()>& round);

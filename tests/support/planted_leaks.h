#pragma once

#include "support/resource_counters.h"

#include <functional>
#include <vector>

/// A leak of one kind, to show that the counters see it.
struct PlantedLeak {
    const char* name;             ///< of one of them, in letters alone: "RegistryKey"
    ResourceCounts shows;         ///< what one of them adds; 0 for the other counters
    std::function<void()> plant;  ///< leaves one more behind; at most 1,000 times
    std::function<void()> mend;   ///< takes back all that were planted
};

/// A kind for each counter, and some more where a counter has several sources.
std::vector<PlantedLeak> PlantedLeaks();

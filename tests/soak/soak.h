#pragma once

#include "support/resource_counters.h"

#include <functional>

/// How many rounds a soak of `full` rounds takes here: all of them when the environment variable
/// KVT_SOAK is "full", else a tenth.
int SoakRounds(int full);

/// Runs `round` so often, behind 100 more as a warm-up, expects that exactly `wanted` grows in each
/// of them, and prints a line about it. `what`: the rounds' name in the plural, "drawings".
void Soak(const char* what, int rounds, const std::function<void()>& round,
          const ResourceCounts& wanted = {});

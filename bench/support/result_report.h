#pragma once

#include "support/pair_runner.h"

#include <cstdio>

/// A line for each pair, with the span in which the middle half of its ratios lies, and one for
/// each of its extra figures; "MISSED" behind what is above its aim.
void PrintTable(const std::vector<PairResult>& results, FILE* file);

/// Everything measured, as an array of objects. False when the file can't be written.
bool WriteJson(const std::vector<PairResult>& results, const char* path);

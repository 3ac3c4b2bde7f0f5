#pragma once

#include "support/paired_benchmark.h"

#include <map>
#include <string>
#include <vector>

/// What the rounds of one side gave; all lists have one element for each round.
struct SideResult {
    std::vector<double> nanoseconds;  ///< for one iteration
    std::map<std::string, std::vector<double>> figures;
};

struct PairResult {
    PairedBenchmark pair = {};
    SideResult ours;
    SideResult bare;             ///< empty without a bare side
    std::vector<double> ratios;  ///< ours to bare, of the two runs of the same round
    std::string failure;         ///< what a side said; empty: none failed
};

/// How often the two sides are run: `fewestRounds` in any case, then more until `seconds` have
/// passed or `mostRounds` are reached.
struct RoundLimits {
    int fewestRounds = 9;
    int mostRounds = 199;
    double seconds = 3.5;
};

/// Runs both sides of the pair in each round, as many iterations of one as of the other, ours first
/// in one and the bare one first in the next, so that a machine whose speed drifts slows both. Once
/// for each pair of the program.
PairResult RunPair(const PairedBenchmark& pair, const RoundLimits& limits);

/// The value below which `share` of the others lie, 0 to 1; 0 of an empty list.
double Quantile(std::vector<double> values, double share);

/// Half of the values lie below it.
double Median(const std::vector<double>& values);

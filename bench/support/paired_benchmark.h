#pragma once

#include <benchmark/benchmark.h>

/// A path of the product beside the bare calls that it can't do without.
struct PairedBenchmark {
    using Side = void (*)(benchmark::State& state);

    const char* name;  ///< "area/path", unique
    Side ours;
    Side bare;   ///< null: our time alone is stated
    double aim;  ///< what the ratio of the medians should at most be; 0: stated without an aim
    const char* bareCalls;  ///< what the bare side does, for the table
};

/// Enters the pair into the program's list; make one at namespace level for each path:
/// `const PairedBenchmarkEntry entry({"config/load 1 KB", Ours, Bare, 1.05, "..."});`
class PairedBenchmarkEntry {
  public:
    explicit PairedBenchmarkEntry(const PairedBenchmark& pair);
};

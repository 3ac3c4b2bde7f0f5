#pragma once

#include <benchmark/benchmark.h>

#include <vector>

/// A figure beside the time, such as peak memory or a count of allocations. A side reports it as a
/// counter: `state.counters["allocations"] = count;`.
struct ExtraFigure {
    static constexpr double noAim = -1;

    const char* name;
    double aim = noAim;  ///< what ours should at most be
};

/// A path of the product beside the bare calls that it can't do without.
struct PairedBenchmark {
    using Side = void (*)(benchmark::State& state);

    const char* name;  ///< "area/path", unique
    Side ours;
    Side bare;              ///< null: our time alone is stated
    double aim;             ///< what the median of the ratios should at most be; 0: stated only
    const char* bareCalls;  ///< what the bare side does, for the report
    std::vector<ExtraFigure> figures = {};
    int iterations = 0;            ///< of a run; 0: as many as fill its time
    bool isManuallyTimed = false;  ///< the sides call `state.SetIterationTime`
};

/// Enters the pair into the program's list; make one at namespace level for each path:
/// `const PairedBenchmarkEntry entry({"config/load 1 KB", Ours, Bare, 1.05, "..."});`
class PairedBenchmarkEntry {
  public:
    explicit PairedBenchmarkEntry(const PairedBenchmark& pair);
};

/// What the entries have entered, file by file in link order.
const std::vector<PairedBenchmark>& PairedBenchmarks();

#include "support/pair_runner.h"

#include <algorithm>
#include <chrono>
#include <cstring>

namespace {

/// Keeps the one run that it is given.
class RunCollector : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            ++m_count;
            if (run.error_occurred) m_failure = run.error_message;
            m_nanoseconds = run.GetAdjustedRealTime();
            for (const auto& [name, counter] : run.counters)
                m_figures[name] = counter.value;
        }
    }

    /// Adds the run to `side`; what went wrong, or nothing.
    std::string AddTo(SideResult& side) const {
        if (!m_failure.empty()) return m_failure;
        if (m_count != 1) return std::to_string(m_count) + " runs instead of one";
        if (!(m_nanoseconds > 0)) return "no time was measured";
        side.nanoseconds.push_back(m_nanoseconds);
        for (const auto& [name, value] : m_figures)
            side.figures[name].push_back(value);
        return {};
    }

  private:
    int m_count = 0;
    double m_nanoseconds = 0;
    std::map<std::string, double> m_figures;
    std::string m_failure;
};

/// The pattern that finds this name alone; the library puts "/real_time" and the like behind it.
std::string Pattern(const std::string& name) {
    std::string pattern = "^";
    for (const char character : name) {
        if (std::strchr("()[]{}.*+?^$|\\", character) != nullptr) pattern += '\\';
        pattern += character;
    }
    return pattern + "/";
}

void Register(const PairedBenchmark& pair, const std::string& name, PairedBenchmark::Side side) {
    benchmark::internal::Benchmark* registered =
        benchmark::RegisterBenchmark(name.c_str(), side)->Unit(benchmark::kNanosecond);
    if (pair.isManuallyTimed) {
        registered->UseManualTime();
    } else {
        registered->UseRealTime();
    }
    if (pair.iterations > 0) registered->Iterations(pair.iterations);
}

std::string RunOnce(const std::string& name, SideResult& side) {
    RunCollector collector;
    benchmark::RunSpecifiedBenchmarks(&collector, Pattern(name));
    const std::string failure = collector.AddTo(side);
    return failure.empty() ? failure : name + ": " + failure;
}

}  // namespace

PairResult RunPair(const PairedBenchmark& pair, const RoundLimits& limits) {
    PairResult result;
    result.pair = pair;
    const std::string ours = std::string(pair.name) + " (ours)";
    const std::string bare = std::string(pair.name) + " (bare)";
    const bool hasBareSide = pair.bare != nullptr;
    Register(pair, ours, pair.ours);
    if (hasBareSide) Register(pair, bare, pair.bare);

    const auto start = std::chrono::steady_clock::now();
    const auto wantsRound = [&](int round) {
        const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
        return round < limits.fewestRounds ||
               (round < limits.mostRounds && passed.count() < limits.seconds);
    };
    for (int round = 0; result.failure.empty() && wantsRound(round); ++round) {
        const bool oursFirst = round % 2 == 0;
        if (oursFirst) result.failure = RunOnce(ours, result.ours);
        if (hasBareSide && result.failure.empty()) result.failure = RunOnce(bare, result.bare);
        if (!oursFirst && result.failure.empty()) result.failure = RunOnce(ours, result.ours);
        if (hasBareSide && result.failure.empty()) {
            result.ratios.push_back(result.ours.nanoseconds.back() /
                                    result.bare.nanoseconds.back());
        }
    }
    return result;
}

double Median(std::vector<double> values) {
    if (values.empty()) return 0;
    std::sort(values.begin(), values.end());
    const size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

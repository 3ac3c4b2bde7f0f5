#include "support/pair_runner.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstring>
#include <exception>

namespace {

// Many short runs stand a busy machine better than a few long ones: most are not interrupted.
constexpr double nanosecondsOfRun = 4e6;

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

void Register(const PairedBenchmark& pair, const std::string& name, PairedBenchmark::Side side,
              benchmark::IterationCount iterations) {
    benchmark::internal::Benchmark* registered =
        benchmark::RegisterBenchmark(name.c_str(), side)->Unit(benchmark::kNanosecond);
    if (pair.isManuallyTimed) {
        registered->UseManualTime();
    } else {
        registered->UseRealTime();
    }
    if (iterations > 0) registered->Iterations(iterations);
}

std::string RunOnce(const std::string& name, SideResult& side) {
    RunCollector collector;
    std::string failure;
    try {
        benchmark::RunSpecifiedBenchmarks(&collector, Pattern(name));
        failure = collector.AddTo(side);
    } catch (const std::exception& exception) {
        failure = exception.what();
    }
    return failure.empty() ? failure : name + ": " + failure;
}

/// As many iterations of our side as fill a run. Out of several trials the quickest counts, since
/// one that another process interrupts would find too few.
benchmark::IterationCount IterationsOfRun(const PairedBenchmark& pair, std::string& failure) {
    if (pair.iterations > 0) return pair.iterations;
    const std::string name = std::string(pair.name) + " (trial)";
    Register(pair, name, pair.ours, 0);
    SideResult trials;
    const auto mayBeInterrupted = [&trials] {
        return trials.nanoseconds.empty() || trials.nanoseconds.back() < 20 * nanosecondsOfRun;
    };
    for (int i = 0; i < 3 && failure.empty() && mayBeInterrupted(); ++i)
        failure = RunOnce(name, trials);
    if (!failure.empty()) return 1;
    const double quickest = *std::min_element(trials.nanoseconds.begin(), trials.nanoseconds.end());
    return std::max<benchmark::IterationCount>(1, std::llround(nanosecondsOfRun / quickest));
}

}  // namespace

PairResult RunPair(const PairedBenchmark& pair, const RoundLimits& limits) {
    PairResult result;
    result.pair = pair;
    const std::string ours = std::string(pair.name) + " (ours)";
    const std::string bare = std::string(pair.name) + " (bare)";
    const bool hasBareSide = pair.bare != nullptr;
    const auto start = std::chrono::steady_clock::now();
    const benchmark::IterationCount iterations = IterationsOfRun(pair, result.failure);
    Register(pair, ours, pair.ours, iterations);
    if (hasBareSide) Register(pair, bare, pair.bare, iterations);

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

double Median(const std::vector<double>& values) {
    return Quantile(values, 0.5);
}

double Quantile(std::vector<double> values, double share) {
    if (values.empty()) return 0;
    std::sort(values.begin(), values.end());
    const double place = share * static_cast<double>(values.size() - 1);
    const size_t below = static_cast<size_t>(place);
    const size_t above = std::min(below + 1, values.size() - 1);
    const double between = place - static_cast<double>(below);
    return values[below] + between * (values[above] - values[below]);
}

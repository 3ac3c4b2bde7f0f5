// The main of the benchmark programs. Runs the two sides of every pair in turn, ours first in one
// round and the bare one first in the next, so that a machine whose speed drifts slows both; prints
// a table of medians and ratios, and writes it as JSON.

#include "support/paired_benchmark.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace {

std::vector<PairedBenchmark>& Pairs() {
    static std::vector<PairedBenchmark> pairs;
    return pairs;
}

/// Keeps the nanoseconds per iteration of the run it is given.
class TimeCollector : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.error_occurred) {
                std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(),
                             run.error_message.c_str());
                m_failed = true;
                continue;
            }
            m_nanoseconds = run.GetAdjustedRealTime();
        }
    }

    double Nanoseconds() const { return m_nanoseconds; }
    bool Failed() const { return m_failed; }

  private:
    double m_nanoseconds = 0;
    bool m_failed = false;
};

struct Result {
    PairedBenchmark pair = {};
    std::vector<double> ours;
    std::vector<double> bare;
    std::vector<double> ratios;
    bool failed = false;
};

double Median(std::vector<double> values) {
    if (values.empty()) return 0;
    std::sort(values.begin(), values.end());
    const size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

std::string Escaped(const std::string& name) {
    std::string pattern;
    for (const char character : name) {
        if (std::strchr("()[]{}.*+?^$|\\", character) != nullptr) pattern += '\\';
        pattern += character;
    }
    return "^" + pattern + "$";
}

bool RunOnce(const std::string& name, std::vector<double>& times) {
    TimeCollector collector;
    if (benchmark::RunSpecifiedBenchmarks(&collector, Escaped(name)) != 1) return false;
    if (collector.Failed()) return false;
    times.push_back(collector.Nanoseconds());
    return true;
}

Result RunPair(const PairedBenchmark& pair, int rounds) {
    Result result;
    result.pair = pair;
    const std::string ours = std::string(pair.name) + " (ours)";
    const std::string bare = std::string(pair.name) + " (bare)";
    for (int round = 0; round < rounds && !result.failed; ++round) {
        const bool oursFirst = round % 2 == 0;
        if (oursFirst && !RunOnce(ours, result.ours)) result.failed = true;
        if (pair.bare != nullptr && !RunOnce(bare, result.bare)) result.failed = true;
        if (!oursFirst && !RunOnce(ours, result.ours)) result.failed = true;
        if (!result.failed && pair.bare != nullptr) {
            result.ratios.push_back(result.ours.back() / result.bare.back());
        }
    }
    return result;
}

std::string Time(double nanoseconds) {
    char text[32];
    if (nanoseconds >= 1e9) {
        std::snprintf(text, sizeof text, "%.3f s", nanoseconds / 1e9);
    } else if (nanoseconds >= 1e6) {
        std::snprintf(text, sizeof text, "%.3f ms", nanoseconds / 1e6);
    } else if (nanoseconds >= 1e3) {
        std::snprintf(text, sizeof text, "%.3f us", nanoseconds / 1e3);
    } else {
        std::snprintf(text, sizeof text, "%.1f ns", nanoseconds);
    }
    return text;
}

void PrintTable(const std::vector<Result>& results) {
    std::printf("\n%-44s %12s %12s %7s %15s %6s\n", "path", "ours", "bare", "ratio",
                "ratio min..max", "aim");
    for (const Result& result : results) {
        if (result.failed) {
            std::printf("%-44s FAILED\n", result.pair.name);
            continue;
        }
        std::printf("%-44s %12s", result.pair.name, Time(Median(result.ours)).c_str());
        if (result.ratios.empty()) {
            std::printf("\n");
            continue;
        }
        const auto [least, most] = std::minmax_element(result.ratios.begin(), result.ratios.end());
        std::printf(" %12s %7.3f %7.3f..%6.3f", Time(Median(result.bare)).c_str(),
                    Median(result.ratios), *least, *most);
        if (result.pair.aim > 0) {
            std::printf(" %6.2f%s", result.pair.aim,
                        Median(result.ratios) > result.pair.aim ? "  MISSED" : "");
        }
        std::printf("\n");
    }
}

void WriteList(std::ofstream& file, const char* name, const std::vector<double>& values) {
    file << "\"" << name << "\": [";
    for (size_t i = 0; i < values.size(); ++i)
        file << (i == 0 ? "" : ", ") << values[i];
    file << "]";
}

void WriteJson(const std::vector<Result>& results, const char* path) {
    std::ofstream file(path);
    file << "[\n";
    for (size_t i = 0; i < results.size(); ++i) {
        const Result& result = results[i];
        file << "  {\"path\": \"" << result.pair.name << "\", \"bare_calls\": \""
             << result.pair.bareCalls << "\", \"aim\": " << result.pair.aim
             << ", \"failed\": " << (result.failed ? "true" : "false")
             << ", \"median_ours_ns\": " << Median(result.ours)
             << ", \"median_bare_ns\": " << Median(result.bare)
             << ", \"median_ratio\": " << Median(result.ratios) << ", ";
        WriteList(file, "ours_ns", result.ours);
        file << ", ";
        WriteList(file, "bare_ns", result.bare);
        file << ", ";
        WriteList(file, "ratios", result.ratios);
        file << "}" << (i + 1 < results.size() ? "," : "") << "\n";
    }
    file << "]\n";
}

}  // namespace

PairedBenchmarkEntry::PairedBenchmarkEntry(const PairedBenchmark& pair) {
    Pairs().push_back(pair);
}

/// Arguments: `--rounds=N` (9), `--json=FILE`, `--only=TEXT` for the pairs whose name holds it, and
/// the benchmark library's own. Exit code 1 when a side failed; a missed aim is only marked.
int main(int argc, char** argv) {
    int rounds = 9;
    const char* json = nullptr;
    const char* only = "";
    std::vector<char*> rest;
    for (int i = 0; i < argc; ++i) {
        if (std::strncmp(argv[i], "--rounds=", 9) == 0) {
            rounds = std::atoi(argv[i] + 9);
        } else if (std::strncmp(argv[i], "--json=", 7) == 0) {
            json = argv[i] + 7;
        } else if (std::strncmp(argv[i], "--only=", 7) == 0) {
            only = argv[i] + 7;
        } else {
            rest.push_back(argv[i]);
        }
    }
    char defaultTime[] = "--benchmark_min_time=0.03";
    rest.insert(rest.begin() + 1, defaultTime);
    int restCount = static_cast<int>(rest.size());
    benchmark::Initialize(&restCount, rest.data());
    if (benchmark::ReportUnrecognizedArguments(restCount, rest.data())) return 2;

    std::vector<Result> results;
    bool failed = false;
    for (const PairedBenchmark& pair : Pairs()) {
        if (std::strstr(pair.name, only) == nullptr) continue;
        benchmark::RegisterBenchmark((std::string(pair.name) + " (ours)").c_str(), pair.ours)
            ->UseRealTime();
        if (pair.bare != nullptr) {
            benchmark::RegisterBenchmark((std::string(pair.name) + " (bare)").c_str(), pair.bare)
                ->UseRealTime();
        }
        std::printf("%s ...\n", pair.name);
        std::fflush(stdout);
        results.push_back(RunPair(pair, rounds));
        failed = failed || results.back().failed;
    }
    PrintTable(results);
    if (json != nullptr) WriteJson(results, json);
    return failed ? 1 : 0;
}

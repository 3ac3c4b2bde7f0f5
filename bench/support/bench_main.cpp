// The benchmarks' main: runs every pair, or those asked for, and reports them in a table and as
// JSON.

#include "host/drawing_server.h"
#include "support/pair_runner.h"
#include "support/result_report.h"

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct Options {
    RoundLimits limits;
    std::string json;
    std::string table;
    std::string only;
    std::vector<std::string> rest;  ///< the program's name and what is for the benchmark library
};

Options ReadOptions(int argc, wchar_t** argv) {
    Options options;
    for (int i = 0; i < argc; ++i) {
        char argument[1024] = {};
        WideCharToMultiByte(CP_ACP, 0, argv[i], -1, argument, sizeof argument - 1, nullptr,
                            nullptr);
        if (std::strncmp(argument, "--rounds=", 9) == 0) {
            options.limits.fewestRounds = std::atoi(argument + 9);
        } else if (std::strncmp(argument, "--json=", 7) == 0) {
            options.json = argument + 7;
        } else if (std::strncmp(argument, "--table=", 8) == 0) {
            options.table = argument + 8;
        } else if (std::strncmp(argument, "--only=", 7) == 0) {
            options.only = argument + 7;
        } else {
            options.rest.emplace_back(argument);
        }
    }
    return options;
}

/// False when an argument is left that nobody knows.
bool InitializeLibrary(std::vector<std::string>& arguments) {
    arguments.insert(arguments.begin() + 1, "--benchmark_min_time=0.004");
    std::vector<char*> pointers;
    pointers.reserve(arguments.size());
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    return !benchmark::ReportUnrecognizedArguments(count, pointers.data());
}

/// Log lines go to the standard error too. The C runtime is shared with the modules, and without a
/// buffer each character would be a call of the system.
bool SilenceErrors() {
    return std::freopen("NUL", "w", stderr) != nullptr &&
           std::setvbuf(stderr, nullptr, _IOFBF, 4096) == 0;
}

/// False, and the name is told, when one that is wanted can't be written.
bool WriteFiles(const std::vector<PairResult>& results, const Options& options) {
    if (!options.json.empty() && !WriteJson(results, options.json.c_str())) {
        std::printf("%s can't be written\n", options.json.c_str());
        return false;
    }
    if (options.table.empty()) return true;
    FILE* file = std::fopen(options.table.c_str(), "w");
    if (file == nullptr) {
        std::printf("%s can't be written\n", options.table.c_str());
        return false;
    }
    PrintTable(results, file);
    return std::fclose(file) == 0;
}

/// The program's pairs, those of one area together.
std::vector<PairedBenchmark> PairsByArea() {
    std::vector<PairedBenchmark> pairs = PairedBenchmarks();
    const auto area = [](const PairedBenchmark& pair) {
        return std::string_view(pair.name, std::strcspn(pair.name, "/"));
    };
    std::stable_sort(pairs.begin(), pairs.end(),
                     [&area](const PairedBenchmark& left, const PairedBenchmark& right) {
                         return area(left) < area(right);
                     });
    return pairs;
}

double SecondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace

/// Arguments: `--rounds=N` for at least so many rounds (9), `--json=FILE` and
/// `--table=FILE` for the results, `--only=TEXT` for the pairs whose name holds it, and the
/// benchmark library's own. Exit code 1 when a side failed, no pair was asked for or a file can't
/// be written; a missed aim is only marked.
int wmain(int argc, wchar_t** argv) {
    if (argc == 4 && std::wcscmp(argv[1], L"--drawing-server") == 0) {
        return SilenceErrors() ? ServeDrawings(argv[2], argv[3]) : 2;
    }
    Options options = ReadOptions(argc, argv);
    if (!InitializeLibrary(options.rest) || !SilenceErrors()) return 2;

    std::vector<PairResult> results;
    bool failed = false;
    const auto start = std::chrono::steady_clock::now();
    for (const PairedBenchmark& pair : PairsByArea()) {
        if (std::strstr(pair.name, options.only.c_str()) == nullptr) continue;
        const auto pairStart = std::chrono::steady_clock::now();
        std::printf("%6.1f s  %s ...", SecondsSince(start), pair.name);
        std::fflush(stdout);
        results.push_back(RunPair(pair, options.limits));
        std::printf(" %zu rounds in %.1f s\n", results.back().ours.nanoseconds.size(),
                    SecondsSince(pairStart));
        failed = failed || !results.back().failure.empty();
    }
    std::printf("\n");
    PrintTable(results, stdout);
    std::printf("\n%zu paths in %.1f s\n", results.size(), SecondsSince(start));
    failed = failed || !WriteFiles(results, options);
    return failed || results.empty() ? 1 : 0;
}

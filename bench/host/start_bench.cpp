// drafthost from its start to its prompt beside the start of an empty console program.

#include "support/child_process.h"
#include "support/paired_benchmark.h"
#include "support/piped_program.h"

#include <chrono>
#include <string>

namespace {

constexpr char prompt[] = "Command: ";

void MeasureProgram(benchmark::State& state, const wchar_t* name, bool hasPrompt) {
    const std::wstring path = ProgramFolder() + L"\\" + name;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        PipedProgram program(path);
        const std::string written = program.ReadUpTo(prompt);
        const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(passed.count());
        if ((written.find(prompt) != std::string::npos) != hasPrompt) {
            state.SkipWithError("not as expected");
            break;
        }
    }
}

void OurProgram(benchmark::State& state) {
    MeasureProgram(state, L"drafthost.exe", true);
}

void EmptyProgram(benchmark::State& state) {
    MeasureProgram(state, L"empty_program.exe", false);
}

PairedBenchmark StartToPrompt() {
    PairedBenchmark pair = {"drafthost/start to prompt", OurProgram, EmptyProgram, 0,
                            "an empty console program, start to end"};
    pair.isManuallyTimed = true;
    pair.iterations = 1;
    return pair;
}

const PairedBenchmarkEntry entry(StartToPrompt());

}  // namespace

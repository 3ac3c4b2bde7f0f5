// Loading the module: with its start in the host, and the library alone.

#include "host/host_session.h"
#include "support/paired_benchmark.h"

#include <windows.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <optional>

namespace {

/// Times the load with the module's start; not the unload.
void MeasureStart(benchmark::State& state, const std::wstring& module, bool logs) {
    HostSession::Instance().SwitchLog(logs);
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        std::optional<LoadedModule> loaded(module);
        const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(passed.count());
        loaded.reset();
        // The log library is never shut down, and its files would soon be too many.
        _fcloseall();
    }
}

void OurStart(benchmark::State& state) {
    MeasureStart(state, HostSession::Instance().OurModule(), false);
}

void BareStart(benchmark::State& state) {
    MeasureStart(state, HostSession::Instance().BareModule(), false);
}

void SilentBareStart(benchmark::State& state) {
    MeasureStart(state, HostSession::Instance().SilentBareModule(), false);
}

void OurStartWithLog(benchmark::State& state) {
    MeasureStart(state, HostSession::Instance().OurModule(), true);
}

void BareStartWithLog(benchmark::State& state) {
    MeasureStart(state, HostSession::Instance().BareModule(), true);
}

void MeasureLibrary(benchmark::State& state, const std::wstring& path) {
    HostSession::Instance();
    bool loaded = true;
    for (auto _ : state) {
        HMODULE library = LoadLibraryW(path.c_str());
        loaded = library != nullptr && FreeLibrary(library) && loaded;
    }
    if (!loaded) state.SkipWithError("not loaded");
    state.counters["bytes of the file, stripped"] =
        static_cast<double>(std::filesystem::file_size(path));
}

void OurLibrary(benchmark::State& state) {
    MeasureLibrary(state, ProgramFolder() + L"\\stripped\\KVTCAD.arx");
}

void EmptyLibrary(benchmark::State& state) {
    MeasureLibrary(state, ProgramFolder() + L"\\stripped\\empty.dll");
}

PairedBenchmark Start(const char* name, PairedBenchmark::Side ours, PairedBenchmark::Side bare,
                      double aim, const char* bareCalls) {
    PairedBenchmark pair = {name, ours, bare, aim, bareCalls};
    pair.isManuallyTimed = true;
    return pair;
}

constexpr char calls[] =
    "a module that makes the same registry, probe, file, parse, setting and host calls by hand";

const PairedBenchmarkEntry entries[] = {
    PairedBenchmarkEntry(Start("host/load and start, log off", OurStart, BareStart, 1.10, calls)),
    PairedBenchmarkEntry(Start("host/load and start, log off, bare side silent", OurStart,
                               SilentBareStart, 0, "the same without the log lines")),
    PairedBenchmarkEntry(
        Start("host/load and start, log on", OurStartWithLog, BareStartWithLog, 1.10, calls)),
    PairedBenchmarkEntry({"host/load and unload the library alone",
                          OurLibrary,
                          EmptyLibrary,
                          1.5,
                          "an empty DLL with the same imports",
                          {{"bytes of the file, stripped", 1.5e6}}}),
};

}  // namespace

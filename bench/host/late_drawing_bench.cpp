// The module keeps nothing of a drawing: one after 10,000 others costs what the tenth does.

#include "host/drawing_server.h"
#include "support/paired_benchmark.h"

namespace {

constexpr int timedDrawings = 50;

void Measure(benchmark::State& state, DrawingServer& server) {
    for (auto _ : state)
        state.SetIterationTime(server.OpenDrawings(timedDrawings) / 1e9);
}

void LateDrawings(benchmark::State& state) {
    static DrawingServer& server = []() -> DrawingServer& {
        static DrawingServer made;
        made.OpenDrawings(10000);
        return made;
    }();
    Measure(state, server);
}

void EarlyDrawings(benchmark::State& state) {
    static DrawingServer server;
    server.Reload();
    server.OpenDrawings(9);
    Measure(state, server);
}

PairedBenchmark LateAndEarly() {
    PairedBenchmark pair = {"host/drawing 10,000 against drawing 10", LateDrawings, EarlyDrawings,
                            1.05, "the module's own drawings 10 to 59, loaded anew for each run"};
    pair.isManuallyTimed = true;
    pair.iterations = 1;
    return pair;
}

const PairedBenchmarkEntry entry(LateAndEarly());

}  // namespace

// A drawing opened and closed while the module is loaded, and the LISP function that it defines.

#include "host/host_session.h"
#include "support/paired_benchmark.h"

namespace {

void MeasureDrawing(benchmark::State& state, const std::wstring& module) {
    const std::wstring drawing = HostSession::Instance().FirstDrawing();
    HostSession::Instance().SwitchLog(false);
    const LoadedModule loaded(module);
    bool done = OpenAndClose(drawing);
    for (auto _ : state)
        done = OpenAndClose(drawing) && done;
    if (!done) state.SkipWithError("a drawing was not opened and closed");
}

void OurDrawing(benchmark::State& state) {
    MeasureDrawing(state, HostSession::Instance().OurModule());
}

void BareDrawing(benchmark::State& state) {
    MeasureDrawing(state, HostSession::Instance().BareModule());
}

void SilentBareDrawing(benchmark::State& state) {
    MeasureDrawing(state, HostSession::Instance().SilentBareModule());
}

/// Each iteration is 1,000 calls of the function.
void MeasureCalls(benchmark::State& state, const wchar_t* function) {
    const std::wstring drawing = HostSession::Instance().FirstDrawing();
    const LoadedModule loaded(HostSession::Instance().OurModule());
    bool done = drafthost::OpenDrawing(drawing) == drafthost::OpenResult::Opened &&
                drafthost::EvaluateLisp(L"(defun empty () nil)");
    const std::wstring expression = std::wstring(L"(repeat 1000 (") + function + L"))";
    for (auto _ : state)
        done = drafthost::EvaluateLisp(expression) && done;
    if (!drafthost::CloseDrawing() || !done) state.SkipWithError("not evaluated");
}

void OurCalls(benchmark::State& state) {
    MeasureCalls(state, L"GetKVTPath");
}

void EmptyCalls(benchmark::State& state) {
    MeasureCalls(state, L"empty");
}

const PairedBenchmarkEntry entries[] = {
    PairedBenchmarkEntry({"host/drawing opened and closed", OurDrawing, BareDrawing, 1.10,
                          "probe, queue, define, undefine and one log line by hand"}),
    PairedBenchmarkEntry({"host/drawing opened and closed, bare side silent", OurDrawing,
                          SilentBareDrawing, 0, "the same without the log line"}),
    PairedBenchmarkEntry({"drafthost/1,000 LISP calls of GetKVTPath", OurCalls, EmptyCalls, 0,
                          "1,000 calls of an empty LISP function"}),
};

}  // namespace

// The HTTP client beside the same WinHTTP calls into a string, against a real web server on
// loopback; and its conversion of a body beside the platform's two calls.

#include "support/paired_benchmark.h"

#include "http/bare_request.h"
#include "http/exchange.h"
#include "http/large_body.h"
#include "http/text_conversion.h"
#include "http/win_http_client.h"

#include "support/child_process.h"

#include <cstdlib>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

constexpr wchar_t smallPath[] = L"/1024.txt";
constexpr size_t smallSize = 1024;

template <const wchar_t* Path, size_t Size>
void OurFetch(benchmark::State& state) {
    const std::wstring url = NginxUrl(Path);
    for (auto _ : state) {
        CWinHttp client;
        if (client.Request(url, 0, nullptr, nullptr).size() != Size) {
            state.SkipWithError("another body");
            break;
        }
    }
}

template <const wchar_t* Path, size_t Size>
void BareFetch(benchmark::State& state) {
    const std::wstring host = ServerSetting(L"KVT_NGINX");
    for (auto _ : state) {
        if (BareGet(host.c_str(), Path).size() != Size) {
            state.SkipWithError("another body");
            break;
        }
    }
}

/// By how many times the large body's size the memory of a process rose that fetched it once.
/// Measured at the first call for the side.
double PeakOf(const std::wstring& side) {
    static std::map<std::wstring, double> peaks;
    const auto [entry, isNew] = peaks.try_emplace(side, 0.0);
    if (isNew) {
        const ChildResult child =
            RunChild(L"\"" + ProgramFolder() + L"\\kvt_fetch_peak.exe\" " + side);
        if (child.timedOut || child.exitCode != 0)
            throw std::runtime_error("kvt_fetch_peak failed");
        entry->second = std::strtod(child.output.c_str(), nullptr) / largeSize;
    }
    return entry->second;
}

constexpr char peakFigure[] = "peak memory, in bodies";
constexpr double mostBodies = 4;

void OurLargeGet(benchmark::State& state) {
    OurFetch<largePath, largeSize>(state);
    state.counters[peakFigure] = PeakOf(L"ours");
}

void BareLargeGet(benchmark::State& state) {
    BareFetch<largePath, largeSize>(state);
    state.counters[peakFigure] = PeakOf(L"bare");
}

/// Lines of Chinese and of plain text.
const std::string& LargeText() {
    static const std::string text = [] {
        const std::string lines =
            u8"图层名称：标注，颜色随层。\r\nLayer name: dimensions; by layer.\r\n";
        std::string repeated;
        while (repeated.size() + lines.size() <= largeSize)
            repeated += lines;
        return repeated.append(largeSize - repeated.size(), ' ');
    }();
    return text;
}

void OurConversion(benchmark::State& state) {
    for (auto _ : state) {
        // The client hands its body over; only the copy made here for that isn't its work.
        state.PauseTiming();
        std::string text = LargeText();
        state.ResumeTiming();
        benchmark::DoNotOptimize(Utf8ToAnsi(std::move(text)));
    }
}

void BareConversion(benchmark::State& state) {
    const std::string& text = LargeText();
    for (auto _ : state)
        benchmark::DoNotOptimize(BareUtf8ToAnsi(text));
}

constexpr char getCalls[] =
    "two sessions with time-outs, WinHttpConnect, OpenRequest, AddRequestHeaders, SendRequest, "
    "ReceiveResponse, QueryHeaders, QueryDataAvailable and ReadData into a string, the two "
    "conversions, CloseHandle";

constexpr int onceARun = 1;

const PairedBenchmarkEntry entries[] = {
    PairedBenchmarkEntry({"http/GET 1 KiB", OurFetch<smallPath, smallSize>,
                          BareFetch<smallPath, smallSize>, 1.05, getCalls}),
    PairedBenchmarkEntry({"http/GET 64 MiB",
                          OurLargeGet,
                          BareLargeGet,
                          1.05,
                          getCalls,
                          {{peakFigure, mostBodies}},
                          onceARun}),
    PairedBenchmarkEntry({"http/Utf8ToAnsi 64 MiB",
                          OurConversion,
                          BareConversion,
                          1.05,
                          "MultiByteToWideChar and WideCharToMultiByte, each twice",
                          {},
                          onceARun}),
};

}  // namespace

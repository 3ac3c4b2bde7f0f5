// One line of the log beside one with a prefix callback that writes nothing.

#include "config/application_instance.h"
#include "config/log_setup.h"
#include "support/child_process.h"
#include "support/paired_benchmark.h"
#include "support/temp_folder.h"

#include <glog/logging.h>

#include <windows.h>

#include <filesystem>

namespace {

/// Brings up the log beside a module file in a folder of its own, by our set-up; ends it at the
/// end, so that the other side can begin.
class RunningLog {
  public:
    RunningLog() {
        const std::wstring module = m_folder / L"KVTCAD.arx";
        std::filesystem::copy_file(ProgramFolder() + L"\\stripped\\empty.dll", module);
        g_applicationInstance = LoadLibraryW(module.c_str());
        SetUpLogging("KVTCAD");  // Result ignored: the folder is known.
        FreeLibrary(g_applicationInstance);
        g_applicationInstance = nullptr;
    }
    RunningLog(const RunningLog&) = delete;
    RunningLog& operator=(const RunningLog&) = delete;
    ~RunningLog() { google::ShutdownGoogleLogging(); }

    /// How many bytes the lines have come to.
    std::uintmax_t Size() const {
        const std::wstring path = m_folder / L"Logs\\KVTCAD.INFO.log";
        return std::filesystem::exists(path) ? std::filesystem::file_size(path) : 0;
    }

    /// Begins anew with the same files and flags and another prefix.
    void StartAnew(google::CustomPrefixCallback prefix) {
        google::ShutdownGoogleLogging();
        for (google::LogSeverity severity = 0; severity < google::NUM_SEVERITIES; ++severity) {
            const std::string base =
                FLAGS_log_dir + "/KVTCAD." + google::GetLogSeverityName(severity);
            google::SetLogDestination(severity, base.c_str());
        }
        google::SetLogFilenameExtension(".log");
        google::InitGoogleLogging("KVTCAD", prefix);
    }

  private:
    TempFolder m_folder{L"kvt bench log"};
};

void NoPrefix(std::ostream&, const google::LogMessageInfo&, void*) {}

void MeasureLines(benchmark::State& state, const RunningLog& log) {
    for (auto _ : state)
        LOG(INFO) << "加载lisp文件:"
                  << "C:\\app\\Support\\KVTCAD.vlx";
    if (log.Size() < static_cast<std::uintmax_t>(state.iterations()) * 40)
        state.SkipWithError("lines are missing");
}

void OurLine(benchmark::State& state) {
    const RunningLog log;
    MeasureLines(state, log);
}

void BareLine(benchmark::State& state) {
    RunningLog log;
    log.StartAnew(&NoPrefix);
    MeasureLines(state, log);
}

const PairedBenchmarkEntry entry({"config/one log line", OurLine, BareLine, 1.10,
                                  "a line with a prefix callback that writes nothing"});

}  // namespace

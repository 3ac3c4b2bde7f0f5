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

/// What the log set-up takes for the application's module, in a folder of its own.
class ModuleFile {
  public:
    ModuleFile() {
        const std::wstring path = m_folder / L"KVTCAD.arx";
        std::filesystem::copy_file(ProgramFolder() + L"\\stripped\\empty.dll", path);
        g_applicationInstance = LoadLibraryW(path.c_str());
    }
    ModuleFile(const ModuleFile&) = delete;
    ModuleFile& operator=(const ModuleFile&) = delete;
    ~ModuleFile() {
        FreeLibrary(g_applicationInstance);
        g_applicationInstance = nullptr;
    }

    std::wstring InfoLog() const { return m_folder / L"Logs\\KVTCAD.INFO.log"; }

  private:
    TempFolder m_folder{L"kvt bench log"};
};

/// Brings up the log beside the module file, by our set-up; ends it at the end, so that the other
/// side can begin.
class RunningLog {
  public:
    RunningLog() {
        SetUpLogging("KVTCAD");  // Result ignored: the folder is known.
    }
    RunningLog(const RunningLog&) = delete;
    RunningLog& operator=(const RunningLog&) = delete;
    ~RunningLog() { google::ShutdownGoogleLogging(); }

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
};

const ModuleFile& Module() {
    static const ModuleFile module;
    return module;
}

void NoPrefix(std::ostream&, const google::LogMessageInfo&, void*) {}

void MeasureLines(benchmark::State& state) {
    LOG(INFO) << "the first line opens the file";
    const std::uintmax_t before = std::filesystem::file_size(Module().InfoLog());
    for (auto _ : state)
        LOG(INFO) << "加载lisp文件:"
                  << "C:\\app\\Support\\KVTCAD.vlx";
    const std::uintmax_t written = std::filesystem::file_size(Module().InfoLog()) - before;
    if (written < static_cast<std::uintmax_t>(state.iterations()) * 40) {
        state.SkipWithError("lines are missing");
    }
}

void OurLine(benchmark::State& state) {
    Module();
    const RunningLog log;
    MeasureLines(state);
}

void BareLine(benchmark::State& state) {
    Module();
    RunningLog log;
    log.StartAnew(&NoPrefix);
    MeasureLines(state);
}

const PairedBenchmarkEntry entry({"config/one log line", OurLine, BareLine, 1.10,
                                  "a line with a prefix callback that writes nothing"});

}  // namespace

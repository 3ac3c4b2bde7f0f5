#include "config/log_setup.h"

#include "config/log_file_name.h"
#include "config/log_prefix.h"
#include "host/module_handles.h"
#include "install/path_probe.h"

#include <atlstr.h>

namespace {

void NameLogFiles(const std::string& directory, const std::string& name) {
    // A severity left out would get a file with a stock name in the temporary folder.
    for (google::LogSeverity severity = 0; severity < google::NUM_SEVERITIES; ++severity) {
        const std::string base = LogFileBase(directory, name, google::GetLogSeverityName(severity));
        google::SetLogDestination(severity, base.c_str());
    }
    google::SetLogFilenameExtension(".log");
}

}  // namespace

std::wstring SetUpLogging(const char* name) {
    std::string directory;
    CStringW wideDirectory;
    wideDirectory = GetModuleDirectory(directory, GetApplicationInstance());
    std::wstring logs = wideDirectory.GetString();
    logs += L"\\Logs";

    if (ProbePath(logs) != PathDirectory) {
        CreateDirectoryW(logs.c_str(), nullptr);  // Result ignored: no log is no reason to stop.
    }
    const CStringA narrowLogs(logs.c_str());

    FLAGS_log_dir = narrowLogs.GetString();
    FLAGS_timestamp_in_logfile_name = false;
    FLAGS_v = 5;
    FLAGS_vmodule = static_cast<char>(5);  // Meant: the one character with the code 5, no rule.
    FLAGS_alsologtostderr = true;
    FLAGS_logbufsecs = 0;

    NameLogFiles(FLAGS_log_dir, name);
    google::InitGoogleLogging(name, &FormatLogPrefix, nullptr);
    return logs;
}

const char* GetModuleDirectory(std::string& result, HMODULE module) {
    char path[260] = {};
    GetModuleFileNameA(module, path, sizeof path);  // Result ignored: the buffer then stays empty.
    result = path;
    // Meant: bytes are searched, so a character whose second byte is a backslash cuts like one.
    const size_t separator = result.rfind('\\');
    if (separator != std::string::npos) result.erase(separator);
    return result.c_str();
}

void FormatLogPrefix(std::ostream& stream, const google::LogMessageInfo& line, void* /*data*/) {
    WriteLogPrefix(stream, {line.severity, line.filename, line.line_number, line.time.hour(),
                            line.time.min(), line.time.sec(), line.time.usec()});
}

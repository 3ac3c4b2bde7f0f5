#include "support/log_capture.h"

#include <utility>

LogCapture::LogCapture(std::function<void(const std::string&)> onLine)
    : m_onLine(std::move(onLine)) {
    google::AddLogSink(this);
}

LogCapture::~LogCapture() {
    google::RemoveLogSink(this);
}

void LogCapture::send(google::LogSeverity severity, const char*, const char*, int,
                      const google::LogMessageTime&, const char* message, size_t length) {
    m_lines.emplace_back(message, length);
    if (severity != google::GLOG_INFO) m_onlyInfo = false;
    if (m_onLine) m_onLine(m_lines.back());
}

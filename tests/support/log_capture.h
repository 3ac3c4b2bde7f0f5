#pragma once

#include <glog/logging.h>

#include <functional>
#include <string>
#include <vector>

/// Collects what the code under test logs, for the life of this object. Lines still go where the
/// library sends them besides.
class LogCapture : private google::LogSink {
  public:
    /// `onLine` (may be empty) is called at each line, on the logging thread.
    explicit LogCapture(std::function<void(const std::string&)> onLine = {});
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;
    ~LogCapture() override;

    /// The messages without prefix and line end, as bytes.
    const std::vector<std::string>& Lines() const { return m_lines; }

    /// Whether every line so far had the severity INFO.
    bool OnlyInfo() const { return m_onlyInfo; }

  private:
    void send(google::LogSeverity severity, const char* fullFileName, const char* baseFileName,
              int line, const google::LogMessageTime& time, const char* message,
              size_t length) override;

    std::function<void(const std::string&)> m_onLine;
    std::vector<std::string> m_lines;
    bool m_onlyInfo = true;
};

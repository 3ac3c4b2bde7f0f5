#pragma once

#include <ostream>

/// What a log line's prefix is made of.
struct LogPrefix {
    const char* severity;  ///< "INFO", "WARNING", "ERROR" or "FATAL"
    const char* file;      ///< the source file's base name
    int line;
    int hour;
    int minute;
    int second;
    int microseconds;
};

/// Writes "[INFO    10:20:30.123456]"; any severity but "INFO" has the file and line ahead of the
/// "]". No blank behind it.
///
/// The numbers are left-justified and filled up with "0" on their right, so that hour 9 reads "90"
/// and minute 5 reads "50". The stream keeps the justification and fill that it is left with.
void WriteLogPrefix(std::ostream& stream, const LogPrefix& prefix);

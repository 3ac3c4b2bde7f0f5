#include "config/log_prefix.h"

#include <cstring>
#include <iomanip>

void WriteLogPrefix(std::ostream& stream, const LogPrefix& prefix) {
    // The log library hands the stream over with the fill "0".
    stream << '[' << std::setfill(' ') << std::left << std::setw(7) << prefix.severity << ' ';

    // Meant: still left-justified, so that minute 5 reads "50".
    stream << std::setfill('0') << std::setw(2) << prefix.hour << ':' << std::setw(2)
           << prefix.minute << ':' << std::setw(2) << prefix.second << '.' << std::setw(6)
           << prefix.microseconds;

    if (std::strcmp(prefix.severity, "INFO") != 0) {
        stream << ' ' << prefix.file << ':' << prefix.line;
    }
    stream << ']';
}

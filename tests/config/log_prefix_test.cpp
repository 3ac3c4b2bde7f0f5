#include "config/log_prefix.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

std::string Text(const LogPrefix& prefix) {
    std::ostringstream stream;
    WriteLogPrefix(stream, prefix);
    return stream.str();
}

}  // namespace

TEST(LogPrefix, IsLaidOutFieldByField) {
    struct Row {
        const char* why;
        LogPrefix prefix;
        const char* text;
    };
    constexpr Row rows[] = {
        {"full fields", {"INFO", "a.cpp", 1, 14, 30, 27, 512345}, "[INFO    14:30:27.512345]"},
        {"short numbers keep their digits at the left",
         {"INFO", "a.cpp", 1, 9, 5, 7, 512},
         "[INFO    90:50:70.512000]"},
        {"minute 3", {"INFO", "a.cpp", 1, 14, 3, 27, 512345}, "[INFO    14:30:27.512345]"},
        {"7 microseconds", {"INFO", "a.cpp", 1, 10, 0, 0, 7}, "[INFO    10:00:00.700000]"},
        {"all zero", {"INFO", "a.cpp", 1, 0, 0, 0, 0}, "[INFO    00:00:00.000000]"},
        {"WARNING fills its field, and shows file and line",
         {"WARNING", "a.cpp", 12, 1, 2, 3, 4},
         "[WARNING 10:20:30.400000 a.cpp:12]"},
        {"ERROR is padded by two blanks",
         {"ERROR", "b.cpp", 7, 23, 59, 59, 999999},
         "[ERROR   23:59:59.999999 b.cpp:7]"},
        {"FATAL", {"FATAL", "c.cpp", 1000, 12, 0, 0, 0}, "[FATAL   12:00:00.000000 c.cpp:1000]"},
        {"only INFO, letter by letter, hides file and line",
         {"INFOS", "d.cpp", 2, 12, 0, 0, 0},
         "[INFOS   12:00:00.000000 d.cpp:2]"},
        {"in another case too",
         {"info", "d.cpp", 2, 12, 0, 0, 0},
         "[info    12:00:00.000000 d.cpp:2]"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Text(row.prefix), row.text) << row.why;
}

TEST(LogPrefix, PadsTheSeverityWithBlanksWhateverTheFillWas) {
    std::ostringstream stream;
    stream.fill('0');
    stream.setf(std::ios::right, std::ios::adjustfield);

    WriteLogPrefix(stream, {"INFO", "a.cpp", 1, 9, 5, 7, 512});

    EXPECT_EQ(stream.str(), "[INFO    90:50:70.512000]");
}

TEST(LogPrefix, LeavesFillAndJustificationBehind) {
    std::ostringstream stream;

    WriteLogPrefix(stream, {"WARNING", "a.cpp", 1, 9, 5, 7, 512});

    EXPECT_EQ(stream.fill(), '0');
    EXPECT_EQ(stream.flags() & std::ios::adjustfield, std::ios::left);
}

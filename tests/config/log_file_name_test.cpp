#include "config/log_file_name.h"

#include <gtest/gtest.h>

TEST(LogFileBase, JoinsFolderNameAndSeverityByOneForwardSlash) {
    EXPECT_EQ(LogFileBase("C:\\KVT 设计\\Logs", "KVTCAD", "INFO"),
              "C:\\KVT 设计\\Logs/KVTCAD.INFO");
    EXPECT_EQ(LogFileBase("C:\\Logs", "KVTCAD", "FATAL"), "C:\\Logs/KVTCAD.FATAL");
}

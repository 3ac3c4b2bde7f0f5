#include "install/lisp_expression.h"

#include <gtest/gtest.h>

TEST(LispFilePath, IsTheLocationAndAFixedEnd) {
    EXPECT_EQ(LispFilePath(L"C:\\app"), L"C:\\app\\Support\\KVTCAD.vlx");
    EXPECT_EQ(LispFilePath(L"D:\\工程 目录\\"), L"D:\\工程 目录\\\\Support\\KVTCAD.vlx");
    EXPECT_EQ(LispFilePath(L""), L"\\Support\\KVTCAD.vlx");
}

TEST(LispLoadExpression, NamesThePathBetweenPlainQuotes) {
    EXPECT_EQ(LispLoadExpression(L"C:/app/Support/KVTCAD.vlx"),
              L"(LOAD \"C:/app/Support/KVTCAD.vlx\")");
    EXPECT_EQ(LispLoadExpression(L"D:/工程 50%s/a.vlx"), L"(LOAD \"D:/工程 50%s/a.vlx\")");
}

TEST(LispLoadExpression, MeantAQuoteInThePathIsNotEscaped) {
    EXPECT_EQ(LispLoadExpression(L"C:/a\"b"), L"(LOAD \"C:/a\"b\")");
}

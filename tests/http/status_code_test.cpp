#include "http/status_code.h"

#include <gtest/gtest.h>

TEST(ParseStatusCode, ReadsADecimalNumber) {
    struct Row {
        const char* why;
        const wchar_t* text;
        uint32_t status;
    };
    constexpr Row rows[] = {
        {"success", L"200", 200},
        {"the special one", L"404", 404},
        {"no octal", L"0404", 404},
        {"no hexadecimal", L"0x194", 0},
        {"empty", L"", 0},
        {"no number", L"OK", 0},
        {"more behind the number", L"200 OK", 200},
        {"blank ahead", L" 204", 204},
        {"largest of 32 bits", L"4294967295", 4294967295u},
    };

    for (const Row& row : rows) {
        EXPECT_EQ(ParseStatusCode(row.text), row.status) << row.why;
    }
}

#include "runtime/host/command_name.h"

#include <gtest/gtest.h>

TEST(CommandName, MarksAreTakenOff) {
    struct Row {
        const wchar_t* why;
        const wchar_t* typed;
        const wchar_t* withoutMarks;
        const wchar_t* withoutTransparentMark;
    };
    constexpr Row rows[] = {
        {L"nothing ahead", L"LINE", L"LINE", L"LINE"},
        {L"global name", L"_LINE", L"LINE", L"_LINE"},
        {L"original command", L".LINE", L"LINE", L".LINE"},
        {L"transparent", L"'LINE", L"LINE", L"LINE"},
        {L"all at once", L"'_.LINE", L"LINE", L"_.LINE"},
        {L"the other way round", L"._LINE", L"LINE", L"._LINE"},
        {L"marks within the name stay", L"_A_B.C'", L"A_B.C'", L"_A_B.C'"},
        {L"marks alone", L"'_.", L"", L"_."},
        {L"empty", L"", L"", L""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(drafthost::WithoutCommandMarks(row.typed), row.withoutMarks)
            << testing::PrintToString(row.why);
        EXPECT_EQ(drafthost::WithoutTransparentMark(row.typed), row.withoutTransparentMark)
            << testing::PrintToString(row.why);
    }
}

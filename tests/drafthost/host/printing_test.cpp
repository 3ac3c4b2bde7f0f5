#include "captured_output.h"

#include "acutads.h"

#include <gtest/gtest.h>

TEST(AcutPrintf, FormatsByTheRulesOfTheWideRuntime) {
    const CapturedOutput output;

    EXPECT_EQ(acutPrintf(L"\n%s %d %.2f %c %hs 100%%", L"中文", -5, 1.5, L'x', "narrow"), RTNORM);

    EXPECT_EQ(output.Text(), L"\n中文 -5 1.50 x narrow 100%");
}

TEST(AcutPrintf, TakesTextOfAnyLength) {
    const CapturedOutput output;
    const std::wstring text(100000, L'长');

    EXPECT_EQ(acutPrintf(L"%s", text.c_str()), RTNORM);

    EXPECT_EQ(output.Text(), text);
}

TEST(AcutPrintf, OfNothingShowsNothing) {
    const CapturedOutput output;

    EXPECT_EQ(acutPrintf(L""), RTNORM);
    EXPECT_EQ(acutPrintf(nullptr), RTERROR);

    EXPECT_EQ(output.Text(), L"");
}

TEST(CommandLine, ALineOfItsOwnBeginsANewOneOnlyIfNeeded) {
    const CapturedOutput output;
    drafthost::Print(L"start\n");
    drafthost::PrintLine(L"one");
    drafthost::Print(L"open");
    drafthost::PrintLine(L"two");
    drafthost::StartNewLine();

    EXPECT_EQ(output.Text(), L"start\none\nopen\ntwo\n");
}

#include "kvtfetch/command_line.h"

#include "kvtfetch/ending.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

TEST(KvtfetchCommandLine, TakesAUrlAlone) {
    const CommandLine line = ParseCommandLine({L"http://a.example/图纸?q=1"});

    EXPECT_FALSE(line.exitCode);
    EXPECT_EQ(line.options.url, L"http://a.example/图纸?q=1");
    EXPECT_FALSE(line.options.body);
    EXPECT_FALSE(line.options.headers);
    EXPECT_FALSE(line.options.timeout);
}

TEST(KvtfetchCommandLine, TakesEveryOptionInAnyOrder) {
    const CommandLine line =
        ParseCommandLine({L"--header", L"X-One: 一", L"--post", L"正文", L"--timeout", L"250",
                          L"a.example", L"--header", L"X-Two: 2"});

    EXPECT_FALSE(line.exitCode) << line.errors;
    EXPECT_EQ(line.options.url, L"a.example");
    EXPECT_EQ(line.options.body, u8"正文");
    EXPECT_EQ(line.options.headers, L"X-One: 一\r\nX-Two: 2");
    EXPECT_EQ(line.options.timeout, 250u);
}

TEST(KvtfetchCommandLine, TellsAnEmptyBodyAndZeroFromNone) {
    const CommandLine line = ParseCommandLine({L"a.example", L"--post", L"", L"--timeout", L"0"});

    EXPECT_FALSE(line.exitCode) << line.errors;
    EXPECT_EQ(line.options.body, "");
    EXPECT_EQ(line.options.timeout, 0u);
}

TEST(KvtfetchCommandLine, RefusesWhatItDoesNotUnderstand) {
    const std::vector<std::vector<std::wstring>> wrong = {
        {},
        {L"a.example", L"b.example"},
        {L"a.example", L"--post"},
        {L"a.example", L"--header"},
        {L"a.example", L"--timeout", L"soon"},
        {L"a.example", L"--timeout", L"-1"},
        {L"a.example", L"--timeout", L"4294967296"},
        {L"a.example", L"--retry"},
    };

    for (const std::vector<std::wstring>& arguments : wrong) {
        const CommandLine line = ParseCommandLine(arguments);
        EXPECT_EQ(line.exitCode, exitUsage);
        EXPECT_EQ(line.output, "");
        EXPECT_NE(line.errors, "");
    }
}

TEST(KvtfetchCommandLine, ShowsOptionsAndExitCodesAsHelp) {
    const CommandLine line = ParseCommandLine({L"--help"});

    EXPECT_EQ(line.exitCode, 0);
    EXPECT_EQ(line.errors, "");
    for (const char* part : {"URL", "--post", "--header", "--timeout"}) {
        EXPECT_THAT(line.output, HasSubstr(part));
    }
    EXPECT_THAT(line.output, HasSubstr(ExitCodeList()));
}

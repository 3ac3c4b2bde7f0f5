#include "app/options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using drafthost::ExitCode;
using drafthost::ParseOptions;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Options, WithoutArgumentsThePromptIsReady) {
    const auto parsed = ParseOptions({});

    EXPECT_TRUE(parsed.isToRun);
    EXPECT_THAT(parsed.options.modules, IsEmpty());
    EXPECT_THAT(parsed.options.drawings, IsEmpty());
    EXPECT_THAT(parsed.options.scripts, IsEmpty());
    EXPECT_EQ(parsed.options.profile, L"Default");
    EXPECT_FALSE(parsed.options.isVerbose || parsed.options.isStrict ||
                 parsed.options.stopsOnError || parsed.options.goesOnAtPrompt);
}

TEST(Options, FilesAreTakenInTheirOrder) {
    const auto parsed = ParseOptions(
        {L"--open", L"二 b.dwg", L"--load", L"x.arx", L"--open", L"a.dwg", L"--script", L"s.scr"});

    EXPECT_TRUE(parsed.isToRun);
    EXPECT_THAT(parsed.options.drawings, ElementsAre(L"二 b.dwg", L"a.dwg"));
    EXPECT_THAT(parsed.options.modules, ElementsAre(L"x.arx"));
    EXPECT_THAT(parsed.options.scripts, ElementsAre(L"s.scr"));
}

TEST(Options, FlagsAndProfile) {
    const auto parsed = ParseOptions(
        {L"--verbose", L"--strict", L"--stop-on-error", L"--prompt", L"--profile", L"我的"});

    EXPECT_TRUE(parsed.options.isVerbose);
    EXPECT_TRUE(parsed.options.isStrict);
    EXPECT_TRUE(parsed.options.stopsOnError);
    EXPECT_TRUE(parsed.options.goesOnAtPrompt);
    EXPECT_EQ(parsed.options.profile, L"我的");
}

TEST(Options, AFileTakesOneArgument) {
    EXPECT_EQ(ParseOptions({L"--open", L"a.dwg", L"b.dwg"}).exitCode, ExitCode::UsageError);
    EXPECT_EQ(ParseOptions({L"--open"}).exitCode, ExitCode::UsageError);
}

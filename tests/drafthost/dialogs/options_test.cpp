#include "app/options.h"

#include <gtest/gtest.h>

using drafthost::DialogAnswer;
using drafthost::ExitCode;
using drafthost::ParseOptions;

TEST(DialogOptions, AreOffUnlessGiven) {
    const auto parsed = ParseOptions({});

    ASSERT_TRUE(parsed.isToRun);
    EXPECT_TRUE(parsed.options.pictureFolder.empty());
    EXPECT_FALSE(parsed.options.answer.has_value());
    EXPECT_EQ(parsed.options.dialogDeadline, std::chrono::seconds(20));
}

TEST(DialogOptions, AreTaken) {
    const auto ok = ParseOptions({L"--capture", L"图片", L"--answer", L"ok"});
    const auto close = ParseOptions({L"--answer", L"close", L"--dialog-deadline", L"3"});

    EXPECT_EQ(ok.options.pictureFolder, L"图片");
    EXPECT_EQ(ok.options.answer, DialogAnswer::Ok);
    EXPECT_EQ(close.options.answer, DialogAnswer::Close);
    EXPECT_EQ(close.options.dialogDeadline, std::chrono::seconds(3));
}

TEST(DialogOptions, RefuseOtherValues) {
    for (const std::vector<std::wstring>& arguments :
         {std::vector<std::wstring>{L"--answer", L"no"},
          {L"--answer"},
          {L"--capture"},
          {L"--dialog-deadline", L"0"},
          {L"--dialog-deadline", L"soon"}}) {
        const auto parsed = ParseOptions(arguments);

        EXPECT_FALSE(parsed.isToRun) << testing::PrintToString(arguments);
        EXPECT_EQ(parsed.exitCode, ExitCode::UsageError) << testing::PrintToString(arguments);
    }
}

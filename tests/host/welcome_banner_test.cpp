#include "host/welcome_banner.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<std::wstring> Lines(const std::wstring& text) {
    std::vector<std::wstring> lines(1);
    for (const wchar_t character : text) {
        if (character == L'\n') {
            lines.emplace_back();
        } else {
            lines.back() += character;
        }
    }
    return lines;
}

bool BeginsWith(const std::wstring& text, const std::wstring& start) {
    return text.compare(0, start.size(), start) == 0;
}

}  // namespace

TEST(WelcomeBanner, HasItsLinesInOrder) {
    const std::vector<std::wstring> lines = Lines(WelcomeBanner(L"2.1.7"));

    ASSERT_EQ(lines.size(), 8u);
    EXPECT_EQ(lines[0], L"");
    EXPECT_EQ(lines[1], L"*******************************************************");
    EXPECT_EQ(lines[2], L"欢迎使用《KVT CAD辅助设计软件》2.1.7 ");
    EXPECT_TRUE(BeginsWith(lines[3], L"官方网站:"));
    EXPECT_TRUE(BeginsWith(lines[4], L"技术支持:"));
    EXPECT_NE(lines[5].find(L"Brennvik"), std::wstring::npos);
    EXPECT_EQ(lines[6], L"");
    EXPECT_EQ(lines[7], L"*******************************************************");
}

TEST(WelcomeBanner, AnEmptyVersionLeavesTheBlank) {
    EXPECT_NE(WelcomeBanner(L"").find(L"《KVT CAD辅助设计软件》 \n官方网站"), std::wstring::npos);
}

TEST(WelcomeBanner, OnlyTheVersionBringsPercentSigns) {
    EXPECT_EQ(WelcomeBanner(L"1.0").find(L'%'), std::wstring::npos);
    EXPECT_NE(WelcomeBanner(L"50%d").find(L"50%d \n"), std::wstring::npos);
}

#include <atlstr.h>

#include <gtest/gtest.h>

namespace {

// Narrow literals are in code page 936, in which the tests run.

constexpr wchar_t unknownToTheCodePage[] = L"a😀b";
constexpr char invalidInTheCodePage[] = "a\x81";

TEST(CStringText, PassesBetweenTheCodePageAndUtf16) {
    CStringA narrow(L"设计 KVT");
    CStringW wide("设计 KVT");
    EXPECT_STREQ(narrow, "设计 KVT");
    EXPECT_STREQ(wide, L"设计 KVT");

    narrow = L"图纸";
    wide = "图纸";

    EXPECT_STREQ(narrow, "图纸");
    EXPECT_EQ(narrow.GetLength(), 4) << "bytes";
    EXPECT_STREQ(wide, L"图纸");
    EXPECT_EQ(wide.GetLength(), 2);
}

TEST(CStringText, TakesItsOwnKindAsItIs) {
    CStringW wide(unknownToTheCodePage);
    CStringA narrow(invalidInTheCodePage);

    EXPECT_STREQ(wide.GetString(), unknownToTheCodePage);
    EXPECT_STREQ(narrow.GetString(), invalidInTheCodePage);

    wide = L"b";
    narrow = "b";

    EXPECT_STREQ(wide.GetString(), L"b");
    EXPECT_STREQ(narrow.GetString(), "b");
}

TEST(CStringText, ANullPointerIsTheEmptyText) {
    const char* const noBytes = nullptr;
    const wchar_t* const noText = nullptr;
    EXPECT_STREQ(CStringA(noBytes), "");
    EXPECT_STREQ(CStringA(noText), "");
    EXPECT_STREQ(CStringW(noBytes), L"");
    EXPECT_STREQ(CStringW(noText), L"");

    CStringW text(L"before");
    text = noText;
    EXPECT_STREQ(text, L"");
    text = L"before";
    text = noBytes;
    EXPECT_STREQ(text, L"");
}

TEST(CStringText, WhatTheOtherKindLacksBecomesTheDefaultCharacter) {
    EXPECT_STREQ(CStringA(unknownToTheCodePage), "a??b");
    EXPECT_STREQ(CStringW(invalidInTheCodePage), L"a?");
}

TEST(CStringText, FormatsTextOfItsOwnKind) {
    CStringW wide(L"before");
    CStringA narrow("before");

    wide.Format(L"%s\\%s %d", L"图纸", L"x64", -7);
    narrow.Format("%s 100%%", "图纸");

    EXPECT_STREQ(wide, L"图纸\\x64 -7");
    EXPECT_STREQ(narrow, "图纸 100%");
}

TEST(CStringText, FormatsItself) {
    CStringW text(L"设计");

    text.Format(L"<%s|%s>", text.GetString(), text.GetString());

    EXPECT_STREQ(text, L"<设计|设计>");
}

TEST(CStringText, FormatsAnyLength) {
    const std::wstring longText(100000, L'文');
    CStringW text;

    text.Format(L"%s.", longText.c_str());
    EXPECT_EQ(text.GetString(), longText + L".");
    EXPECT_EQ(text.GetLength(), 100001);

    text.Format(L"%s", L"");
    EXPECT_STREQ(text, L"");
    EXPECT_EQ(text.GetLength(), 0);
}

TEST(CStringText, IsComparedByItsText) {
    const std::wstring same = L"设计";

    EXPECT_TRUE(CStringW(L"设计") == CStringW(same.c_str()));
    EXPECT_TRUE(CStringW(L"设计") == same.c_str());
    EXPECT_TRUE(CStringW(L"设计") != CStringW(L"设"));
    EXPECT_TRUE(CStringW(L"设计") != L"设");
}

}  // namespace

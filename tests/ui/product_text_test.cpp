#include "ui/product_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <vector>

namespace {

std::vector<std::wstring> Lines(const std::wstring& text) {
    std::vector<std::wstring> lines(1);
    for (const wchar_t character : text) {
        if (character == L'\r') {
            lines.emplace_back();
        } else {
            lines.back() += character;
        }
    }
    return lines;
}

TEST(ProductText, HasSevenLinesPartedBySingleCarriageReturns) {
    const std::wstring text = ProductText(L"2.1.0");

    EXPECT_EQ(text.find(L'\n'), std::wstring::npos);
    const std::vector<std::wstring> expected = {
        L"KVT CAD辅助设计软件",  L"2.1.0",         L"", L"Brennvik", L"",
        L"© 2019-2026 版权所有", L"保留所有权利。"};
    EXPECT_EQ(Lines(text), expected);
}

struct Row {
    const char* why;
    const wchar_t* version;
};
const std::wstring longVersion(5000, L'9');
const Row rows[] = {
    {"empty: its line stays", L""},
    {"Chinese", L"二〇二六年版"},
    {"percent signs are plain text", L"100%s%d%n%"},
    {"longer than any buffer", longVersion.c_str()},
};

TEST(ProductText, TakesTheVersionAsItIs) {
    const std::vector<std::wstring> plain = Lines(ProductText(L"1"));
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);

        std::vector<std::wstring> lines = Lines(ProductText(row.version));

        ASSERT_EQ(lines.size(), 7u);
        EXPECT_EQ(lines[1], row.version);
        lines[1] = L"1";
        EXPECT_EQ(lines, plain) << "the other lines stay in their places";
    }
}

}  // namespace

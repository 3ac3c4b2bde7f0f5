#include "app/line_source.h"

#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::wstring> AllLines(drafthost::LineSource& source) {
    std::vector<std::wstring> lines;
    while (auto line = source.NextLine())
        lines.push_back(*line);
    return lines;
}

std::vector<std::wstring> LinesOfScript(const std::string& bytes) {
    const TempFolder folder(L"脚本 folder");
    WriteFileBytes(folder / L"行 lines.scr", bytes);
    return AllLines(*drafthost::OpenScript(folder / L"行 lines.scr"));
}

}  // namespace

TEST(TextLines, EndAtEitherKindOfLineEnd) {
    drafthost::TextLines lines(L"one\ntwo\r\n\nfour");

    EXPECT_THAT(AllLines(lines), ElementsAre(L"one", L"two", L"", L"four"));
    EXPECT_FALSE(lines.ShowsTyping());
}

TEST(TextLines, ALineEndAtTheEndBeginsNoFurtherLine) {
    drafthost::TextLines lines(L"one\n");

    EXPECT_THAT(AllLines(lines), ElementsAre(L"one"));
}

TEST(Script, IsUtf8WithOrWithoutAMark) {
    EXPECT_THAT(LinesOfScript("\xE4\xB8\xAD\xE6\x96\x87\n"), ElementsAre(L"中文"));
    EXPECT_THAT(LinesOfScript("\xEF\xBB\xBF\xE4\xB8\xAD\n"), ElementsAre(L"中"));
}

TEST(Script, ThatIsNoUtf8IsInTheAnsiCodePage) {
    EXPECT_THAT(LinesOfScript("\xD6\xD0\xCE\xC4\n"), ElementsAre(L"中文"));
}

TEST(Script, MayBeEmpty) {
    EXPECT_THAT(LinesOfScript(""), IsEmpty());
}

TEST(Script, ThatIsMissingGivesNoSource) {
    EXPECT_EQ(drafthost::OpenScript(L"C:\\nothing.scr"), nullptr);
}

#include "runtime/host/search_path.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using drafthost::SearchCandidates;
using drafthost::SplitSearchPath;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(SplitSearchPath, TakesFoldersBetweenSemicolons) {
    EXPECT_THAT(SplitSearchPath(L"C:\\a;D:\\b c"), ElementsAre(L"C:\\a", L"D:\\b c"));
}

TEST(SplitSearchPath, DropsEmptyItemsBlanksAndEndingSlashes) {
    EXPECT_THAT(SplitSearchPath(L";; C:\\a\\ ;D:/b/; ;"), ElementsAre(L"C:\\a", L"D:\\b"));
}

TEST(SplitSearchPath, LeavesTheSlashOfARoot) {
    EXPECT_THAT(SplitSearchPath(L"C:\\;\\"), ElementsAre(L"C:\\", L"\\"));
}

TEST(SplitSearchPath, OfAnEmptyListIsEmpty) {
    EXPECT_THAT(SplitSearchPath(L""), IsEmpty());
}

TEST(SearchCandidates, GoFromTheWorkingFolderToTheDrawingAndAlongTheList) {
    EXPECT_THAT(SearchCandidates(L"x.lsp", L"D:\\drawings\\", L"C:\\a;C:\\"),
                ElementsAre(L"x.lsp", L"D:\\drawings\\x.lsp", L"C:\\a\\x.lsp", L"C:\\x.lsp"));
}

TEST(SearchCandidates, WithoutADrawingsFolderItIsLeftOut) {
    EXPECT_THAT(SearchCandidates(L"x.lsp", L"", L"C:\\a"), ElementsAre(L"x.lsp", L"C:\\a\\x.lsp"));
}

TEST(SearchCandidates, ARootedPathStandsAlone) {
    for (const wchar_t* path : {L"C:\\x.lsp", L"C:x.lsp", L"\\x.lsp", L"\\\\server\\x.lsp"}) {
        EXPECT_THAT(SearchCandidates(path, L"D:\\drawings\\", L"C:\\a"), ElementsAre(path));
    }
}

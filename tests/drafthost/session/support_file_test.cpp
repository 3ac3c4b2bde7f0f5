// Files that LISP finds: beside the drawing and along the setting ACAD.

#include "host_run.h"

#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

TEST(FindFile, LooksBesideTheDrawingAheadOfTheSearchPath) {
    const TempFolder folder(L"查找 files");
    WriteFileBytes(folder / L"drawings\\a.dwg", "");
    WriteFileBytes(folder / L"drawings\\both.lsp", "(princ \"\\nbeside\")");
    WriteFileBytes(folder / L"support\\both.lsp", "(princ \"\\npath\")");
    WriteFileBytes(folder / L"support\\only.lsp", "(princ \"\\nonly\")");

    const HostRun run(L"--open \"" + (folder / L"drawings\\a.dwg") + L"\"",
                      L"ENV ACAD=C:\\nowhere; " + (folder / L"support\\") +
                          L" \n(load \"both\")\n(load \"only\")\n(princ (findfile \"only.lsp\"))\n"
                          L"(findfile \"none.lsp\")\nQUIT\n");

    EXPECT_TRUE(run.HasLine(L"beside"));
    EXPECT_TRUE(run.HasLine(L"only"));
    EXPECT_TRUE(run.HasLine(folder / L"support\\only.lsp"));
    EXPECT_THAT(run.Output(), HasSubstr(L"(findfile \"none.lsp\")\nnil\n"));
}

TEST(FindFile, TakesAFullPathWithSlashes) {
    const TempFolder folder;
    WriteFileBytes(folder / L"a.lsp", "(princ \"\\nloaded\")");
    std::wstring path = folder / L"a.lsp";
    for (wchar_t& character : path)
        character = character == L'\\' ? L'/' : character;

    const HostRun run(L"", L"(load \"" + path + L"\")\nQUIT\n");

    EXPECT_TRUE(run.HasLine(L"loaded"));
}

TEST(FindFile, DoesntTakeAFolderForAFile) {
    const TempFolder folder;
    WriteFileBytes(folder / L"folder.lsp\\inside.txt", "");

    const HostRun run(L"", L"ENV ACAD=" + folder.Path() + L"\n(findfile \"folder.lsp\")\nQUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"(findfile \"folder.lsp\")\nnil\n"));
}

TEST(FindFile, TheDefaultSearchPathIsTheSupportFolderBesideTheProgram) {
    const HostRun run(L"", L"(getenv \"ACAD\")\nQUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"\\\\Support;\"\n"));
}

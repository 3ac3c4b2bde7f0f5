// Files that LISP finds: beside the drawing and along the setting ACAD.

#include "host_run.h"

#include "support/occurrences.h"
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

namespace {

/// A folder with start-up files and drawings, which are found beside the drawings.
class StartUp : public testing::Test {
  protected:
    StartUp() {
        WriteFileBytes(folder / L"a.dwg", "");
        WriteFileBytes(folder / L"b.dwg", "");
    }

    HostRun Run(const std::wstring& options, const std::wstring& input) const {
        return HostRun(options + L" --open \"" + (folder / L"a.dwg") + L"\" --open \"" +
                           (folder / L"b.dwg") + L"\"",
                       input);
    }

    TempFolder folder{L"启动 files"};
};

}  // namespace

TEST_F(StartUp, FilesComeInTheirOrderAheadOfWhatModulesQueue) {
    WriteFileBytes(folder / L"acad.lsp", "(princ \"\\n[acad]\") (defun s::startup () 1)");
    WriteFileBytes(folder / L"acaddoc.lsp",
                   "(princ (strcat \"\\n[doc \" (getvar \"DWGNAME\") \"]\"))"
                   "(defun s::startup () (princ (strcat \"\\n[startup \" (getvar \"DWGNAME\") "
                   "\"]\")) 5)");

    const HostRun run = Run(LoadOption(L"recorder"), L"QUIT\n");

    EXPECT_THAT(run.Output(), HasSubstr(L"[kLoadDwgMsg a.dwg]\n[acad]\n[doc a.dwg]\n"
                                        L"[startup a.dwg]\nqueued for a.dwg\n"));
    EXPECT_THAT(run.Output(), HasSubstr(L"[kLoadDwgMsg b.dwg]\n[doc b.dwg]\n"
                                        L"[startup b.dwg]\nqueued for b.dwg\n"));
}

TEST_F(StartUp, TheFirstFileIsForEveryDrawingWhenItsVariableSaysSo) {
    WriteFileBytes(folder / L"acad.lsp", "(princ \"\\n[acad]\") (setvar \"ACADLSPASDOC\" 1)");

    const HostRun run = Run(L"", L"QUIT\n");

    EXPECT_EQ(Occurrences(run.Output(), L"[acad]"), 2u);
}

TEST_F(StartUp, AnErrorIsShownAndTheSessionGoesOn) {
    WriteFileBytes(folder / L"acaddoc.lsp", "(defun s::startup () (car 5)) (car 6)");

    const HostRun run = Run(L"", L"(+ 1 1)\nQUIT\n");

    EXPECT_EQ(Occurrences(run.Output(), L"; error: bad argument type: consp 6\n"), 2u);
    EXPECT_EQ(Occurrences(run.Output(), L"; error: bad argument type: consp 5\n"), 2u);
    EXPECT_TRUE(run.HasLine(L"2"));
}

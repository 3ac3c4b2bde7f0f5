#include "drafthost/lisp/test_host.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

using namespace drafthost;

TEST(LispModules, AreListedLoadedAndUnloaded) {
    TestHost host;
    LispInterpreter interpreter(host);
    struct Row {
        const char* why;
        const wchar_t* expression;
        const wchar_t* shown;
    };
    const Row rows[] = {
        {"none is loaded", L"(arx)", L"nil"},
        {"loaded", L"(arxload \"good.arx\")", L"\"good.arx\""},
        {"listed", L"(arx)", L"(\"good.arx\")"},
        {"can't be loaded", L"(arxload \"bad.arx\")", L"; error: ARXLOAD failed: \"bad.arx\""},
        {"a value instead", L"(arxload \"bad.arx\" 'failed)", L"FAILED"},
        {"unloaded", L"(arxunload \"good.arx\" 'failed)", L"\"good.arx\""},
        {"not listed any more", L"(arx)", L"nil"},
        {"can't be unloaded", L"(arxunload \"good.arx\")",
         L"; error: ARXUNLOAD failed: \"good.arx\""},
        {"a value instead", L"(arxunload \"good.arx\" nil)", L"nil"},
        {"no name", L"(arxload 5)", L"; error: bad argument type: stringp 5"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Shown(interpreter, row.expression), row.shown) << row.why;
}

namespace {

class LispAutoLoad : public testing::Test {
  protected:
    LispAutoLoad() { host.folder = folder.Path() + L"\\"; }

    TempFolder folder;
    TestHost host;
    LispInterpreter interpreter{host};
};

}  // namespace

TEST_F(LispAutoLoad, LoadsTheFileAtTheFirstCallOfACommand) {
    WriteFileBytes(folder / L"tools.lsp",
                   "(setq loads (1+ (if loads loads 0))) (defun c:one () 1) (defun c:two () 2)");

    EXPECT_EQ(Shown(interpreter, L"(autoload \"tools\" '(\"one\" \"TWO\"))"), L"nil");
    EXPECT_EQ(Shown(interpreter, L"loads"), L"nil") << "not yet";
    EXPECT_EQ(Shown(interpreter, L"(list (c:one) (c:two) (c:one) loads)"), L"(1 2 1 1)");
}

TEST_F(LispAutoLoad, AFileWithoutTheCommandIsTold) {
    WriteFileBytes(folder / L"tools.lsp", "(setq a 1)");

    EXPECT_EQ(Shown(interpreter, L"(autoload \"tools\" '(\"one\")) (c:one)"), L"");
    EXPECT_EQ(host.printed, L"\ntools doesn't define C:one.");
}

TEST_F(LispAutoLoad, AMissingFileIsAnError) {
    EXPECT_EQ(Shown(interpreter, L"(autoload \"nothing\" '(\"one\")) (c:one)"),
              L"; error: LOAD failed: \"nothing\"");
}

TEST_F(LispAutoLoad, ADefinedCommandStays) {
    EXPECT_EQ(
        Shown(interpreter, L"(defun c:one () 'own) (autoload \"nothing\" '(\"one\")) (c:one)"),
        L"OWN");
}

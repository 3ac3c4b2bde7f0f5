#include "drafthost/lisp/test_host.h"

#include <gtest/gtest.h>

using namespace drafthost;

TEST(LispBlackboard, IsSharedByAllWorlds) {
    TestHost host;
    LispInterpreter first(host);
    LispInterpreter second(host);

    EXPECT_EQ(Shown(first, L"(vl-bb-set 'board '(1 \"a\" (2.5 . T)))"), L"(1 \"a\" (2.5 . T))");

    EXPECT_EQ(Shown(second, L"(vl-bb-ref 'BOARD)"), L"(1 \"a\" (2.5 . T))");
    EXPECT_EQ(Shown(second, L"board"), L"nil") << "the variable is another thing";
    EXPECT_EQ(Shown(second, L"(vl-bb-set 'board nil)"), L"nil");
    EXPECT_EQ(Shown(first, L"(vl-bb-ref 'board)"), L"nil");
}

TEST(LispBlackboard, TakesDataOnly) {
    ExpectShown({
        {"a symbol belongs to its world", L"(vl-bb-set 'b '(1 x))",
         L"; error: bad argument type: number, string or list of these: (1 X)"},
        {"so does a function",
         L"(null (vl-catch-all-error-p (vl-catch-all-apply 'vl-bb-set (list "
         L"'b car))))",
         L"nil"},
        {"a tail", L"(vl-bb-set 'b '(1 . x))",
         L"; error: bad argument type: number, string or list of these: (1 . X)"},
        {"no symbol", L"(vl-bb-set \"b\" 1)", L"; error: bad argument type: symbolp \"b\""},
        {"nothing was set", L"(vl-bb-ref 'never-set)", L"nil"},
    });
}

TEST(LispDocument, VariablesOfTheDrawing) {
    ExpectShown({
        {"set", L"(vl-doc-set 'a 5) a", L"5"},
        {"read", L"(setq a 7) (vl-doc-ref 'a)", L"7"},
        {"no symbol", L"(vl-doc-ref 5)", L"; error: bad argument type: symbolp 5"},
    });
}

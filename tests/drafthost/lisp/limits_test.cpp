#include "drafthost/lisp/test_host.h"

#include "runtime/lisp/error.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <functional>
#include <thread>

using namespace drafthost;

namespace {

DWORD WINAPI RunFunction(void* function) {
    (*static_cast<const std::function<void()>*>(function))();
    return 0;
}

/// Runs `work` to its end on a thread with the smallest stack that the system gives for 256 KB:
/// Wine gives 1 MB.
void OnSmallStack(const std::function<void()>& work) {
    HANDLE thread =
        CreateThread(nullptr, 0x40000, RunFunction, const_cast<std::function<void()>*>(&work),
                     STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
    ASSERT_NE(thread, nullptr);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
}

}  // namespace

TEST(LispLimits, DeepRecursionIsAnErrorAndTheHostLives) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.Evaluate(L"(defun deep (n) (setq reached n) (+ 1 (deep (1+ n))))");

    EXPECT_EQ(Shown(interpreter, L"(deep 0)"), L"; error: internal stack limit reached");
    EXPECT_EQ(Shown(interpreter, L"(> reached 300)"), L"T");
    EXPECT_EQ(Shown(interpreter, L"n"), L"nil");
}

TEST(LispLimits, EveryWayOfRecursionEnds) {
    const wchar_t* const ways[] = {
        L"(defun f () (f)) (f)",
        L"(defun f () (apply 'f nil)) (f)",
        L"(defun f (x) (mapcar 'f '(1))) (f 1)",
        L"(defun f (x) (foreach y '(1) (f y))) (f 1)",
        L"(setq f '(lambda () (f))) (f)",
        L"(defun f () (eval '(f))) (f)",
        L"(defun f (a b) (vl-sort '(2 1) 'f)) (f 1 2)",
        L"(defun f () (cond ((if t (progn (while (f)))) 1))) (f)",
        L"(setq lambda '(lambda ())) (lambda)",
    };
    for (const wchar_t* way : ways) {
        OnSmallStack([&] {
            TestHost host;
            LispInterpreter interpreter(host);

            EXPECT_EQ(Shown(interpreter, way), L"; error: internal stack limit reached")
                << testing::PrintToString(std::wstring(way));
            EXPECT_EQ(Shown(interpreter, L"(+ 1 2)"), L"3");
        });
    }
}

TEST(LispLimits, AThreadWithASmallStackIsEnough) {
    OnSmallStack([] {
        TestHost host;
        LispInterpreter interpreter(host);
        EXPECT_EQ(Shown(interpreter, L"(defun f (n) (setq reached n) (f (1+ n))) (f 0)"),
                  L"; error: internal stack limit reached");
        EXPECT_EQ(Shown(interpreter, L"(> reached 50)"), L"T");
    });
}

TEST(LispLimits, AFileThatLoadsItself) {
    TempFolder folder;
    WriteFileBytes(folder / L"self.lsp", "(load \"self.lsp\")");
    OnSmallStack([&] {
        TestHost host;
        host.folder = folder.Path() + L"\\";
        LispInterpreter interpreter(host);
        EXPECT_EQ(Shown(interpreter, L"(load \"self.lsp\")"),
                  L"; error: internal stack limit reached");
    });
}

TEST(LispLimits, DeeplyNestedCallsInTheText) {
    TestHost host;
    LispInterpreter interpreter(host);
    std::wstring text;
    for (int depth = 0; depth < 100000; ++depth)
        text += L"(+ 1 ";

    EXPECT_EQ(Shown(interpreter, text + std::wstring(100000, L')')),
              L"; error: internal stack limit reached");
}

TEST(LispLimits, ErrorFunctionHasRoomAfterDeepRecursion) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.Evaluate(
        L"(defun *error* (m) (princ (strcat \"<\" (apply 'strcat (list m)) \">\")))"
        L"(defun deep () (+ 1 (deep)))");

    EXPECT_EQ(Shown(interpreter, L"(deep)"), L"");
    EXPECT_EQ(host.printed, L"<internal stack limit reached>");
}

TEST(LispLimits, LongAndDeepListsAreFreedComparedPrintedAndShared) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.Evaluate(
        L"(setq long nil deep nil other nil)"
        L"(repeat 100000 (setq long (cons 1 long) deep (list deep) other (list other)))");

    EXPECT_EQ(Shown(interpreter, L"(length long)"), L"100000");
    EXPECT_EQ(Shown(interpreter, L"(equal deep other)"), L"T");
    EXPECT_EQ(Shown(interpreter, L"(strlen (vl-prin1-to-string deep))"), L"200003");
    EXPECT_EQ(Shown(interpreter, L"(null (vl-bb-set 'b deep))"), L"nil");
    EXPECT_EQ(Shown(interpreter, L"(vl-bb-set 'b nil)"), L"nil");
    EXPECT_EQ(Shown(interpreter, L"(setq long nil deep nil other nil)"), L"nil");
}

TEST(LispLimits, InterruptEndsALoop) {
    const wchar_t* const loops[] = {
        L"(while t)",
        L"(while t (vl-catch-all-apply '(lambda () (while t))))",
        L"(repeat 2147483647)",
        L"(defun f () (while t (car '(1)))) (f)",
    };
    for (const wchar_t* loop : loops) {
        TestHost host;
        LispInterpreter interpreter(host);
        std::thread user([&] {
            while (!interpreter.IsBusy())
                std::this_thread::yield();
            interpreter.Interrupt();
        });

        EXPECT_EQ(Shown(interpreter, loop), L"; error: Function cancelled")
            << testing::PrintToString(std::wstring(loop));
        user.join();
        EXPECT_EQ(Shown(interpreter, L"(+ 1 2)"), L"3");
    }
}

TEST(LispLimits, InterruptWhileNothingRunsIsForgotten) {
    TestHost host;
    LispInterpreter interpreter(host);

    interpreter.Interrupt();

    EXPECT_EQ(Shown(interpreter, L"(+ 1 2)"), L"3");
}

TEST(LispLimits, InterruptEndsTheEvaluationAroundANestedOneToo) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.DefineExternal(L"nested", {1, 0});
    host.external = [&](const LispExternal&, const std::vector<LispValue>&) {
        interpreter.Interrupt();
        EXPECT_EQ(Shown(interpreter, L"(while t)"), L"; error: Function cancelled");
        return LispValue();
    };

    EXPECT_EQ(Shown(interpreter, L"(nested) (while t)"), L"; error: Function cancelled");
}

TEST(LispLimits, TooManyCellsAreAnErrorThatCanBeMended) {
    TestHost host;
    LispInterpreter interpreter(host);

    EXPECT_EQ(Shown(interpreter, L"(setq l '(1)) (while t (setq l (append l l)))"),
              L"; error: insufficient node space");
    EXPECT_EQ(Shown(interpreter, L"(setq l nil)"), L"nil");
    EXPECT_LT(LiveLispCells(), 10000u);
}

TEST(LispLimits, AnEvaluationHasCellsOfItsOwnWhenAllAreUsedUp) {
    TestHost host;
    LispInterpreter interpreter(host);
    LispValue list;
    const auto takeAll = [&] {
        for (;;)
            list = LispValue::Cons(LispValue(), list);
    };
    EXPECT_THROW(takeAll(), LispError);
    interpreter.SetSymbol(L"l", list);
    list = LispValue();

    EXPECT_EQ(Shown(interpreter, L"(setq a (list \"b\" 'c))"), L"(\"b\" C)");
    EXPECT_EQ(Shown(interpreter, L"(setq l nil)"), L"nil");
}

TEST(LispLimits, TooLongStringsAreAnError) {
    TestHost host;
    LispInterpreter interpreter(host);

    EXPECT_EQ(Shown(interpreter, L"(setq s \"x\") (while t (setq s (strcat s s)))"),
              L"; error: insufficient string space");
    EXPECT_EQ(Shown(interpreter, L"(strlen s)"), L"4194304");
}

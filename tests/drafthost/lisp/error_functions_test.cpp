#include "drafthost/lisp/test_host.h"
#include "runtime/lisp/error.h"

#include <gtest/gtest.h>

using namespace drafthost;

TEST(LispErrors, CatchAllApply) {
    ExpectShown({
        {"no error", L"(vl-catch-all-apply '+ '(1 2))", L"3"},
        {"no arguments", L"(vl-catch-all-apply '(lambda () 5))", L"5"},
        {"error", L"(vl-catch-all-apply '/ '(1 0))", L"#<%catch-all-apply-error%>"},
        {"the message", L"(vl-catch-all-error-message (vl-catch-all-apply '/ '(1 0)))",
         L"\"divide by zero\""},
        {"unknown function", L"(vl-catch-all-error-message (vl-catch-all-apply 'foo))",
         L"\"no function definition: FOO\""},
        {"error deep within",
         L"(defun f () (car 1)) (vl-catch-all-error-p (vl-catch-all-apply 'f))", L"T"},
        {"exit is caught", L"(vl-catch-all-error-message (vl-catch-all-apply 'exit))",
         L"\"quit / exit abort\""},
        {"one within the other",
         L"(vl-catch-all-apply '(lambda () (vl-catch-all-apply 'car '(1)) 7))", L"7"},
        {"it goes on behind it", L"(vl-catch-all-apply 'car '(1)) 8", L"8"},
        {"a value is no error", L"(vl-catch-all-error-p \"divide by zero\")", L"nil"},
        {"no message of a value", L"(vl-catch-all-error-message 1)",
         L"; error: bad argument type: vl-catch-all-error-p 1"},
        {"locals are back", L"(setq a 1) (defun f (a) (car a)) (vl-catch-all-apply 'f '(5)) a",
         L"1"},
    });
}

TEST(LispErrors, ExitAndQuitEndTheEvaluation) {
    ExpectShown({
        {"exit", L"(exit)", L"; error: quit / exit abort"},
        {"quit", L"(quit)", L"; error: quit / exit abort"},
        {"from within", L"(defun f () (while t (exit))) (f)", L"; error: quit / exit abort"},
    });
}

TEST(LispErrors, LocalsComeBackAfterAnError) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.Evaluate(
        L"(setq a 'a b 'b x 'x)"
        L"(defun inner (b) (foreach x '(1) (car 1)))"
        L"(defun outer (a) (inner 2))");

    EXPECT_EQ(Shown(interpreter, L"(outer 1)"), L"; error: bad argument type: consp 1");
    EXPECT_EQ(Shown(interpreter, L"(list a b x)"), L"(A B X)");
}

TEST(LispErrors, ErrorFunctionGetsTheMessageWhileLocalsStand) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.Evaluate(
        L"(defun *error* (m) (princ (list m v x)))"
        L"(defun f (v) (foreach x '(9) (/ v 0)))");

    const LispOutcome outcome = interpreter.Evaluate(L"(f 5)");

    EXPECT_FALSE(outcome.succeeded);
    EXPECT_TRUE(outcome.handled);
    EXPECT_EQ(outcome.error, L"divide by zero");
    EXPECT_EQ(outcome.ErrorLine(), L"");
    EXPECT_EQ(host.printed, L"(divide by zero 5 9)");
    EXPECT_EQ(Shown(interpreter, L"(list v x)"), L"(nil nil)");
}

TEST(LispErrors, ErrorFunctionIsCalledForTheTopLevelAndForExit) {
    struct Row {
        const wchar_t* text;
        const wchar_t* printed;
    };
    const Row rows[] = {
        {L"(car 1)", L"[bad argument type: consp 1]"},
        {L"(exit)", L"[quit / exit abort]"},
        {L")", L"[extra right paren on input]"},
        {L"(defun f () (quit)) (defun g () (f)) (g)", L"[quit / exit abort]"},
    };
    for (const Row& row : rows) {
        TestHost host;
        LispInterpreter interpreter(host);
        interpreter.Evaluate(L"(defun *error* (m) (princ (strcat \"[\" m \"]\")))");

        EXPECT_EQ(Shown(interpreter, row.text), L"");
        EXPECT_EQ(host.printed, row.printed);
    }
}

TEST(LispErrors, LocalErrorFunctionHoldsForItsFunctionOnly) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.Evaluate(
        L"(defun *error* (m) (princ \"outer\"))"
        L"(defun c:x (/ *error*) (defun *error* (m) (princ \"inner\")) (car 1))");

    interpreter.Evaluate(L"(c:x)");
    EXPECT_EQ(host.printed, L"inner");
    interpreter.Evaluate(L"(car 1)");
    EXPECT_EQ(host.printed, L"innerouter");
}

TEST(LispErrors, LocalErrorFunctionOfNilLeavesTheErrorToTheHost) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.Evaluate(
        L"(defun *error* (m) (princ \"outer\"))"
        L"(defun c:x (/ *error*) (car 1))");

    EXPECT_EQ(Shown(interpreter, L"(c:x)"), L"; error: bad argument type: consp 1");
    EXPECT_EQ(host.printed, L"");
}

TEST(LispErrors, ErrorFunctionIsNotCalledForWhatIsCaught) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.Evaluate(L"(defun *error* (m) (princ m))");

    interpreter.Evaluate(L"(defun f () (car 1)) (vl-catch-all-apply 'f)");

    EXPECT_EQ(host.printed, L"");
}

TEST(LispErrors, ErrorFunctionTakenAwayOrNoFunction) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.Evaluate(L"(defun *error* (m) (princ m))");

    EXPECT_EQ(Shown(interpreter, L"(setq *error* nil) (car 1)"),
              L"; error: bad argument type: consp 1");
    EXPECT_EQ(Shown(interpreter, L"(setq *error* 5) (car 1)"),
              L"; error: bad argument type: consp 1");
}

TEST(LispErrors, ErrorWithinTheErrorFunctionIsToldByTheHost) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.Evaluate(L"(defun *error* (m) (/ 1 0))");

    EXPECT_EQ(Shown(interpreter, L"(car 1)"),
              L"; error: An error has occurred inside the *error* function: divide by zero");
    EXPECT_EQ(Shown(interpreter, L"(setq *error* nil) 5"), L"5");
}

TEST(LispErrors, ExitWithinTheErrorFunctionJustEndsIt) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.Evaluate(L"(defun *error* (m) (princ m) (exit) (princ \"not reached\"))");

    EXPECT_EQ(Shown(interpreter, L"(car 1)"), L"");
    EXPECT_EQ(host.printed, L"bad argument type: consp 1");
}

TEST(LispErrors, ErrorFunctionIsCalledForAnEvaluationWithinACaughtCall) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.DefineExternal(L"ext", {1, 0});
    host.external = [&](const LispExternal&, const std::vector<LispValue>&) {
        EXPECT_TRUE(interpreter.Evaluate(L"(car 1)").handled);
        return LispValue();
    };

    interpreter.Evaluate(L"(defun *error* (m) (princ m)) (vl-catch-all-apply 'ext)");

    EXPECT_EQ(host.printed, L"bad argument type: consp 1");
}

TEST(LispErrors, HostsCallbackMayThrowOne) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.DefineExternal(L"ext", {1, 0});
    host.external = [](const LispExternal&, const std::vector<LispValue>&) -> LispValue {
        throw LispError(L"module is gone");
    };

    EXPECT_EQ(Shown(interpreter, L"(ext)"), L"; error: module is gone");
    EXPECT_EQ(Shown(interpreter, L"(vl-catch-all-error-message (vl-catch-all-apply 'ext))"),
              L"\"module is gone\"");
}

#include "runtime/lisp/interpreter.h"

#include "drafthost/lisp/test_host.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace drafthost;

TEST(LispInterpreter, GivesTheLastValue) {
    TestHost host;
    LispInterpreter interpreter(host);

    const LispOutcome outcome = interpreter.Evaluate(L"1 \"a\" (+ 1 2)");

    EXPECT_TRUE(outcome.succeeded);
    EXPECT_EQ(outcome.value.AsInteger(), 3);
    EXPECT_EQ(outcome.ErrorLine(), L"");
}

TEST(LispInterpreter, TellsAnErrorAndLivesOn) {
    TestHost host;
    LispInterpreter interpreter(host);

    const LispOutcome outcome = interpreter.Evaluate(L"(foo)");

    EXPECT_FALSE(outcome.succeeded);
    EXPECT_FALSE(outcome.handled);
    EXPECT_TRUE(outcome.value.IsNil());
    EXPECT_EQ(outcome.error, L"no function definition: FOO");
    EXPECT_EQ(outcome.ErrorLine(), L"; error: no function definition: FOO");
    EXPECT_EQ(Shown(interpreter, L"(+ 1 2)"), L"3");
}

TEST(LispInterpreter, EachHasSymbolsOfItsOwn) {
    TestHost host;
    LispInterpreter first(host);
    LispInterpreter second(host);

    first.Evaluate(L"(setq a 1) (defun f () 2)");

    EXPECT_EQ(Shown(second, L"a"), L"nil");
    EXPECT_EQ(Shown(second, L"(f)"), L"; error: no function definition: F");
}

TEST(LispInterpreter, CallsAModulesFunctionWithEvaluatedArguments) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.DefineExternal(L"GetPath", {77, 3});
    std::wstring seen;
    host.external = [&](const LispExternal& function, const std::vector<LispValue>& arguments) {
        EXPECT_EQ(function.owner, 77u);
        EXPECT_EQ(function.code, 3);
        seen = LispPrin1(LispValue::List(arguments));
        return LispValue::String(L"C:\\图");
    };

    EXPECT_EQ(Shown(interpreter, L"(strcat (getpath 'a (+ 1 1) \"s\") \"!\")"), L"\"C:\\\\图!\"");
    EXPECT_EQ(seen, L"(A 2 \"s\")");
    EXPECT_EQ(Shown(interpreter, L"(type GetPath)"), L"EXRXSUBR");
    EXPECT_EQ(Shown(interpreter, L"(mapcar 'getpath '(1))"), L"(\"C:\\\\图\")");
}

TEST(LispInterpreter, DefinesAgainAndUndefinesOnlyItsOwn) {
    TestHost host;
    LispInterpreter interpreter(host);
    host.external = [](const LispExternal& function, const std::vector<LispValue>&) {
        return LispValue::Integer(function.code);
    };

    interpreter.DefineExternal(L"ext", {1, 10});
    interpreter.DefineExternal(L"EXT", {1, 11});
    EXPECT_EQ(Shown(interpreter, L"(ext)"), L"11");

    EXPECT_FALSE(interpreter.UndefineExternal(L"ext", {1, 10}));
    EXPECT_FALSE(interpreter.UndefineExternal(L"ext", {2, 11}));
    EXPECT_FALSE(interpreter.UndefineExternal(L"unheard-of", {1, 11}));
    EXPECT_EQ(Shown(interpreter, L"(ext)"), L"11");

    EXPECT_TRUE(interpreter.UndefineExternal(L"Ext", {1, 11}));
    EXPECT_EQ(Shown(interpreter, L"(ext)"), L"; error: no function definition: EXT");
    EXPECT_FALSE(interpreter.UndefineExternal(L"ext", {1, 11}));
}

TEST(LispInterpreter, UndefinesAllOfOneOwner) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.DefineExternal(L"a", {1, 0});
    interpreter.DefineExternal(L"b", {1, 1});
    interpreter.DefineExternal(L"c", {2, 0});
    interpreter.Evaluate(L"(setq alias a)");

    interpreter.UndefineExternals(1);

    EXPECT_EQ(Shown(interpreter, L"(list a b alias (type c))"), L"(nil nil nil EXRXSUBR)");
}

TEST(LispInterpreter, AModulesFunctionReplacesALispFunctionAndTheOtherWayRound) {
    TestHost host;
    LispInterpreter interpreter(host);
    host.external = [](const LispExternal&, const std::vector<LispValue>&) {
        return LispValue::String(L"module");
    };
    interpreter.Evaluate(L"(defun f () \"lisp\")");

    interpreter.DefineExternal(L"f", {1, 0});
    EXPECT_EQ(Shown(interpreter, L"(f)"), L"\"module\"");
    EXPECT_EQ(Shown(interpreter, L"(defun f () \"lisp\") (f)"), L"\"lisp\"");
    EXPECT_FALSE(interpreter.UndefineExternal(L"f", {1, 0}));
}

TEST(LispInterpreter, TellsAndCallsCommands) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.Evaluate(L"(defun C:Hello () (princ \"你好\") 5) (setq c:other 1)");
    interpreter.DefineExternal(L"c:ext", {1, 0});

    EXPECT_TRUE(interpreter.IsFunction(L"c:hello"));
    EXPECT_TRUE(interpreter.IsFunction(L"C:EXT"));
    EXPECT_FALSE(interpreter.IsFunction(L"C:OTHER"));
    EXPECT_FALSE(interpreter.IsFunction(L"C:UNHEARD"));
    EXPECT_FALSE(interpreter.IsFunction(L"nil"));

    EXPECT_EQ(interpreter.Call(L"c:hello").value.AsInteger(), 5);
    EXPECT_EQ(host.printed, L"你好");
    EXPECT_EQ(interpreter.Call(L"c:unheard").ErrorLine(),
              L"; error: no function definition: C:UNHEARD");
}

TEST(LispInterpreter, CallTakesValuesAsTheyAre) {
    TestHost host;
    LispInterpreter interpreter(host);

    const LispOutcome outcome =
        interpreter.Call(L"list", {interpreter.Symbol(L"abc"), LispValue::Real(0.5)});

    EXPECT_EQ(LispPrin1(outcome.value), L"(ABC 0.5)");
}

TEST(LispInterpreter, SymbolsCanBeReadAndSet) {
    TestHost host;
    LispInterpreter interpreter(host);

    interpreter.SetSymbol(L"Path", LispValue::String(L"x"));
    interpreter.SetSymbol(L"nil", LispValue::Integer(1));
    interpreter.Evaluate(L"(setq b 2)");

    EXPECT_EQ(Shown(interpreter, L"(list PATH nil)"), L"(\"x\" nil)");
    EXPECT_EQ(interpreter.GetSymbol(L"B").AsInteger(), 2);
    EXPECT_TRUE(interpreter.GetSymbol(L"unheard-of").IsNil());
}

TEST(LispInterpreter, ACallbackMayEvaluate) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.DefineExternal(L"nested", {1, 0});
    host.external = [&](const LispExternal&, const std::vector<LispValue>&) {
        EXPECT_TRUE(interpreter.IsBusy());
        EXPECT_EQ(Shown(interpreter, L"(car 1)"), L"; error: bad argument type: consp 1");
        return interpreter.Evaluate(L"(* v v)").value;
    };

    EXPECT_EQ(Shown(interpreter, L"(defun f (v) (nested)) (f 6)"), L"36");
    EXPECT_FALSE(interpreter.IsBusy());
}

TEST(LispInterpreter, AnotherExceptionOfACallbackPassesThroughAndLocalsComeBack) {
    TestHost host;
    LispInterpreter interpreter(host);
    interpreter.DefineExternal(L"ext", {1, 0});
    host.external = [](const LispExternal&, const std::vector<LispValue>&) -> LispValue {
        throw std::runtime_error("module");
    };

    EXPECT_THROW(interpreter.Evaluate(L"(defun f (v) (vl-catch-all-apply 'ext)) (f 1)"),
                 std::runtime_error);
    EXPECT_FALSE(interpreter.IsBusy());
    EXPECT_EQ(Shown(interpreter, L"v"), L"nil");
}

TEST(LispValue, NothingStaysBehindWhenTheInterpreterIsGone) {
    const std::size_t before = LiveLispCells();
    {
        TestHost host;
        LispInterpreter interpreter(host);
        EXPECT_GT(LiveLispCells(), before + 100);
        interpreter.DefineExternal(L"ext", {1, 0});
        interpreter.Evaluate(
            L"(defun f (n / x) (setq x (list 'f f)) (if (> n 0) (f (1- n))))"
            L"(f 5) (setq self (list 'self f) g f h (lambda () h))"
            L"(setq e (vl-catch-all-apply 'car '(1))) (f)");
    }
    EXPECT_EQ(LiveLispCells(), before);
}

TEST(LispValue, MayOutliveItsInterpreter) {
    const std::size_t before = LiveLispCells();
    {
        LispValue value;
        {
            TestHost host;
            LispInterpreter interpreter(host);
            value = interpreter.Evaluate(L"(defun f () 'x) (list 'a \"text\" 1.5 f)").value;
        }
        EXPECT_EQ(LispPrin1(value).substr(0, 24), L"(A \"text\" 1.5 #<USUBR @0");
    }
    EXPECT_EQ(LiveLispCells(), before);
}

TEST(LispValue, ItemsAreThoseOfTheList) {
    const LispValue list =
        LispValue::List({LispValue::Integer(1), LispValue::True()}, LispValue::Integer(3));

    EXPECT_EQ(list.Items().size(), 2u);
    EXPECT_EQ(list.Items()[0].AsInteger(), 1);
    EXPECT_EQ(list.Items()[1].Kind(), LispKind::True);
    EXPECT_TRUE(LispValue::Integer(3).Items().empty());
    EXPECT_EQ(LispValue::Integer(3).AsReal(), 3.0);
}

#include "drafthost/lisp/test_host.h"

#include <gtest/gtest.h>

using namespace drafthost;

TEST(LispSpecialForms, Quote) {
    ExpectShown({
        {"list stays as it is", L"(quote (+ 1 2))", L"(+ 1 2)"},
        {"symbol", L"(quote a)", L"A"},
        {"none", L"(quote)", L"; error: too few arguments"},
        {"two", L"(quote a b)", L"; error: too many arguments"},
    });
}

TEST(LispSpecialForms, Function) {
    ExpectShown({
        {"symbol stays quoted", L"(function car)", L"CAR"},
        {"lambda becomes a function", L"(type (function (lambda (x) x)))", L"USUBR"},
        {"another list stays as it is", L"(function (a b))", L"(A B)"},
        {"as an argument", L"(mapcar (function (lambda (x) (* x x))) '(1 2 3))", L"(1 4 9)"},
    });
}

TEST(LispSpecialForms, SetQ) {
    ExpectShown({
        {"gives the last value", L"(setq a 1 b 2)", L"2"},
        {"from the left to the right", L"(setq a 1 b (1+ a)) b", L"2"},
        {"nothing", L"(setq)", L"nil"},
        {"value missing", L"(setq a)", L"; error: syntax error"},
        {"no symbol", L"(setq \"a\" 1)", L"; error: bad argument type: symbolp \"a\""},
        {"T keeps its value", L"(setq T 1)", L"; error: bad argument type: symbolp T"},
        {"nil keeps its value", L"(setq nil 1)", L"; error: bad argument type: symbolp nil"},
    });
}

TEST(LispSpecialForms, If) {
    ExpectShown({
        {"true", L"(if 1 'yes 'no)", L"YES"},
        {"nil", L"(if nil 'yes 'no)", L"NO"},
        {"nil without a second branch", L"(if nil 'yes)", L"nil"},
        {"only one branch is evaluated", L"(setq a 1) (if t a (setq a 2)) a", L"1"},
        {"no branch", L"(if t)", L"; error: too few arguments"},
        {"three branches", L"(if t 1 2 3)", L"; error: too many arguments"},
    });
}

TEST(LispSpecialForms, Cond) {
    ExpectShown({
        {"first that holds", L"(cond (nil 1) ((= 1 1) 2) (t 3))", L"2"},
        {"none holds", L"(cond (nil 1))", L"nil"},
        {"no clause", L"(cond)", L"nil"},
        {"test alone gives its value", L"(cond (nil) (5))", L"5"},
        {"last of several", L"(cond (t 1 2 3))", L"3"},
        {"empty clause is passed over", L"(cond () (t 1))", L"1"},
        {"no clause but an atom", L"(cond 1)", L"; error: bad argument type: listp 1"},
    });
}

TEST(LispSpecialForms, AndOr) {
    ExpectShown({
        {"and: all true", L"(and 1 2)", L"T"},
        {"and: stops at nil", L"(setq a 1) (and nil (setq a 2)) a", L"1"},
        {"and: one nil", L"(and 1 nil)", L"nil"},
        {"and: nothing", L"(and)", L"T"},
        {"or: stops at the first true one", L"(setq a 1) (or 1 (setq a 2)) a", L"1"},
        {"or: T, not the value", L"(or nil 5)", L"T"},
        {"or: all nil", L"(or nil nil)", L"nil"},
        {"or: nothing", L"(or)", L"nil"},
        {"and: applied to values", L"(apply 'and '(a b))", L"T"},
        {"or: applied to values", L"(apply 'or '(nil nil))", L"nil"},
    });
}

TEST(LispSpecialForms, Progn) {
    ExpectShown({
        {"last value", L"(progn 1 2 3)", L"3"},
        {"nothing", L"(progn)", L"nil"},
    });
}

TEST(LispSpecialForms, Loops) {
    ExpectShown({
        {"while: counts", L"(setq i 0) (while (< i 5) (setq i (1+ i)))", L"5"},
        {"while: never", L"(while nil 1)", L"nil"},
        {"while: no body", L"(setq i 3) (while (> (setq i (1- i)) 0)) i", L"0"},
        {"repeat: counts", L"(setq i 0) (repeat 4 (setq i (+ i 2)))", L"8"},
        {"repeat: no times", L"(repeat 0 1)", L"nil"},
        {"repeat: fewer than none", L"(repeat -1 1)", L"nil"},
        {"repeat: real", L"(repeat 1.0 1)", L"; error: bad argument type: fixnump: 1.0"},
        {"foreach: sum", L"(setq s 0) (foreach x '(1 2 3) (setq s (+ s x)))", L"6"},
        {"foreach: nil", L"(foreach x nil 1)", L"nil"},
        {"foreach: no list", L"(foreach x 1 1)", L"; error: bad argument type: listp 1"},
        {"foreach: no symbol", L"(foreach 1 '(1) 1)", L"; error: bad argument type: symbolp 1"},
        {"foreach: the variable is local", L"(setq x 9) (foreach x '(1) x) x", L"9"},
        {"foreach: the list itself may change", L"(setq l '(1 2)) (foreach x l (setq l nil) x)",
         L"2"},
    });
}

TEST(LispSpecialForms, Defun) {
    ExpectShown({
        {"gives the symbol", L"(defun Foo ())", L"FOO"},
        {"no body", L"(defun foo ()) (foo)", L"nil"},
        {"argument", L"(defun twice (x) (* 2 x)) (twice 4)", L"8"},
        {"last of several", L"(defun foo () 1 2 3) (foo)", L"3"},
        {"locals begin as nil", L"(setq b 5) (defun foo (a / b) (list a b)) (foo 1)", L"(1 nil)"},
        {"locals alone", L"(defun foo (/ b) b) (foo)", L"nil"},
        {"locals and arguments come back",
         L"(setq a 1 b 2) (defun foo (a / b) (setq a 8 b 9)) (foo 7) (list a b)", L"(1 2)"},
        {"what isn't local stays", L"(defun foo () (setq c 3)) (foo) c", L"3"},
        {"called functions see the locals", L"(defun in () v) (defun out (v) (in)) (out 6)", L"6"},
        {"one that is argument and local", L"(defun foo (a / a) a) (foo 1)", L"nil"},
        {"one that is argument and local comes back",
         L"(setq a 4) (defun foo (a / a) (setq a 2)) (foo 1) a", L"4"},
        {"too few", L"(defun foo (a) a) (foo)", L"; error: too few arguments"},
        {"too many", L"(defun foo (a) a) (foo 1 2)", L"; error: too many arguments"},
        {"recursion", L"(defun f (n) (if (< n 2) 1 (* n (f (1- n))))) (f 10)", L"3628800"},
        {"defined anew while it runs", L"(defun f () (defun f () 2) 1) (list (f) (f))", L"(1 2)"},
        {"command", L"(defun c:hello () 'hi) (c:hello)", L"HI"},
        {"built-in function defined anew", L"(defun car (x) 'mine) (car 1)", L"MINE"},
        {"name is no symbol", L"(defun \"f\" ())", L"; error: bad argument type: symbolp \"f\""},
        {"no argument list", L"(defun f)", L"; error: too few arguments"},
        {"argument is no symbol", L"(defun f (1))", L"; error: bad formal argument list: (1)"},
        {"argument list is an atom", L"(defun f a)", L"; error: bad formal argument list: A"},
        {"two slashes", L"(defun f (a / b / c))",
         L"; error: bad formal argument list: (A / B / C)"},
        {"T as an argument", L"(defun f (t))", L"; error: bad formal argument list: (T)"},
        {"dotted argument list", L"(defun f (a . b))",
         L"; error: bad formal argument list: (A . B)"},
    });
}

TEST(LispSpecialForms, Lambda) {
    ExpectShown({
        {"called at once", L"((lambda (x y) (+ x y)) 1 2)", L"3"},
        {"kept in a symbol", L"(setq f (lambda (x) (1+ x))) (f 1)", L"2"},
        {"kept as a list", L"(setq f '(lambda (x) (1+ x))) (f 1)", L"2"},
        {"locals", L"(setq y 1) ((lambda (x / y) y) 5)", L"nil"},
        {"bad argument list", L"(lambda 1)", L"; error: bad formal argument list: 1"},
    });
}

TEST(LispEvaluation, RefusesWhatIsNoFunction) {
    ExpectShown({
        {"symbol without a value", L"(foo 1)", L"; error: no function definition: FOO"},
        {"symbol with another value", L"(setq foo 1) (foo)", L"; error: bad function: 1"},
        {"number", L"(1 2)", L"; error: bad function: 1"},
        {"string", L"(\"a\")", L"; error: bad function: \"a\""},
        {"nil", L"(nil)", L"; error: bad function: nil"},
        {"T", L"(t)", L"; error: bad function: T"},
        {"list that is no lambda", L"('(a b) 1)", L"; error: bad function: (A B)"},
        {"lambda without an argument list", L"(apply '(lambda) nil)",
         L"; error: bad function: (LAMBDA)"},
        {"dotted call", L"(+ 1 . 2)", L"; error: bad argument type: listp (+ 1 . 2)"},
        {"the arguments aren't evaluated", L"(vl-catch-all-apply '(lambda () (foo (setq a 1)))) a",
         L"nil"},
    });
}

#include "drafthost/lisp/test_host.h"

#include <gtest/gtest.h>

using namespace drafthost;

TEST(LispLists, CarAndCdr) {
    ExpectShown({
        {"car", L"(car '(1 2))", L"1"},
        {"car of nil", L"(car nil)", L"nil"},
        {"car of an atom", L"(car 1)", L"; error: bad argument type: consp 1"},
        {"cdr", L"(cdr '(1 2))", L"(2)"},
        {"cdr of a pair", L"(cdr '(1 . 2))", L"2"},
        {"cdr of nil", L"(cdr nil)", L"nil"},
        {"cdr of an atom", L"(cdr \"a\")", L"; error: bad argument type: consp \"a\""},
        {"an atom on the way", L"(cadr '(1 . 2))", L"; error: bad argument type: consp 2"},
        {"beyond the end", L"(cadddr '(1))", L"nil"},
    });
}

TEST(LispLists, EveryPathOfUpToFourLetters) {
    TestHost host;
    LispInterpreter interpreter(host);
    // A tree whose leaves tell their own path: (car (cdr tree)) is reached by CADR.
    interpreter.Evaluate(
        L"(defun tree (path depth)"
        L"  (if (= depth 0) path"
        L"    (cons (tree (strcat \"A\" path) (1- depth)) (tree (strcat \"D\" path) (1- depth)))))"
        L"(defun walk (path tree / n)"
        L"  (if (= (setq n (strlen path)) 0) tree"
        L"    (walk (substr path 1 (1- n))"
        L"          (if (= (substr path n) \"A\") (car tree) (cdr tree)))))"
        L"(setq deep (tree \"\" 4))"
        L"(defun path-is-right (path / reached)"
        L"  (setq reached (eval (list (read (strcat \"C\" path \"R\")) 'deep)))"
        L"  (and (equal reached (walk path deep)) (or (< (strlen path) 4) (= reached path))))");
    std::vector<std::wstring> paths = {L""};
    for (std::size_t at = 0; paths[at].size() < 4; ++at) {
        paths.push_back(paths[at] + L"A");
        paths.push_back(paths[at] + L"D");
    }
    paths.erase(paths.begin());
    for (const std::wstring& path : paths) {
        const LispOutcome outcome = interpreter.Call(L"path-is-right", {LispValue::String(path)});
        EXPECT_EQ(outcome.value.Kind(), LispKind::True) << testing::PrintToString(path);
    }
    EXPECT_EQ(paths.size(), 30u);
}

TEST(LispLists, Making) {
    ExpectShown({
        {"cons: list", L"(cons 1 '(2 3))", L"(1 2 3)"},
        {"cons: pair", L"(cons 1 2)", L"(1 . 2)"},
        {"cons: nil", L"(cons 1 nil)", L"(1)"},
        {"list", L"(list 1 \"a\" 'b)", L"(1 \"a\" B)"},
        {"list: nothing", L"(list)", L"nil"},
        {"list*: the last is the end", L"(vl-list* 1 2 '(3))", L"(1 2 3)"},
        {"list*: pair", L"(vl-list* 1 2)", L"(1 . 2)"},
        {"list*: one", L"(vl-list* 1)", L"1"},
        {"append", L"(append '(1 2) '(3) nil '(4))", L"(1 2 3 4)"},
        {"append: nothing", L"(append)", L"nil"},
        {"append: one", L"(append '(1))", L"(1)"},
        {"append: a dotted list last", L"(append '(1) '(2 . 3))", L"(1 2 . 3)"},
        {"append: an atom", L"(append 1 '(2))", L"; error: bad argument type: listp 1"},
        {"append: an atom last", L"(append '(1) 2)", L"; error: bad argument type: listp 2"},
        {"append: a dotted list first", L"(append '(1 . 2) '(3))",
         L"; error: bad argument type: listp (1 . 2)"},
        {"reverse", L"(reverse '(1 2 3))", L"(3 2 1)"},
        {"reverse: nil", L"(reverse nil)", L"nil"},
        {"reverse: a string", L"(reverse \"ab\")", L"; error: bad argument type: listp \"ab\""},
    });
}

TEST(LispLists, Items) {
    ExpectShown({
        {"nth: first", L"(nth 0 '(a b))", L"A"},
        {"nth: beyond the end", L"(nth 2 '(a b))", L"nil"},
        {"nth: nil", L"(nth 0 nil)", L"nil"},
        {"nth: negative", L"(nth -1 '(a))", L"; error: bad argument value: non-negative: -1"},
        {"nth: real", L"(nth 1.0 '(a))", L"; error: bad argument type: fixnump: 1.0"},
        {"nth: no list", L"(nth 0 1)", L"; error: bad argument type: listp 1"},
        {"last", L"(last '(1 2 3))", L"3"},
        {"last: nil", L"(last nil)", L"nil"},
        {"length", L"(length '(1 (2 3) nil))", L"3"},
        {"length: nil", L"(length nil)", L"0"},
        {"length: a string", L"(length \"abc\")", L"; error: bad argument type: listp \"abc\""},
        {"length: dotted", L"(length '(1 . 2))", L"; error: bad argument type: listp (1 . 2)"},
        {"list-length", L"(vl-list-length '(1 2))", L"2"},
        {"list-length: dotted", L"(vl-list-length '(1 . 2))", L"nil"},
        {"list-length: nil", L"(vl-list-length nil)", L"0"},
    });
}

TEST(LispLists, Finding) {
    ExpectShown({
        {"member: the rest", L"(member 2 '(1 2 3))", L"(2 3)"},
        {"member: as equal", L"(member '(b) '((a) (b)))", L"((B))"},
        {"member: none", L"(member 9 '(1 2))", L"nil"},
        {"member: no list", L"(member 1 2)", L"; error: bad argument type: listp 2"},
        {"assoc", L"(assoc 'b '((a 1) (b 2)))", L"(B 2)"},
        {"assoc: pairs", L"(cdr (assoc 8 '((0 . \"LINE\") (8 . \"0\"))))", L"\"0\""},
        {"assoc: string", L"(assoc \"k\" '((\"j\" . 1) (\"k\" . 2)))", L"(\"k\" . 2)"},
        {"assoc: none", L"(assoc 'c '((a 1)))", L"nil"},
        {"assoc: an atom within", L"(assoc 1 '(1 2))", L"; error: bad association list: (1 2)"},
        {"subst", L"(subst 'x 'b '(a b (b) b))", L"(A X (B) X)"},
        {"subst: a pair", L"(subst '(8 . \"1\") '(8 . \"0\") '((0 . \"L\") (8 . \"0\")))",
         L"((0 . \"L\") (8 . \"1\"))"},
        {"remove: all of them", L"(vl-remove 1 '(1 2 1 3))", L"(2 3)"},
        {"remove: none", L"(vl-remove 9 '(1 2))", L"(1 2)"},
        {"position", L"(vl-position 'c '(a b c))", L"2"},
        {"position: none", L"(vl-position 'd '(a b c))", L"nil"},
    });
}

TEST(LispLists, Mapping) {
    ExpectShown({
        {"apply", L"(apply '+ '(1 2 3))", L"6"},
        {"apply: function itself", L"(apply max '(1 5 2))", L"5"},
        {"apply: lambda", L"(apply '(lambda (a b) (list b a)) '(1 2))", L"(2 1)"},
        {"apply: nothing", L"(apply 'list nil)", L"nil"},
        {"apply: symbols stay symbols", L"(apply 'list '(a b))", L"(A B)"},
        {"apply: no list", L"(apply '+ 1)", L"; error: bad argument type: listp 1"},
        {"apply: unknown", L"(apply 'foo '(1))", L"; error: no function definition: FOO"},
        {"apply: wrong number", L"(apply 'car '(1 2))", L"; error: too many arguments"},
        {"mapcar", L"(mapcar '1+ '(1 2 3))", L"(2 3 4)"},
        {"mapcar: two lists", L"(mapcar '+ '(1 2) '(10 20))", L"(11 22)"},
        {"mapcar: the shortest list ends it", L"(mapcar 'list '(1 2 3) '(a b))", L"((1 A) (2 B))"},
        {"mapcar: lambda", L"(mapcar '(lambda (x) (* x x)) '(1 2 3))", L"(1 4 9)"},
        {"mapcar: nil", L"(mapcar 'car nil)", L"nil"},
        {"mapcar: no list given", L"(mapcar 'car)", L"; error: too few arguments"},
        {"mapcar: symbols stay symbols", L"(mapcar 'type '(a b))", L"(SYM SYM)"},
        {"remove-if", L"(vl-remove-if 'numberp '(1 a 2 b))", L"(A B)"},
        {"remove-if-not", L"(vl-remove-if-not 'numberp '(1 a 2 b))", L"(1 2)"},
        {"remove-if: error within", L"(vl-remove-if 'minusp '(a))",
         L"; error: bad argument type: numberp: A"},
        {"member-if", L"(vl-member-if 'minusp '(1 -2 3))", L"(-2 3)"},
        {"member-if: none", L"(vl-member-if 'minusp '(1))", L"nil"},
        {"member-if-not", L"(vl-member-if-not 'minusp '(-1 2 -3))", L"(2 -3)"},
        {"some: first true result", L"(vl-some '(lambda (x) (if (> x 1) (* 10 x))) '(1 2 3))",
         L"20"},
        {"some: none", L"(vl-some 'minusp '(1 2))", L"nil"},
        {"some: two lists", L"(vl-some '= '(1 2) '(3 2))", L"T"},
        {"every: all", L"(vl-every 'numberp '(1 2))", L"T"},
        {"every: not all", L"(vl-every 'numberp '(1 a))", L"nil"},
        {"every: nil", L"(vl-every 'numberp nil)", L"T"},
    });
}

TEST(LispLists, Sorting) {
    ExpectShown({
        {"numbers", L"(vl-sort '(3 1 2) '<)", L"(1 2 3)"},
        {"the other way", L"(vl-sort '(3 1 2) '>)", L"(3 2 1)"},
        {"integers that are twice there come once", L"(vl-sort '(3 2 1 3) '<)", L"(1 2 3)"},
        {"strings that are twice there stay", L"(vl-sort '(\"b\" \"a\" \"b\") '<)",
         L"(\"a\" \"b\" \"b\")"},
        {"reals that are twice there stay", L"(vl-sort '(2.0 1.0 2.0) '<)", L"(1.0 2.0 2.0)"},
        {"lambda", L"(vl-sort '((1 b) (2 a)) '(lambda (x y) (< (cadr x) (cadr y))))",
         L"; error: bad argument type for compare: A B"},
        {"by a part", L"(vl-sort '((2 b) (1 a)) '(lambda (x y) (< (car x) (car y))))",
         L"((1 A) (2 B))"},
        {"equal items keep their order",
         L"(vl-sort '((1 a) (0 b) (1 c) (0 d)) '(lambda (x y) (< (car x) (car y))))",
         L"((0 B) (0 D) (1 A) (1 C))"},
        {"a test that contradicts itself",
         L"(length (vl-sort '((1) (2) (3) (4) (5)) '(lambda (x y) t)))", L"5"},
        {"nil", L"(vl-sort nil '<)", L"nil"},
        {"one", L"(vl-sort '(1) '<)", L"(1)"},
        {"no function", L"(vl-sort '(2 1) 5)", L"; error: bad function: 5"},
        {"places", L"(vl-sort-i '(30 10 20) '<)", L"(1 2 0)"},
        {"places: none dropped", L"(vl-sort-i '(3 2 3) '<)", L"(1 0 2)"},
        {"strings", L"(acad_strlsort '(\"b\" \"C\" \"a\"))", L"(\"C\" \"a\" \"b\")"},
        {"strings: a number", L"(acad_strlsort '(\"b\" 1))",
         L"; error: bad argument type: stringp 1"},
    });
}

TEST(LispLists, SortingManyItems) {
    TestHost host;
    LispInterpreter interpreter(host);

    EXPECT_EQ(Shown(interpreter,
                    L"(setq n 1 l nil)"
                    L"(repeat 1000 (setq n (rem (* n 7919) 10007) l (cons (float n) l)))"
                    L"(setq s (vl-sort l '<))"
                    L"(list (length s) (apply '<= s))"),
              L"(1000 T)");
}

#include "drafthost/lisp/test_host.h"

#include <gtest/gtest.h>

using namespace drafthost;

TEST(LispSymbols, SettingAndReading) {
    ExpectShown({
        {"set", L"(setq name 'a) (set name 5) a", L"5"},
        {"set: gives the value", L"(set 'a '(1))", L"(1)"},
        {"set: no symbol", L"(set \"a\" 1)", L"; error: bad argument type: symbolp \"a\""},
        {"set: T", L"(set t 1)", L"; error: bad argument type: symbolp T"},
        {"eval: list", L"(eval '(+ 1 2))", L"3"},
        {"eval: symbol", L"(setq a 'b b 7) (eval a)", L"7"},
        {"eval: of a value", L"(eval \"a\")", L"\"a\""},
        {"eval: of what was read", L"(eval (read \"(* 6 7)\"))", L"42"},
        {"name", L"(vl-symbol-name 'abc)", L"\"ABC\""},
        {"name of T", L"(vl-symbol-name t)", L"\"T\""},
        {"name of a string", L"(vl-symbol-name \"a\")",
         L"; error: bad argument type: symbolp \"a\""},
        {"value", L"(setq a 3) (vl-symbol-value 'a)", L"3"},
        {"value of T", L"(vl-symbol-value t)", L"T"},
        {"pause", L"pause", L"\"\\\\\""},
    });
}

TEST(LispSymbols, AtomsFamily) {
    ExpectShown({
        {"functions are there", L"(car (member 'car (atoms-family 0)))", L"CAR"},
        {"own symbols are there", L"(setq zz 1) (car (member 'zz (atoms-family 0)))", L"ZZ"},
        {"as names", L"(car (member \"CAR\" (atoms-family 1)))", L"\"CAR\""},
        {"without those that have no value", L"'zz (member 'zz (atoms-family 0))", L"nil"},
        {"names that have a value", L"(atoms-family 1 '(\"car\" \"nosuch\"))", L"(\"CAR\" nil)"},
        {"symbols that have a value", L"(setq a 1) (atoms-family 0 '(\"a\" \"b\"))", L"(A nil)"},
        {"a value taken away", L"(setq a 1) (setq a nil) (atoms-family 0 '(\"a\"))", L"(nil)"},
        {"no list of strings", L"(atoms-family 0 '(a))", L"; error: bad argument type: stringp A"},
    });
}

#include "drafthost/lisp/test_host.h"

#include <gtest/gtest.h>

using namespace drafthost;

TEST(LispComparison, EqualityOfAtoms) {
    ExpectShown({
        {"=: numbers", L"(= 4 4.0)", L"T"},
        {"=: several", L"(= 1 1 2)", L"nil"},
        {"=: one", L"(= 1)", L"T"},
        {"=: strings", L"(= \"a\" \"a\" \"a\")", L"T"},
        {"=: strings with case", L"(= \"a\" \"A\")", L"nil"},
        {"=: symbols", L"(= 'a 'a)", L"T"},
        {"=: nil", L"(= nil nil)", L"T"},
        {"=: kinds differ", L"(= 1 \"1\")", L"nil"},
        {"=: lists alike", L"(= '(1) '(1))", L"nil"},
        {"=: nothing", L"(=)", L"; error: too few arguments"},
        {"/=: differ", L"(/= 1 2)", L"T"},
        {"/=: neighbours differ", L"(/= 10 20 10 20)", L"T"},
        {"/=: neighbours alike", L"(/= 10 20 20)", L"nil"},
        {"/=: strings", L"(/= \"a\" \"b\")", L"T"},
    });
}

TEST(LispComparison, Order) {
    ExpectShown({
        {"<", L"(< 1 2 3)", L"T"},
        {"<: equal", L"(< 1 1)", L"nil"},
        {"<: mixed", L"(< 1 1.5)", L"T"},
        {"<: strings", L"(< \"a\" \"b\" \"ba\")", L"T"},
        {"<: kinds differ", L"(< 1 \"b\")", L"; error: bad argument type for compare: 1 \"b\""},
        {"<: nil", L"(< nil 1)", L"; error: bad argument type for compare: nil 1"},
        {">", L"(> 3 2 1)", L"T"},
        {">: equal", L"(> 2 2)", L"nil"},
        {">: stops at the first that fails", L"(> 1 2 \"a\")", L"nil"},
        {"<=", L"(<= 1 1 2)", L"T"},
        {"<=: larger", L"(<= 2 1)", L"nil"},
        {">=", L"(>= 2 2 1)", L"T"},
        {">=: smaller", L"(>= 1 2)", L"nil"},
    });
}

TEST(LispComparison, EqAndEqual) {
    ExpectShown({
        {"eq: same list", L"(setq a '(1) b a) (eq a b)", L"T"},
        {"eq: lists alike", L"(eq '(1) '(1))", L"nil"},
        {"eq: integers", L"(eq 5 5)", L"T"},
        {"eq: reals", L"(eq 1.5 1.5)", L"T"},
        {"eq: integer and real", L"(eq 1 1.0)", L"nil"},
        {"eq: strings", L"(eq \"a\" (strcat \"a\"))", L"T"},
        {"eq: symbols", L"(eq 'a 'A)", L"T"},
        {"eq: functions", L"(eq car car)", L"T"},
        {"equal: lists", L"(equal '(1 (\"a\" . b)) '(1 (\"a\" . b)))", L"T"},
        {"equal: lists of other length", L"(equal '(1 2) '(1 2 3))", L"nil"},
        {"equal: integer and real", L"(equal 1 1.0)", L"T"},
        {"equal: no fuzz", L"(equal 1.0 1.001)", L"nil"},
        {"equal: within the fuzz", L"(equal 1.0 1.001 0.01)", L"T"},
        {"equal: beyond the fuzz", L"(equal 1.0 1.1 0.01)", L"nil"},
        {"equal: fuzz in lists", L"(equal '(1.0 (2.0)) '(1.001 (2.001)) 0.01)", L"T"},
        {"equal: list and atom", L"(equal '(1) 1)", L"nil"},
        {"equal: string and symbol", L"(equal \"A\" 'a)", L"nil"},
        {"equal: fuzz is no number", L"(equal 1 1 'a)", L"; error: bad argument type: numberp: A"},
    });
}

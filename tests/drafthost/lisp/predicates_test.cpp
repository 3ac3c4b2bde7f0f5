#include "drafthost/lisp/test_host.h"

#include <gtest/gtest.h>

using namespace drafthost;

TEST(LispPredicates, Lists) {
    ExpectShown({
        {"atom: number", L"(atom 1)", L"T"},
        {"atom: nil", L"(atom nil)", L"T"},
        {"atom: list", L"(atom '(1))", L"nil"},
        {"listp: list", L"(listp '(1))", L"T"},
        {"listp: pair", L"(listp '(1 . 2))", L"T"},
        {"listp: nil", L"(listp nil)", L"T"},
        {"listp: string", L"(listp \"a\")", L"nil"},
        {"consp: list", L"(vl-consp '(1))", L"T"},
        {"consp: nil", L"(vl-consp nil)", L"nil"},
        {"null: nil", L"(null nil)", L"T"},
        {"null: list", L"(null '(1))", L"nil"},
        {"not: nil", L"(not nil)", L"T"},
        {"not: zero", L"(not 0)", L"nil"},
        {"not: too many", L"(not 1 2)", L"; error: too many arguments"},
    });
}

TEST(LispPredicates, Numbers) {
    ExpectShown({
        {"numberp: integer", L"(numberp 1)", L"T"},
        {"numberp: real", L"(numberp 1.5)", L"T"},
        {"numberp: string", L"(numberp \"1\")", L"nil"},
        {"minusp: below zero", L"(minusp -0.5)", L"T"},
        {"minusp: zero", L"(minusp 0)", L"nil"},
        {"minusp: no number", L"(minusp nil)", L"; error: bad argument type: numberp: nil"},
        {"zerop: zero", L"(zerop 0.0)", L"T"},
        {"zerop: small", L"(zerop 1e-10)", L"nil"},
        {"zerop: no number", L"(zerop \"\")", L"; error: bad argument type: numberp: \"\""},
    });
}

TEST(LispPredicates, Symbols) {
    ExpectShown({
        {"boundp: value", L"(setq a 1) (boundp 'a)", L"T"},
        {"boundp: no value", L"(boundp 'a)", L"nil"},
        {"boundp: value nil", L"(setq a nil) (boundp 'a)", L"nil"},
        {"boundp: function", L"(boundp 'car)", L"T"},
        {"boundp: T", L"(boundp t)", L"T"},
        {"boundp: no symbol", L"(boundp 1)", L"nil"},
        {"symbolp: symbol", L"(vl-symbolp 'a)", L"T"},
        {"symbolp: T", L"(vl-symbolp t)", L"T"},
        {"symbolp: nil", L"(vl-symbolp nil)", L"nil"},
        {"symbolp: string", L"(vl-symbolp \"a\")", L"nil"},
    });
}

TEST(LispPredicates, Type) {
    ExpectShown({
        {"integer", L"(type 1)", L"INT"},
        {"real", L"(type 1.0)", L"REAL"},
        {"string", L"(type \"a\")", L"STR"},
        {"symbol", L"(type 'a)", L"SYM"},
        {"T", L"(type t)", L"SYM"},
        {"list", L"(type '(1))", L"LIST"},
        {"pair", L"(type '(1 . 2))", L"LIST"},
        {"nil", L"(type nil)", L"nil"},
        {"built-in function", L"(type car)", L"SUBR"},
        {"special form", L"(type setq)", L"SUBR"},
        {"own function", L"(defun f ()) (type f)", L"USUBR"},
        {"caught error", L"(type (vl-catch-all-apply 'exit))", L"VL-CATCH-ALL-APPLY-ERROR"},
    });
}

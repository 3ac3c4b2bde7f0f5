#include "drafthost/lisp/test_host.h"

#include <gtest/gtest.h>

using namespace drafthost;

TEST(LispNumbers, Sums) {
    ExpectShown({
        {"nothing", L"(+)", L"0"},
        {"one", L"(+ 3)", L"3"},
        {"several", L"(+ 1 2 3)", L"6"},
        {"one real makes all real", L"(+ 1 2.0 3)", L"6.0"},
        {"goes round at the upper end", L"(+ 2147483647 1)", L"-2147483648"},
        {"no number", L"(+ 1 \"a\")", L"; error: bad argument type: numberp: \"a\""},
        {"no number alone", L"(+ nil)", L"; error: bad argument type: numberp: nil"},
        {"one more", L"(1+ 5)", L"6"},
        {"one more, real", L"(1+ 2.5)", L"3.5"},
        {"one more goes round", L"(1+ 2147483647)", L"-2147483648"},
        {"one more of no number", L"(1+ 'a)", L"; error: bad argument type: numberp: A"},
    });
}

TEST(LispNumbers, Differences) {
    ExpectShown({
        {"nothing", L"(-)", L"0"},
        {"one is negated", L"(- 8)", L"-8"},
        {"real is negated", L"(- 1.5)", L"-1.5"},
        {"several", L"(- 50 40.0 2)", L"8.0"},
        {"goes round at the lower end", L"(- -2147483648 1)", L"2147483647"},
        {"the smallest has no opposite", L"(- -2147483648)", L"-2147483648"},
        {"no number", L"(- \"a\")", L"; error: bad argument type: numberp: \"a\""},
        {"one less", L"(1- 5)", L"4"},
        {"one less goes round", L"(1- -2147483648)", L"2147483647"},
    });
}

TEST(LispNumbers, Products) {
    ExpectShown({
        {"nothing", L"(*)", L"0"},
        {"one", L"(* 3)", L"3"},
        {"several", L"(* 2 3 4.0)", L"24.0"},
        {"keeps the low 32 bits", L"(* 100000 100000)", L"1410065408"},
        {"no number", L"(* 2 nil)", L"; error: bad argument type: numberp: nil"},
    });
}

TEST(LispNumbers, Quotients) {
    ExpectShown({
        {"nothing", L"(/)", L"0"},
        {"one", L"(/ 4)", L"4"},
        {"whole numbers are cut", L"(/ 7 2)", L"3"},
        {"cut towards zero", L"(/ -7 2)", L"-3"},
        {"real", L"(/ 135 360.0)", L"0.375"},
        {"several", L"(/ 100 20 2)", L"2"},
        {"by zero", L"(/ 1 0)", L"; error: divide by zero"},
        {"by a real zero", L"(/ 1.0 0.0)", L"; error: divide by zero"},
        {"by zero later on", L"(/ 1 2 0)", L"; error: divide by zero"},
        {"zero alone", L"(/ 0)", L"0"},
        {"the quotient beyond 32 bits", L"(/ -2147483648 -1)", L"-2147483648"},
        {"no number", L"(/ 1 'a)", L"; error: bad argument type: numberp: A"},
    });
}

TEST(LispNumbers, Remainders) {
    ExpectShown({
        {"nothing", L"(rem)", L"0"},
        {"whole", L"(rem 42 12)", L"6"},
        {"real", L"(rem 12.5 16)", L"12.5"},
        {"several", L"(rem 26 7 2)", L"1"},
        {"sign of the first", L"(rem -7 2)", L"-1"},
        {"by zero", L"(rem 1 0)", L"; error: divide by zero"},
        {"smallest by -1", L"(rem -2147483648 -1)", L"0"},
    });
}

TEST(LispNumbers, MaxMinAbs) {
    ExpectShown({
        {"max", L"(max 1 5 3)", L"5"},
        {"max: real when one is", L"(max 5 4.0)", L"5.0"},
        {"max: nothing", L"(max)", L"0"},
        {"min", L"(min 4 -2 7)", L"-2"},
        {"min: real when one is", L"(min 1 2.5)", L"1.0"},
        {"min: no number", L"(min 'a)", L"; error: bad argument type: numberp: A"},
        {"abs", L"(abs -5)", L"5"},
        {"abs: real", L"(abs -2.5)", L"2.5"},
        {"abs: the smallest goes round", L"(abs -2147483648)", L"-2147483648"},
    });
}

TEST(LispNumbers, Conversions) {
    ExpectShown({
        {"fix cuts", L"(fix 3.99)", L"3"},
        {"fix cuts towards zero", L"(fix -3.99)", L"-3"},
        {"fix of a whole number", L"(fix 4)", L"4"},
        {"fix beyond 32 bits stays real", L"(fix 3e9)", L"3.0e+09"},
        {"fix at the lower end", L"(fix -2147483648.5)", L"-2147483648"},
        {"float", L"(float 3)", L"3.0"},
        {"float of a real", L"(float 2.5)", L"2.5"},
        {"float of no number", L"(float nil)", L"; error: bad argument type: numberp: nil"},
    });
}

TEST(LispNumbers, Powers) {
    ExpectShown({
        {"sqrt", L"(sqrt 16)", L"4.0"},
        {"sqrt: negative", L"(sqrt -1)", L"; error: function undefined for argument: -1"},
        {"expt: whole", L"(expt 2 10)", L"1024"},
        {"expt: whole, the largest", L"(expt -2 31)", L"-2147483648"},
        {"expt: beyond 32 bits", L"(expt 2 31)", L"2.14748e+09"},
        {"expt: real", L"(expt 3.0 2)", L"9.0"},
        {"expt: whole with a negative power is cut", L"(expt 2 -1)", L"0"},
        {"expt: one with a negative power", L"(expt -1 -3)", L"-1"},
        {"expt: real with a negative power", L"(expt 2.0 -1)", L"0.5"},
        {"expt: whole with a real power", L"(expt 2 -1.0)", L"0.5"},
        {"expt: zero with a negative power", L"(expt 0 -1)", L"; error: divide by zero"},
        {"expt: root of a negative", L"(expt -1 0.5)",
         L"; error: function undefined for argument: -1"},
        {"exp", L"(exp 1)", L"2.71828"},
        {"log", L"(log 4.5)", L"1.50408"},
        {"log: zero", L"(log 0)", L"; error: function undefined for argument: 0"},
        {"log: negative", L"(log -2.0)", L"; error: function undefined for argument: -2.0"},
    });
}

TEST(LispNumbers, Angles) {
    ExpectShown({
        {"sin", L"(sin 1.0)", L"0.841471"},
        {"cos", L"(cos 0)", L"1.0"},
        {"atan", L"(atan 1)", L"0.785398"},
        {"atan of two", L"(atan 2.0 -3.0)", L"2.55359"},
        {"atan of zero and zero", L"(atan 0 0)", L"0.0"},
        {"half a turn", L"(atan 0 -1)", L"3.14159"},
    });
}

TEST(LispNumbers, Bits) {
    ExpectShown({
        {"gcd", L"(gcd 81 57)", L"3"},
        {"gcd: zero", L"(gcd 0 5)", L"; error: bad argument value: positive: 0"},
        {"gcd: negative", L"(gcd 4 -2)", L"; error: bad argument value: positive: -2"},
        {"gcd: real", L"(gcd 4.0 2)", L"; error: bad argument type: fixnump: 4.0"},
        {"complement", L"(~ 3)", L"-4"},
        {"and", L"(logand 7 15 3)", L"3"},
        {"and: nothing", L"(logand)", L"0"},
        {"or", L"(logior 1 2 4)", L"7"},
        {"or: nothing", L"(logior)", L"0"},
        {"boole: and", L"(boole 1 12 5)", L"4"},
        {"boole: the first alone", L"(boole 2 12 10)", L"4"},
        {"boole: the second alone", L"(boole 4 12 10)", L"2"},
        {"boole: exclusive or", L"(boole 6 6 5)", L"3"},
        {"boole: or", L"(boole 7 6 5)", L"7"},
        {"boole: neither", L"(boole 8 6 5)", L"-8"},
        {"boole: nothing and all", L"(list (boole 0 6 5) (boole 15 6 5))", L"(0 -1)"},
        {"boole: several", L"(boole 7 1 2 4)", L"7"},
        {"boole: one alone", L"(boole 8 5)", L"5"},
        {"boole: no such operation", L"(boole 16 1 1)",
         L"; error: bad argument value: from 0 to 15: 16"},
        {"boole: real", L"(boole 1 1.0 1)", L"; error: bad argument type: fixnump: 1.0"},
        {"left", L"(lsh 2 1)", L"4"},
        {"right", L"(lsh 8 -2)", L"2"},
        {"the sign moves like any bit", L"(lsh -1 -1)", L"2147483647"},
        {"into the sign", L"(lsh 1 31)", L"-2147483648"},
        {"all out to the left", L"(lsh 1 32)", L"0"},
        {"all out to the right", L"(lsh -1 -32)", L"0"},
        {"real", L"(lsh 1.0 1)", L"; error: bad argument type: fixnump: 1.0"},
    });
}

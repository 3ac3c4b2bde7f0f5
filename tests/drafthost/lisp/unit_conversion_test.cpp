#include "runtime/lisp/unit_conversion.h"

#include "drafthost/lisp/test_host.h"

#include <gtest/gtest.h>

using namespace drafthost;

TEST(ConvertUnits, Table) {
    struct Row {
        const char* why;
        double value;
        const wchar_t* from;
        const wchar_t* to;
        double result;
    };
    const Row rows[] = {
        {"length", 1.0, L"inch", L"cm", 2.54},
        {"plural and any case", 3.0, L"Feet", L"INCHES", 36.0},
        {"the same unit", 5.0, L"mm", L"millimeters", 5.0},
        {"area of a length", 2.0, L"sq ft", L"square inches", 288.0},
        {"area by its own name", 1.0, L"acre", L"sq yard", 4840.0},
        {"volume of a length", 1.0, L"cu m", L"liters", 1000.0},
        {"volume by its own name", 1.0, L"gallon", L"cubic inch", 231.0},
        {"time", 1.0, L"minute", L"second", 60.0},
        {"mass", 16.0, L"oz", L"lb", 1.0},
        {"angle", 1.0, L"circle", L"degrees", 360.0},
        {"angle in grades", 90.0, L"degree", L"grads", 100.0},
        {"temperature up from its zero", 100.0, L"celsius", L"fahrenheit", 212.0},
        {"temperature down", -40.0, L"f", L"c", -40.0},
        {"temperature, absolute", 0.0, L"celsius", L"kelvin", 273.15},
    };
    for (const Row& row : rows) {
        const auto result = ConvertUnits(row.value, row.from, row.to);
        ASSERT_TRUE(result.has_value()) << row.why;
        EXPECT_NEAR(*result, row.result, 1e-9) << row.why;
    }
}

TEST(ConvertUnits, WhatCantBeConvertedGivesNothing) {
    struct Row {
        const char* why;
        const wchar_t* from;
        const wchar_t* to;
    };
    const Row rows[] = {
        {"different kinds", L"gallon", L"furlong"},
        {"length and area", L"m", L"sq m"},
        {"unknown source", L"parsnip", L"m"},
        {"unknown target", L"m", L"parsnip"},
        {"no square of a time", L"sq minute", L"sq second"},
        {"empty", L"", L""},
    };
    for (const Row& row : rows)
        EXPECT_FALSE(ConvertUnits(1.0, row.from, row.to).has_value()) << row.why;
}

TEST(LispUnits, CvUnit) {
    ExpectShown({
        {"number", L"(cvunit 1 \"minute\" \"second\")", L"60.0"},
        {"point", L"(cvunit '(1 2.5) \"ft\" \"in\")", L"(12.0 30.0)"},
        {"can't be", L"(cvunit 1 \"gallon\" \"furlong\")", L"nil"},
        {"a point that can't be", L"(cvunit '(1 2) \"gallon\" \"furlong\")", L"nil"},
        {"no number", L"(cvunit \"1\" \"ft\" \"in\")",
         L"; error: bad argument type: numberp: \"1\""},
        {"no name", L"(cvunit 1 2 \"in\")", L"; error: bad argument type: stringp 2"},
    });
}

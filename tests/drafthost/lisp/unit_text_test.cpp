#include "runtime/lisp/unit_text.h"

#include <gtest/gtest.h>

#include <limits>

using namespace drafthost;

TEST(FormatUnits, Table) {
    struct Row {
        const char* why;
        double number;
        LispUnits units;
        int precision;
        const wchar_t* text;
    };
    const Row rows[] = {
        {"decimal", 17.5, LispUnits::Decimal, 2, L"17.50"},
        {"decimal, no digits", 17.6, LispUnits::Decimal, 0, L"18"},
        {"decimal, negative", -0.5, LispUnits::Decimal, 1, L"-0.5"},
        {"no sign for what is rounded to zero", -0.001, LispUnits::Decimal, 2, L"0.00"},
        {"precision below the range", 1.25, LispUnits::Decimal, -1, L"1"},
        {"precision beyond the range", 1.0, LispUnits::Decimal, 20, L"1.00000000"},
        {"large", 1e20, LispUnits::Decimal, 0, L"100000000000000000000"},
        {"scientific", 17.5, LispUnits::Scientific, 2, L"1.75E+01"},
        {"scientific, small", 0.00123, LispUnits::Scientific, 1, L"1.2E-03"},
        {"scientific, negative", -17.5, LispUnits::Scientific, 2, L"-1.75E+01"},
        {"engineering", 17.5, LispUnits::Engineering, 2, L"1'-5.50\""},
        {"engineering, below a foot", 5.5, LispUnits::Engineering, 1, L"5.5\""},
        {"engineering, rounded up to a foot", 11.999, LispUnits::Engineering, 1, L"1'"},
        {"engineering, negative", -30.0, LispUnits::Engineering, 0, L"-2'-6\""},
        {"architectural", 17.5, LispUnits::Architectural, 2, L"1'-5 1/2\""},
        {"architectural, no fraction", 24.0, LispUnits::Architectural, 4, L"2'"},
        {"architectural, below a foot", 0.75, LispUnits::Architectural, 2, L"3/4\""},
        {"architectural, rounded up to a foot", 11.99, LispUnits::Architectural, 2, L"1'"},
        {"architectural, zero inches with a fraction", 24.5, LispUnits::Architectural, 2,
         L"2'-0 1/2\""},
        {"architectural, zero", 0.0, LispUnits::Architectural, 2, L"0\""},
        {"fractional", 17.5, LispUnits::Fractional, 2, L"17 1/2"},
        {"fractional, cancelled", 0.5, LispUnits::Fractional, 4, L"1/2"},
        {"fractional, rounded", 0.3, LispUnits::Fractional, 2, L"1/4"},
        {"fractional, whole", 3.0, LispUnits::Fractional, 3, L"3"},
        {"fractional, zero", 0.0, LispUnits::Fractional, 3, L"0"},
        {"fractional, negative", -1.25, LispUnits::Fractional, 2, L"-1 1/4"},
        {"too large for fractions", 1e15, LispUnits::Fractional, 1, L"1000000000000000.0"},
        {"too large for feet", 1e15, LispUnits::Architectural, 0, L"1000000000000000"},
        {"infinite", std::numeric_limits<double>::infinity(), LispUnits::Decimal, 2, L"1.#INF"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(FormatUnits(row.number, row.units, row.precision), row.text) << row.why;
    }
}

TEST(FormatUnits, LeavesOutTheZerosThatDimzinSays) {
    struct Row {
        const char* why;
        int dimzin;
        double number;
        LispUnits units;
        const wchar_t* text;
    };
    const Row rows[] = {
        {"0: a fraction alone", 0, 0.25, LispUnits::Architectural, L"1/4\""},
        {"0: inches alone", 0, 3.0, LispUnits::Architectural, L"3\""},
        {"0: feet alone", 0, 12.0, LispUnits::Architectural, L"1'"},
        {"0: both", 0, 12.75, LispUnits::Architectural, L"1'-0 3/4\""},
        {"1: zero feet ahead of a fraction", 1, 0.25, LispUnits::Architectural, L"0'-0 1/4\""},
        {"1: zero feet", 1, 3.0, LispUnits::Architectural, L"0'-3\""},
        {"1: zero inches", 1, 12.0, LispUnits::Architectural, L"1'-0\""},
        {"1: both zero", 1, 0.0, LispUnits::Architectural, L"0'-0\""},
        {"2: zero feet", 2, 3.0, LispUnits::Architectural, L"0'-3\""},
        {"2: no zero inches", 2, 12.0, LispUnits::Architectural, L"1'"},
        {"3: no zero feet", 3, 3.0, LispUnits::Architectural, L"3\""},
        {"3: zero inches", 3, 12.0, LispUnits::Architectural, L"1'-0\""},
        {"3: zero inches of engineering units", 3, 24.0, LispUnits::Engineering, L"2'-0.0000\""},
        {"4: no zero ahead of the point", 4, 0.5, LispUnits::Decimal, L".5000"},
        {"4: zero itself stays", 4, 0.0, LispUnits::Decimal, L"0.0000"},
        {"4: ten keeps its zero", 4, 10.5, LispUnits::Decimal, L"10.5000"},
        {"4: negative", 4, -0.5, LispUnits::Decimal, L"-.5000"},
        {"8: none at the end", 8, 12.5, LispUnits::Decimal, L"12.5"},
        {"8: nor a point", 8, 10.0, LispUnits::Decimal, L"10"},
        {"8: engineering units", 8, 17.5, LispUnits::Engineering, L"1'-5.5\""},
        {"12: neither", 12, 0.5, LispUnits::Decimal, L".5"},
        {"12: zero itself stays", 12, 0.0, LispUnits::Decimal, L"0"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(FormatUnits(row.number, row.units, 4, ZerosOfVariable(row.dimzin)), row.text)
            << row.why;
    }
}

#include "drafthost/lisp/test_host.h"

#include <gtest/gtest.h>

using namespace drafthost;

TEST(LispPoints, DistanceAnglePolar) {
    ExpectShown({
        {"distance", L"(distance '(0 0) '(3 4))", L"5.0"},
        {"distance: in space", L"(distance '(1.0 1 1) '(3 4 7))", L"7.0"},
        {"distance: one point in the plane", L"(distance '(0 0) '(3 4 9))", L"5.0"},
        {"distance: no point", L"(distance nil '(0 0))",
         L"; error: bad argument type: 2D/3D point: nil"},
        {"distance: one coordinate", L"(distance '(1) '(0 0))",
         L"; error: bad argument type: 2D/3D point: (1)"},
        {"distance: four", L"(distance '(0 0) '(1 2 3 4))",
         L"; error: bad argument type: 2D/3D point: (1 2 3 4)"},
        {"distance: text within", L"(distance '(0 0) '(1 \"a\"))",
         L"; error: bad argument type: 2D/3D point: (1 \"a\")"},
        {"angle", L"(angle '(1 1) '(1 2))", L"1.5708"},
        {"angle: below the first point", L"(angle '(0 0) '(0 -1))", L"4.71239"},
        {"angle: the third coordinate doesn't count", L"(angle '(0 0 0) '(1 0 9))", L"0.0"},
        {"polar", L"(polar '(1 1) 0 2)", L"(3.0 1.0)"},
        {"polar: keeps the third coordinate", L"(polar '(1 1 3.5) 0 2)", L"(3.0 1.0 3.5)"},
        {"polar: angle is no number", L"(polar '(1 1) nil 2)",
         L"; error: bad argument type: numberp: nil"},
    });
}

TEST(LispPoints, Inters) {
    ExpectShown({
        {"two segments that cross", L"(inters '(0 0) '(2 2) '(0 2) '(2 0))", L"(1.0 1.0)"},
        {"at an end", L"(inters '(0 0) '(1 1) '(1 1) '(2 0))", L"(1.0 1.0)"},
        {"beyond the first segment", L"(inters '(0 0) '(1 1) '(0 4) '(4 0))", L"nil"},
        {"beyond the second one", L"(inters '(0 0) '(9 9) '(0 4) '(1 3))", L"nil"},
        {"segments count for a value", L"(inters '(0 0) '(1 1) '(0 4) '(4 0) t)", L"nil"},
        {"lines without ends", L"(inters '(0 0) '(1 1) '(0 4) '(4 0) nil)", L"(2.0 2.0)"},
        {"parallel", L"(inters '(0 0) '(1 1) '(1 0) '(2 1) nil)", L"nil"},
        {"the same line", L"(inters '(0 0) '(1 1) '(2 2) '(3 3) nil)", L"nil"},
        {"a line of no length", L"(inters '(0 0) '(0 0) '(1 0) '(2 1) nil)", L"nil"},
        {"in space", L"(inters '(0 0 0) '(2 2 2) '(0 2 1) '(2 0 1))", L"(1.0 1.0 1.0)"},
        {"past each other in space", L"(inters '(0 0 0) '(2 2 0) '(0 2 1) '(2 0 1))", L"nil"},
        {"one without a third coordinate: in the plane",
         L"(inters '(0 0) '(2 2 0) '(0 2 1) '(2 0 1))", L"(1.0 1.0)"},
        {"no point", L"(inters '(0 0) '(1 1) '(1 0) 5)",
         L"; error: bad argument type: 2D/3D point: 5"},
    });
}

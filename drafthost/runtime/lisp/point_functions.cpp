#include "runtime/lisp/arguments.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/function_tables.h"

#include <cmath>

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;

struct Point {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    bool hasZ = false;
};

/// A list of two or three numbers.
Point PointArgument(const LispValue& value) {
    const Arguments items = value.Items();
    const bool areNumbers = (items.size() == 2 || items.size() == 3) && items[0].IsNumber() &&
                            items[1].IsNumber() && items.back().IsNumber();
    if (!areNumbers) throw BadArgumentType(L"2D/3D point:", value);
    Point point{items[0].AsReal(), items[1].AsReal(), 0.0, items.size() == 3};
    if (point.hasZ) point.z = items[2].AsReal();
    return point;
}

/// In space when both points have a third coordinate, else in the plane.
LispValue Distance(LispEvaluator&, const Arguments& arguments) {
    const Point from = PointArgument(arguments[0]);
    const Point to = PointArgument(arguments[1]);
    const double z = from.hasZ && to.hasZ ? to.z - from.z : 0.0;
    return LispValue::Real(std::hypot(to.x - from.x, to.y - from.y, z));
}

/// In the plane, from 0 up to a whole turn.
LispValue Angle(LispEvaluator&, const Arguments& arguments) {
    const Point from = PointArgument(arguments[0]);
    const Point to = PointArgument(arguments[1]);
    const double angle = std::atan2(to.y - from.y, to.x - from.x);
    return LispValue::Real(angle < 0.0 ? angle + 2.0 * 3.14159265358979323846 : angle);
}

/// The point at an angle and a distance from another, whose third coordinate it keeps.
LispValue Polar(LispEvaluator&, const Arguments& arguments) {
    const Point from = PointArgument(arguments[0]);
    const double angle = NumberArgument(arguments[1]);
    const double distance = NumberArgument(arguments[2]);
    Arguments items = {LispValue::Real(from.x + distance * std::cos(angle)),
                       LispValue::Real(from.y + distance * std::sin(angle))};
    if (from.hasZ) items.push_back(LispValue::Real(from.z));
    return LispValue::List(items);
}

constexpr LispFunctionRow rows[] = {
    {L"DISTANCE", Distance, 2, 2},
    {L"ANGLE", Angle, 2, 2},
    {L"POLAR", Polar, 3, 3},
};

}  // namespace

void DefinePointFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost

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

constexpr double nearlyParallel = 1e-20;  // Of the square of the sine between the lines.
constexpr double nearlyMeeting = 1e-9;

Point Difference(const Point& left, const Point& right) {
    return {left.x - right.x, left.y - right.y, left.z - right.z, left.hasZ && right.hasZ};
}

double DotProduct(const Point& left, const Point& right) {
    return left.x * right.x + left.y * right.y + left.z * right.z;
}

Point CrossProduct(const Point& left, const Point& right) {
    return {left.y * right.z - left.z * right.y, left.z * right.x - left.x * right.z,
            left.x * right.y - left.y * right.x, true};
}

/// Whether a place along a segment, from 0 to 1, is on it.
bool IsWithin(double along) {
    return along >= -nearlyMeeting && along <= 1.0 + nearlyMeeting;
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

/// Where two lines meet, each given by two points. Nil when they don't; nil also when the place is
/// beyond one of the segments, unless the fifth argument is nil. In space when all points have a
/// third coordinate, else in the plane.
LispValue Inters(LispEvaluator&, const Arguments& arguments) {
    Point points[4];
    for (int at = 0; at < 4; ++at)
        points[at] = PointArgument(arguments[at]);
    const bool onSegments = arguments.size() < 5 || !arguments[4].IsNil();
    const bool inSpace = points[0].hasZ && points[1].hasZ && points[2].hasZ && points[3].hasZ;
    if (!inSpace) {
        for (Point& point : points)
            point.z = 0.0;
    }
    const Point first = Difference(points[1], points[0]);
    const Point second = Difference(points[3], points[2]);
    const Point between = Difference(points[2], points[0]);
    const Point normal = CrossProduct(first, second);
    const double size = DotProduct(normal, normal);
    const double scale = DotProduct(first, first) * DotProduct(second, second);
    if (size <= nearlyParallel * scale) return LispValue();
    // Out of the common plane of the two lines there is no meeting.
    const double away = DotProduct(between, normal) / std::sqrt(size);
    if (std::fabs(away) > nearlyMeeting * (1.0 + std::sqrt(DotProduct(between, between)))) {
        return LispValue();
    }
    const double along = DotProduct(CrossProduct(between, second), normal) / size;
    const double alongSecond = DotProduct(CrossProduct(between, first), normal) / size;
    if (onSegments && !(IsWithin(along) && IsWithin(alongSecond))) return LispValue();
    Arguments items = {LispValue::Real(points[0].x + along * first.x),
                       LispValue::Real(points[0].y + along * first.y)};
    if (inSpace) items.push_back(LispValue::Real(points[0].z + along * first.z));
    return LispValue::List(items);
}

constexpr LispFunctionRow rows[] = {
    {L"DISTANCE", Distance, 2, 2},
    {L"ANGLE", Angle, 2, 2},
    {L"POLAR", Polar, 3, 3},
    {L"INTERS", Inters, 4, 5},
};

}  // namespace

void DefinePointFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost

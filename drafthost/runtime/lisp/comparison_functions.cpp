#include "runtime/lisp/arguments.h"
#include "runtime/lisp/equality.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/function_tables.h"

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;

/// For "=": numbers by value, whole or not; whatever else as `eq`. Never an error.
bool AreEqualAtoms(const LispValue& left, const LispValue& right) {
    if (left.IsNumber() && right.IsNumber()) return left.AsReal() == right.AsReal();
    return left.IsSame(right);
}

/// Negative, zero or positive; two numbers or two strings.
int Order(const LispValue& left, const LispValue& right) {
    if (left.IsNumber() && right.IsNumber()) {
        return left.AsReal() < right.AsReal() ? -1 : left.AsReal() > right.AsReal() ? 1 : 0;
    }
    if (left.IsString() && right.IsString()) return left.AsString().compare(right.AsString());
    throw LispError(L"bad argument type for compare: " + LispPrin1(left) + L" " + LispPrin1(right));
}

/// T if the test holds for each argument and the one after it.
template <class Test>
LispValue HoldsForNeighbours(const Arguments& arguments, Test test) {
    for (std::size_t at = 1; at < arguments.size(); ++at) {
        if (!test(arguments[at - 1], arguments[at])) return LispValue();
    }
    return LispValue::True();
}

LispValue Equals(LispEvaluator&, const Arguments& arguments) {
    return HoldsForNeighbours(arguments, AreEqualAtoms);
}

LispValue Differs(LispEvaluator&, const Arguments& arguments) {
    return HoldsForNeighbours(arguments, [](const LispValue& left, const LispValue& right) {
        return !AreEqualAtoms(left, right);
    });
}

LispValue Less(LispEvaluator&, const Arguments& arguments) {
    return HoldsForNeighbours(arguments, [](const LispValue& left, const LispValue& right) {
        return Order(left, right) < 0;
    });
}

LispValue Greater(LispEvaluator&, const Arguments& arguments) {
    return HoldsForNeighbours(arguments, [](const LispValue& left, const LispValue& right) {
        return Order(left, right) > 0;
    });
}

LispValue LessOrEqual(LispEvaluator&, const Arguments& arguments) {
    return HoldsForNeighbours(arguments, [](const LispValue& left, const LispValue& right) {
        return Order(left, right) <= 0;
    });
}

LispValue GreaterOrEqual(LispEvaluator&, const Arguments& arguments) {
    return HoldsForNeighbours(arguments, [](const LispValue& left, const LispValue& right) {
        return Order(left, right) >= 0;
    });
}

LispValue Eq(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Boolean(arguments[0].IsSame(arguments[1]));
}

LispValue Equal(LispEvaluator&, const Arguments& arguments) {
    const double fuzz = arguments.size() == 3 ? NumberArgument(arguments[2]) : 0.0;
    return LispValue::Boolean(AreEqualLisp(arguments[0], arguments[1], fuzz));
}

constexpr LispFunctionRow rows[] = {
    {L"=", Equals, 1},       {L"/=", Differs, 1},        {L"<", Less, 1},   {L">", Greater, 1},
    {L"<=", LessOrEqual, 1}, {L">=", GreaterOrEqual, 1}, {L"EQ", Eq, 2, 2}, {L"EQUAL", Equal, 2, 3},
};

}  // namespace

void DefineComparisonFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost

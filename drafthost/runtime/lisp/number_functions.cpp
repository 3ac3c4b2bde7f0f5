#include "runtime/lisp/arguments.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/function_tables.h"

#include <cmath>
#include <limits>
#include <numeric>

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;

/// Whole numbers keep their low 32 bits, so sums and products go round at the ends.
LispValue Wrapped(std::int64_t integer) {
    return LispValue::Integer(static_cast<std::int32_t>(static_cast<std::uint32_t>(integer)));
}

bool FitsInteger(double whole) {
    return whole >= std::numeric_limits<std::int32_t>::min() &&
           whole <= std::numeric_limits<std::int32_t>::max();
}

LispError Undefined(const LispValue& argument) {
    return LispError(L"function undefined for argument: " + LispPrin1(argument));
}

/// One operation on two numbers: whole ones stay whole, a real makes the result real.
struct Operation {
    std::int64_t (*integers)(std::int64_t left, std::int64_t right);
    double (*reals)(double left, double right);
};

LispValue Combine(const LispValue& left, const LispValue& right, const Operation& operation) {
    NumberArgument(left);
    NumberArgument(right);
    if (left.IsInteger() && right.IsInteger()) {
        return Wrapped(operation.integers(left.AsInteger(), right.AsInteger()));
    }
    return LispValue::Real(operation.reals(left.AsReal(), right.AsReal()));
}

/// From the left to the right; one argument alone is its own result, none gives 0.
LispValue CombineAll(const Arguments& arguments, const Operation& operation) {
    if (arguments.empty()) return LispValue::Integer(0);
    NumberArgument(arguments[0]);
    LispValue result = arguments[0];
    for (std::size_t at = 1; at < arguments.size(); ++at) {
        result = Combine(result, arguments[at], operation);
    }
    return result;
}

void RefuseZeroDivisors(const Arguments& arguments) {
    for (std::size_t at = 1; at < arguments.size(); ++at) {
        if (NumberArgument(arguments[at]) == 0.0) throw LispError(L"divide by zero");
    }
}

constexpr Operation sum = {[](std::int64_t left, std::int64_t right) { return left + right; },
                           [](double left, double right) { return left + right; }};
constexpr Operation difference = {
    [](std::int64_t left, std::int64_t right) { return left - right; },
    [](double left, double right) { return left - right; }};
constexpr Operation product = {[](std::int64_t left, std::int64_t right) { return left * right; },
                               [](double left, double right) { return left * right; }};
constexpr Operation quotient = {[](std::int64_t left, std::int64_t right) { return left / right; },
                                [](double left, double right) { return left / right; }};
constexpr Operation remainder = {[](std::int64_t left, std::int64_t right) { return left % right; },
                                 [](double left, double right) { return std::fmod(left, right); }};
constexpr Operation larger = {
    [](std::int64_t left, std::int64_t right) { return left > right ? left : right; },
    [](double left, double right) { return left > right ? left : right; }};
constexpr Operation smaller = {
    [](std::int64_t left, std::int64_t right) { return left < right ? left : right; },
    [](double left, double right) { return left < right ? left : right; }};

LispValue Add(LispEvaluator&, const Arguments& arguments) {
    return CombineAll(arguments, sum);
}

LispValue Subtract(LispEvaluator&, const Arguments& arguments) {
    if (arguments.size() == 1) return Combine(LispValue::Integer(0), arguments[0], difference);
    return CombineAll(arguments, difference);
}

LispValue Multiply(LispEvaluator&, const Arguments& arguments) {
    return CombineAll(arguments, product);
}

LispValue Divide(LispEvaluator&, const Arguments& arguments) {
    RefuseZeroDivisors(arguments);
    return CombineAll(arguments, quotient);
}

LispValue Rem(LispEvaluator&, const Arguments& arguments) {
    RefuseZeroDivisors(arguments);
    return CombineAll(arguments, remainder);
}

LispValue Max(LispEvaluator&, const Arguments& arguments) {
    return CombineAll(arguments, larger);
}

LispValue Min(LispEvaluator&, const Arguments& arguments) {
    return CombineAll(arguments, smaller);
}

LispValue AddOne(LispEvaluator&, const Arguments& arguments) {
    return Combine(arguments[0], LispValue::Integer(1), sum);
}

LispValue SubtractOne(LispEvaluator&, const Arguments& arguments) {
    return Combine(arguments[0], LispValue::Integer(1), difference);
}

LispValue Abs(LispEvaluator&, const Arguments& arguments) {
    const double number = NumberArgument(arguments[0]);
    if (arguments[0].IsReal()) return LispValue::Real(std::fabs(number));
    return Wrapped(std::abs(static_cast<std::int64_t>(arguments[0].AsInteger())));
}

LispValue Fix(LispEvaluator&, const Arguments& arguments) {
    const double whole = std::trunc(NumberArgument(arguments[0]));
    return FitsInteger(whole) ? LispValue::Integer(static_cast<std::int32_t>(whole))
                              : LispValue::Real(whole);
}

LispValue Float(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Real(NumberArgument(arguments[0]));
}

LispValue Sqrt(LispEvaluator&, const Arguments& arguments) {
    const double number = NumberArgument(arguments[0]);
    if (number < 0.0) throw Undefined(arguments[0]);
    return LispValue::Real(std::sqrt(number));
}

/// Whole when both are and the result has 32 bits, cut as a quotient is; real otherwise.
LispValue Expt(LispEvaluator&, const Arguments& arguments) {
    const double base = NumberArgument(arguments[0]);
    const double power = NumberArgument(arguments[1]);
    if (base == 0.0 && power < 0.0) throw LispError(L"divide by zero");
    const double result = std::pow(base, power);
    if (std::isnan(result) && !std::isnan(base) && !std::isnan(power)) {
        throw Undefined(arguments[0]);
    }
    const bool isWhole = arguments[0].IsInteger() && arguments[1].IsInteger();
    if (!isWhole || !FitsInteger(result)) return LispValue::Real(result);
    return LispValue::Integer(static_cast<std::int32_t>(result));
}

LispValue Exp(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Real(std::exp(NumberArgument(arguments[0])));
}

LispValue Log(LispEvaluator&, const Arguments& arguments) {
    const double number = NumberArgument(arguments[0]);
    if (number <= 0.0) throw Undefined(arguments[0]);
    return LispValue::Real(std::log(number));
}

LispValue Sin(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Real(std::sin(NumberArgument(arguments[0])));
}

LispValue Cos(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Real(std::cos(NumberArgument(arguments[0])));
}

LispValue Atan(LispEvaluator&, const Arguments& arguments) {
    const double number = NumberArgument(arguments[0]);
    return LispValue::Real(arguments.size() == 1
                               ? std::atan(number)
                               : std::atan2(number, NumberArgument(arguments[1])));
}

LispValue Gcd(LispEvaluator&, const Arguments& arguments) {
    for (const LispValue& argument : arguments) {
        if (IntegerArgument(argument) <= 0) throw BadArgumentValue(L"positive:", argument);
    }
    return LispValue::Integer(std::gcd(arguments[0].AsInteger(), arguments[1].AsInteger()));
}

LispValue Complement(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Integer(~IntegerArgument(arguments[0]));
}

LispValue LogAnd(LispEvaluator&, const Arguments& arguments) {
    std::int32_t bits = arguments.empty() ? 0 : -1;
    for (const LispValue& argument : arguments)
        bits &= IntegerArgument(argument);
    return LispValue::Integer(bits);
}

LispValue LogIor(LispEvaluator&, const Arguments& arguments) {
    std::int32_t bits = 0;
    for (const LispValue& argument : arguments)
        bits |= IntegerArgument(argument);
    return LispValue::Integer(bits);
}

/// `boole`: the bits of `operation` are the results for the bits 11, 10, 01 and 00 of two numbers,
/// the lowest one first. More numbers go in one after the other.
LispValue Boole(LispEvaluator&, const Arguments& arguments) {
    const std::int32_t operation = IntegerArgument(arguments[0]);
    if (operation < 0 || operation > 15) throw BadArgumentValue(L"from 0 to 15:", arguments[0]);
    std::int32_t result = IntegerArgument(arguments[1]);
    for (std::size_t at = 2; at < arguments.size(); ++at) {
        const std::int32_t left = result;
        const std::int32_t right = IntegerArgument(arguments[at]);
        result = 0;
        if ((operation & 1) != 0) result |= left & right;
        if ((operation & 2) != 0) result |= left & ~right;
        if ((operation & 4) != 0) result |= ~left & right;
        if ((operation & 8) != 0) result |= ~left & ~right;
    }
    return LispValue::Integer(result);
}

/// Zeros come in from both sides: the sign moves like any other bit.
LispValue Lsh(LispEvaluator&, const Arguments& arguments) {
    const auto bits = static_cast<std::uint32_t>(IntegerArgument(arguments[0]));
    const std::int32_t places = IntegerArgument(arguments[1]);
    if (places <= -32 || places >= 32) return LispValue::Integer(0);
    return Wrapped(places >= 0 ? bits << places : bits >> -places);
}

constexpr LispFunctionRow rows[] = {
    {L"+", Add},           {L"-", Subtract},      {L"*", Multiply},
    {L"/", Divide},        {L"REM", Rem},         {L"MAX", Max},
    {L"MIN", Min},         {L"1+", AddOne, 1, 1}, {L"1-", SubtractOne, 1, 1},
    {L"ABS", Abs, 1, 1},   {L"FIX", Fix, 1, 1},   {L"FLOAT", Float, 1, 1},
    {L"SQRT", Sqrt, 1, 1}, {L"EXPT", Expt, 2, 2}, {L"EXP", Exp, 1, 1},
    {L"LOG", Log, 1, 1},   {L"SIN", Sin, 1, 1},   {L"COS", Cos, 1, 1},
    {L"ATAN", Atan, 1, 2}, {L"GCD", Gcd, 2, 2},   {L"~", Complement, 1, 1},
    {L"LOGAND", LogAnd},   {L"LOGIOR", LogIor},   {L"LSH", Lsh, 2, 2},
    {L"BOOLE", Boole, 2},
};

}  // namespace

void DefineNumberFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
    SymbolOf(evaluator.Symbols().Intern(L"PI")).value = LispValue::Real(3.14159265358979323846);
}

}  // namespace drafthost

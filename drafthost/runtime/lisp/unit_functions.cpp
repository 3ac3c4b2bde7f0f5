#include "runtime/lisp/arguments.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/function_tables.h"
#include "runtime/lisp/unit_conversion.h"

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;

/// A number or a point; nil when the one unit can't be converted to the other.
LispValue ConvertUnit(LispEvaluator&, const Arguments& arguments) {
    const std::wstring& from = StringArgument(arguments[1]);
    const std::wstring& to = StringArgument(arguments[2]);
    const bool isPoint = arguments[0].IsCons();
    Arguments converted;
    for (const LispValue& number :
         isPoint ? ItemsArgument(arguments[0]) : Arguments{arguments[0]}) {
        const auto value = ConvertUnits(NumberArgument(number), from, to);
        if (!value) return LispValue();
        converted.push_back(LispValue::Real(*value));
    }
    return isPoint ? LispValue::List(converted) : converted[0];
}

constexpr LispFunctionRow rows[] = {
    {L"CVUNIT", ConvertUnit, 3, 3},
};

}  // namespace

void DefineUnitFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost

#include "runtime/lisp/arguments.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/function_tables.h"

#include <algorithm>

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;

/// The argument lists of a function that is called for the first items of all lists, then for the
/// second ones, until the shortest list ends. `lists` begin with the second of `arguments`.
std::vector<Arguments> Rows(const Arguments& arguments) {
    std::vector<Arguments> lists;
    for (std::size_t at = 1; at < arguments.size(); ++at) {
        lists.push_back(ItemsArgument(arguments[at]));
    }
    std::size_t count = lists.front().size();
    for (const Arguments& list : lists)
        count = std::min(count, list.size());
    std::vector<Arguments> rows(count);
    for (std::size_t row = 0; row < count; ++row) {
        for (const Arguments& list : lists)
            rows[row].push_back(list[row]);
    }
    return rows;
}

LispValue ApplyFunction(LispEvaluator& evaluator, const Arguments& arguments) {
    return evaluator.Apply(arguments[0], ItemsArgument(arguments[1]));
}

LispValue MapCar(LispEvaluator& evaluator, const Arguments& arguments) {
    const LispValue function = evaluator.Callable(arguments[0]);
    Arguments results;
    for (const Arguments& row : Rows(arguments))
        results.push_back(evaluator.Apply(function, row));
    return LispValue::List(results);
}

/// The items for which the test says `wanted`.
LispValue Filter(LispEvaluator& evaluator, const Arguments& arguments, bool wanted) {
    const LispValue test = evaluator.Callable(arguments[0]);
    Arguments kept;
    for (const LispValue& item : ItemsArgument(arguments[1])) {
        if (!evaluator.Apply(test, {item}).IsNil() == wanted) kept.push_back(item);
    }
    return LispValue::List(kept);
}

LispValue RemoveIf(LispEvaluator& evaluator, const Arguments& arguments) {
    return Filter(evaluator, arguments, false);
}

LispValue RemoveIfNot(LispEvaluator& evaluator, const Arguments& arguments) {
    return Filter(evaluator, arguments, true);
}

/// The rest of the list from the first item for which the test says `wanted`.
LispValue FindRest(LispEvaluator& evaluator, const Arguments& arguments, bool wanted) {
    const LispValue test = evaluator.Callable(arguments[0]);
    const LispValue* rest = &ListArgument(arguments[1]);
    for (; rest->IsCons(); rest = &rest->Cdr()) {
        if (!evaluator.Apply(test, {rest->Car()}).IsNil() == wanted) return *rest;
    }
    return LispValue();
}

LispValue MemberIf(LispEvaluator& evaluator, const Arguments& arguments) {
    return FindRest(evaluator, arguments, true);
}

LispValue MemberIfNot(LispEvaluator& evaluator, const Arguments& arguments) {
    return FindRest(evaluator, arguments, false);
}

LispValue Some(LispEvaluator& evaluator, const Arguments& arguments) {
    const LispValue test = evaluator.Callable(arguments[0]);
    for (const Arguments& row : Rows(arguments)) {
        LispValue result = evaluator.Apply(test, row);
        if (!result.IsNil()) return result;
    }
    return LispValue();
}

LispValue Every(LispEvaluator& evaluator, const Arguments& arguments) {
    const LispValue test = evaluator.Callable(arguments[0]);
    for (const Arguments& row : Rows(arguments)) {
        if (evaluator.Apply(test, row).IsNil()) return LispValue();
    }
    return LispValue::True();
}

constexpr LispFunctionRow rows[] = {
    {L"APPLY", ApplyFunction, 2, 2},
    {L"MAPCAR", MapCar, 2},
    {L"VL-REMOVE-IF", RemoveIf, 2, 2},
    {L"VL-REMOVE-IF-NOT", RemoveIfNot, 2, 2},
    {L"VL-MEMBER-IF", MemberIf, 2, 2},
    {L"VL-MEMBER-IF-NOT", MemberIfNot, 2, 2},
    {L"VL-SOME", Some, 2},
    {L"VL-EVERY", Every, 2},
};

}  // namespace

void DefineMappingFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost

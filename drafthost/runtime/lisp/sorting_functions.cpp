#include "runtime/lisp/arguments.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/function_tables.h"

#include <algorithm>
#include <functional>

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;
using Indexes = std::vector<std::size_t>;
using ComesBefore = std::function<bool(std::size_t, std::size_t)>;

/// Merge sort, own because a test written in LISP may contradict itself, which the library's sort
/// doesn't bear. Equal items keep their order.
void SortIndexes(Indexes& indexes, const ComesBefore& comesBefore) {
    Indexes merged(indexes.size());
    for (std::size_t width = 1; width < indexes.size(); width *= 2) {
        for (std::size_t start = 0; start < indexes.size(); start += 2 * width) {
            const std::size_t middle = std::min(start + width, indexes.size());
            const std::size_t end = std::min(start + 2 * width, indexes.size());
            std::size_t left = start;
            std::size_t right = middle;
            for (std::size_t at = start; at < end; ++at) {
                const bool takesRight =
                    left == middle || (right < end && comesBefore(indexes[right], indexes[left]));
                merged[at] = takesRight ? indexes[right++] : indexes[left++];
            }
        }
        indexes.swap(merged);
    }
}

Indexes SortedBy(LispEvaluator& evaluator, const Arguments& items, const LispValue& function) {
    const LispValue test = evaluator.Callable(function);
    Indexes indexes;
    for (std::size_t index = 0; index < items.size(); ++index)
        indexes.push_back(index);
    SortIndexes(indexes, [&](std::size_t one, std::size_t other) {
        return !evaluator.Apply(test, {items[one], items[other]}).IsNil();
    });
    return indexes;
}

/// Integers and symbols that stand there twice come out once.
bool IsDroppedTwin(const LispValue& item, const LispValue& before) {
    return (item.IsInteger() || item.IsSymbol()) && item.IsSame(before);
}

LispValue Sort(LispEvaluator& evaluator, const Arguments& arguments) {
    const Arguments items = ItemsArgument(arguments[0]);
    Arguments sorted;
    for (const std::size_t index : SortedBy(evaluator, items, arguments[1])) {
        if (sorted.empty() || !IsDroppedTwin(items[index], sorted.back())) {
            sorted.push_back(items[index]);
        }
    }
    return LispValue::List(sorted);
}

/// The places of the items in sorted order; none is dropped.
LispValue SortedPlaces(LispEvaluator& evaluator, const Arguments& arguments) {
    Arguments places;
    for (const std::size_t index : SortedBy(evaluator, ItemsArgument(arguments[0]), arguments[1])) {
        places.push_back(LispValue::Integer(static_cast<std::int32_t>(index)));
    }
    return LispValue::List(places);
}

LispValue SortStrings(LispEvaluator&, const Arguments& arguments) {
    Arguments strings = ItemsArgument(arguments[0]);
    for (const LispValue& string : strings)
        StringArgument(string);
    std::stable_sort(strings.begin(), strings.end(),
                     [](const LispValue& left, const LispValue& right) {
                         return left.AsString() < right.AsString();
                     });
    return LispValue::List(strings);
}

constexpr LispFunctionRow rows[] = {
    {L"VL-SORT", Sort, 2, 2},
    {L"VL-SORT-I", SortedPlaces, 2, 2},
    {L"ACAD_STRLSORT", SortStrings, 1, 1},
};

}  // namespace

void DefineSortingFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost

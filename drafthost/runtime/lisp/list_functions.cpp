#include "runtime/lisp/arguments.h"
#include "runtime/lisp/equality.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/function_tables.h"

#include <algorithm>

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;

/// The car or cdr of nil is nil.
LispValue Part(const LispValue& value, char letter) {
    if (value.IsNil()) return value;
    if (!value.IsCons()) throw BadArgumentType(L"consp", value);
    return letter == 'A' ? value.Car() : value.Cdr();
}

/// C...R: the letters between, the last one taken first.
template <char... letters>
LispValue Path(LispEvaluator&, const Arguments& arguments) {
    constexpr char path[] = {letters...};
    LispValue value = arguments[0];
    for (auto letter = std::rbegin(path); letter != std::rend(path); ++letter) {
        value = Part(value, *letter);
    }
    return value;
}

LispValue Cons(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Cons(arguments[0], arguments[1]);
}

LispValue List(LispEvaluator&, const Arguments& arguments) {
    return LispValue::List(arguments);
}

/// As `list`, with the last argument as the end of the list.
LispValue ListStar(LispEvaluator&, const Arguments& arguments) {
    return LispValue::List({arguments.begin(), arguments.end() - 1}, arguments.back());
}

LispValue Append(LispEvaluator&, const Arguments& arguments) {
    if (arguments.empty()) return LispValue();
    Arguments items;
    for (std::size_t at = 0; at + 1 < arguments.size(); ++at) {
        const Arguments more = ItemsArgument(arguments[at]);
        items.insert(items.end(), more.begin(), more.end());
    }
    return LispValue::List(items, ListArgument(arguments.back()));
}

LispValue Reverse(LispEvaluator&, const Arguments& arguments) {
    Arguments items = ItemsArgument(arguments[0]);
    std::reverse(items.begin(), items.end());
    return LispValue::List(items);
}

LispValue Nth(LispEvaluator&, const Arguments& arguments) {
    const std::int32_t index = IntegerArgument(arguments[0]);
    if (index < 0) throw BadArgumentValue(L"non-negative:", arguments[0]);
    const LispValue* rest = &ListArgument(arguments[1]);
    for (std::int32_t skipped = 0; skipped < index && rest->IsCons(); ++skipped) {
        rest = &rest->Cdr();
    }
    return rest->IsCons() ? rest->Car() : LispValue();
}

LispValue Last(LispEvaluator&, const Arguments& arguments) {
    const Arguments items = ItemsArgument(arguments[0]);
    return items.empty() ? LispValue() : items.back();
}

LispValue Length(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Integer(static_cast<std::int32_t>(ItemsArgument(arguments[0]).size()));
}

/// As `length`, but nil for a dotted list.
LispValue ListLength(LispEvaluator&, const Arguments& arguments) {
    std::int32_t length = 0;
    const LispValue* rest = &ListArgument(arguments[0]);
    for (; rest->IsCons(); rest = &rest->Cdr())
        ++length;
    return rest->IsNil() ? LispValue::Integer(length) : LispValue();
}

LispValue Member(LispEvaluator&, const Arguments& arguments) {
    const LispValue* rest = &ListArgument(arguments[1]);
    for (; rest->IsCons(); rest = &rest->Cdr()) {
        if (AreEqualLisp(rest->Car(), arguments[0])) return *rest;
    }
    return LispValue();
}

LispValue Assoc(LispEvaluator&, const Arguments& arguments) {
    const LispValue* rest = &ListArgument(arguments[1]);
    for (; rest->IsCons(); rest = &rest->Cdr()) {
        if (!rest->Car().IsCons()) {
            throw LispError(L"bad association list: " + LispPrin1(arguments[1]));
        }
        if (AreEqualLisp(rest->Car().Car(), arguments[0])) return rest->Car();
    }
    return LispValue();
}

LispValue Subst(LispEvaluator&, const Arguments& arguments) {
    Arguments items = ItemsArgument(arguments[2]);
    for (LispValue& item : items) {
        if (AreEqualLisp(item, arguments[1])) item = arguments[0];
    }
    return LispValue::List(items);
}

LispValue Remove(LispEvaluator&, const Arguments& arguments) {
    Arguments kept;
    for (const LispValue& item : ItemsArgument(arguments[1])) {
        if (!AreEqualLisp(item, arguments[0])) kept.push_back(item);
    }
    return LispValue::List(kept);
}

LispValue Position(LispEvaluator&, const Arguments& arguments) {
    const Arguments items = ItemsArgument(arguments[1]);
    const auto found = std::find_if(items.begin(), items.end(), [&](const LispValue& item) {
        return AreEqualLisp(item, arguments[0]);
    });
    if (found == items.end()) return LispValue();
    return LispValue::Integer(static_cast<std::int32_t>(found - items.begin()));
}

constexpr LispFunctionRow rows[] = {
    {L"CAR", Path<'A'>, 1, 1},
    {L"CDR", Path<'D'>, 1, 1},
    {L"CAAR", Path<'A', 'A'>, 1, 1},
    {L"CADR", Path<'A', 'D'>, 1, 1},
    {L"CDAR", Path<'D', 'A'>, 1, 1},
    {L"CDDR", Path<'D', 'D'>, 1, 1},
    {L"CAAAR", Path<'A', 'A', 'A'>, 1, 1},
    {L"CAADR", Path<'A', 'A', 'D'>, 1, 1},
    {L"CADAR", Path<'A', 'D', 'A'>, 1, 1},
    {L"CADDR", Path<'A', 'D', 'D'>, 1, 1},
    {L"CDAAR", Path<'D', 'A', 'A'>, 1, 1},
    {L"CDADR", Path<'D', 'A', 'D'>, 1, 1},
    {L"CDDAR", Path<'D', 'D', 'A'>, 1, 1},
    {L"CDDDR", Path<'D', 'D', 'D'>, 1, 1},
    {L"CAAAAR", Path<'A', 'A', 'A', 'A'>, 1, 1},
    {L"CAAADR", Path<'A', 'A', 'A', 'D'>, 1, 1},
    {L"CAADAR", Path<'A', 'A', 'D', 'A'>, 1, 1},
    {L"CAADDR", Path<'A', 'A', 'D', 'D'>, 1, 1},
    {L"CADAAR", Path<'A', 'D', 'A', 'A'>, 1, 1},
    {L"CADADR", Path<'A', 'D', 'A', 'D'>, 1, 1},
    {L"CADDAR", Path<'A', 'D', 'D', 'A'>, 1, 1},
    {L"CADDDR", Path<'A', 'D', 'D', 'D'>, 1, 1},
    {L"CDAAAR", Path<'D', 'A', 'A', 'A'>, 1, 1},
    {L"CDAADR", Path<'D', 'A', 'A', 'D'>, 1, 1},
    {L"CDADAR", Path<'D', 'A', 'D', 'A'>, 1, 1},
    {L"CDADDR", Path<'D', 'A', 'D', 'D'>, 1, 1},
    {L"CDDAAR", Path<'D', 'D', 'A', 'A'>, 1, 1},
    {L"CDDADR", Path<'D', 'D', 'A', 'D'>, 1, 1},
    {L"CDDDAR", Path<'D', 'D', 'D', 'A'>, 1, 1},
    {L"CDDDDR", Path<'D', 'D', 'D', 'D'>, 1, 1},
    {L"CONS", Cons, 2, 2},
    {L"LIST", List},
    {L"VL-LIST*", ListStar, 1},
    {L"APPEND", Append},
    {L"REVERSE", Reverse, 1, 1},
    {L"NTH", Nth, 2, 2},
    {L"LAST", Last, 1, 1},
    {L"LENGTH", Length, 1, 1},
    {L"VL-LIST-LENGTH", ListLength, 1, 1},
    {L"MEMBER", Member, 2, 2},
    {L"ASSOC", Assoc, 2, 2},
    {L"SUBST", Subst, 3, 3},
    {L"VL-REMOVE", Remove, 2, 2},
    {L"VL-POSITION", Position, 2, 2},
};

}  // namespace

void DefineListFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost

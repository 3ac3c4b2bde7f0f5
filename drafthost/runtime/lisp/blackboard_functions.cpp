#include "runtime/lisp/arguments.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/function_tables.h"

#include <map>
#include <string>
#include <vector>

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;

/// The values that all drawings share, by the upper-case names of their symbols.
std::map<std::wstring, LispValue>& Blackboard() {
    static std::map<std::wstring, LispValue> values;
    return values;
}

/// Only data passes between the worlds: a symbol or function belongs to one of them.
void RequireData(const LispValue& value) {
    std::vector<const LispValue*> unchecked = {&value};  // A list may be nested very deep.
    while (!unchecked.empty()) {
        const LispValue* part = unchecked.back();
        unchecked.pop_back();
        for (; part->IsCons(); part = &part->Cdr())
            unchecked.push_back(&part->Car());
        const bool isData =
            part->IsNil() || part->Kind() == LispKind::True || part->IsNumber() || part->IsString();
        if (!isData) throw BadArgumentType(L"number, string or list of these:", value);
    }
}

LispValue SetShared(LispEvaluator&, const Arguments& arguments) {
    const std::wstring& name = SymbolOf(SymbolArgument(arguments[0])).name;
    RequireData(arguments[1]);
    if (arguments[1].IsNil()) {
        Blackboard().erase(name);
    } else {
        Blackboard()[name] = arguments[1];
    }
    return arguments[1];
}

LispValue SharedValue(LispEvaluator&, const Arguments& arguments) {
    const auto found = Blackboard().find(SymbolOf(SymbolArgument(arguments[0])).name);
    return found == Blackboard().end() ? LispValue() : found->second;
}

/// All code of a drawing runs in its one world, so these are `set` and a symbol's value.
LispValue SetInDrawing(LispEvaluator&, const Arguments& arguments) {
    SymbolOf(SymbolArgument(arguments[0])).value = arguments[1];
    return arguments[1];
}

LispValue ValueInDrawing(LispEvaluator&, const Arguments& arguments) {
    return SymbolOf(SymbolArgument(arguments[0])).value;
}

constexpr LispFunctionRow rows[] = {
    {L"VL-BB-SET", SetShared, 2, 2},
    {L"VL-BB-REF", SharedValue, 1, 1},
    {L"VL-DOC-SET", SetInDrawing, 2, 2},
    {L"VL-DOC-REF", ValueInDrawing, 1, 1},
};

}  // namespace

void DefineBlackboardFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost

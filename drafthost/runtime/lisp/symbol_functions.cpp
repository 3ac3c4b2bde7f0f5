#include "runtime/lisp/arguments.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/function_tables.h"
#include "runtime/lisp/reader.h"

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;

LispValue Set(LispEvaluator&, const Arguments& arguments) {
    SymbolOf(SymbolArgument(arguments[0])).value = arguments[1];
    return arguments[1];
}

LispValue Eval(LispEvaluator& evaluator, const Arguments& arguments) {
    return evaluator.Evaluate(arguments[0]);
}

LispValue Read(LispEvaluator& evaluator, const Arguments& arguments) {
    if (arguments.empty()) return LispValue();
    LispReader reader(StringArgument(arguments[0]), evaluator.Symbols());
    LispValue expression;
    reader.Next(expression);  // Without an expression the value stays nil.
    return expression;
}

LispValue SymbolName(LispEvaluator&, const Arguments& arguments) {
    if (arguments[0].Kind() == LispKind::True) return LispValue::String(L"T");
    return LispValue::String(SymbolOf(SymbolArgument(arguments[0])).name);
}

LispValue SymbolValue(LispEvaluator&, const Arguments& arguments) {
    if (arguments[0].Kind() == LispKind::True) return arguments[0];
    return SymbolOf(SymbolArgument(arguments[0])).value;
}

/// A symbol as it is, or its name, as the first argument of `atoms-family` says.
LispValue SymbolOrName(const LispValue& symbol, bool asName) {
    return asName ? LispValue::String(SymbolOf(symbol).name) : symbol;
}

/// All symbols that have a value; or of the names in a list those that have one, nil for others.
LispValue AtomsFamily(LispEvaluator& evaluator, const Arguments& arguments) {
    const bool asNames = IntegerArgument(arguments[0]) != 0;
    Arguments family;
    if (arguments.size() == 1) {
        for (const LispValue& symbol : evaluator.Symbols().All()) {
            if (!SymbolOf(symbol).value.IsNil()) family.push_back(SymbolOrName(symbol, asNames));
        }
        return LispValue::List(family);
    }
    for (const LispValue& name : ItemsArgument(arguments[1])) {
        const SymbolCell* symbol = evaluator.Symbols().Find(StringArgument(name));
        const bool hasValue = symbol != nullptr && !symbol->value.IsNil();
        family.push_back(hasValue ? SymbolOrName(evaluator.Symbols().Intern(symbol->name), asNames)
                                  : LispValue());
    }
    return LispValue::List(family);
}

constexpr LispFunctionRow rows[] = {
    {L"SET", Set, 2, 2},
    {L"EVAL", Eval, 1, 1},
    {L"READ", Read, 0, 1},
    {L"VL-SYMBOL-NAME", SymbolName, 1, 1},
    {L"VL-SYMBOL-VALUE", SymbolValue, 1, 1},
    {L"ATOMS-FAMILY", AtomsFamily, 1, 2},
};

}  // namespace

void DefineSymbolFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost

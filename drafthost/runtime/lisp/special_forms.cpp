#include "runtime/lisp/arguments.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/function_tables.h"

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;

LispValue Quote(LispEvaluator&, const Arguments& arguments) {
    return arguments[0];
}

LispValue Lambda(LispEvaluator& evaluator, const Arguments& arguments) {
    return evaluator.MakeFunction(L"", arguments[0], {arguments.begin() + 1, arguments.end()});
}

LispValue Function(LispEvaluator& evaluator, const Arguments& arguments) {
    return arguments[0].IsCons() && IsLispFunction(arguments[0]) ? evaluator.Evaluate(arguments[0])
                                                                 : arguments[0];
}

LispValue Defun(LispEvaluator& evaluator, const Arguments& arguments) {
    SymbolCell& symbol = SymbolOf(SymbolArgument(arguments[0]));
    symbol.value =
        evaluator.MakeFunction(symbol.name, arguments[1], {arguments.begin() + 2, arguments.end()});
    return arguments[0];
}

LispValue SetQ(LispEvaluator& evaluator, const Arguments& arguments) {
    if (arguments.size() % 2 != 0) throw LispError(L"syntax error");
    LispValue value;
    for (std::size_t at = 0; at < arguments.size(); at += 2) {
        SymbolCell& symbol = SymbolOf(SymbolArgument(arguments[at]));
        value = evaluator.Evaluate(arguments[at + 1]);
        symbol.value = value;
    }
    return value;
}

LispValue If(LispEvaluator& evaluator, const Arguments& arguments) {
    if (!evaluator.Evaluate(arguments[0]).IsNil()) return evaluator.Evaluate(arguments[1]);
    return arguments.size() == 3 ? evaluator.Evaluate(arguments[2]) : LispValue();
}

LispValue Cond(LispEvaluator& evaluator, const Arguments& arguments) {
    for (const LispValue& clause : arguments) {
        const Arguments parts = ItemsArgument(clause);
        if (parts.empty()) continue;
        const LispValue test = evaluator.Evaluate(parts[0]);
        if (test.IsNil()) continue;
        return parts.size() == 1 ? test : evaluator.EvaluateAll(parts, 1);
    }
    return LispValue();
}

LispValue And(LispEvaluator& evaluator, const Arguments& arguments) {
    for (const LispValue& argument : arguments) {
        if (evaluator.Evaluate(argument).IsNil()) return LispValue();
    }
    return LispValue::True();
}

LispValue Or(LispEvaluator& evaluator, const Arguments& arguments) {
    for (const LispValue& argument : arguments) {
        if (!evaluator.Evaluate(argument).IsNil()) return LispValue::True();
    }
    return LispValue();
}

LispValue Progn(LispEvaluator& evaluator, const Arguments& arguments) {
    return evaluator.EvaluateAll(arguments);
}

LispValue While(LispEvaluator& evaluator, const Arguments& arguments) {
    LispValue value;
    while (!evaluator.Evaluate(arguments[0]).IsNil()) {
        evaluator.CheckInterruption();
        value = evaluator.EvaluateAll(arguments, 1);
    }
    return value;
}

LispValue Repeat(LispEvaluator& evaluator, const Arguments& arguments) {
    const std::int32_t count = IntegerArgument(evaluator.Evaluate(arguments[0]));
    LispValue value;
    for (std::int32_t done = 0; done < count; ++done) {
        evaluator.CheckInterruption();
        value = evaluator.EvaluateAll(arguments, 1);
    }
    return value;
}

LispValue ForEach(LispEvaluator& evaluator, const Arguments& arguments) {
    SymbolCell& symbol = SymbolOf(SymbolArgument(arguments[0]));
    LispValue value;
    for (const LispValue& item : ItemsArgument(evaluator.Evaluate(arguments[1]))) {
        evaluator.CheckInterruption();
        value = evaluator.EvaluateWith(symbol, item, arguments, 2);
    }
    return value;
}

constexpr LispFunctionRow rows[] = {
    {L"QUOTE", Quote, 1, 1, true},      {L"FUNCTION", Function, 1, 1, true},
    {L"LAMBDA", Lambda, 1, -1, true},   {L"DEFUN", Defun, 2, -1, true},
    {L"SETQ", SetQ, 0, -1, true},       {L"IF", If, 2, 3, true},
    {L"COND", Cond, 0, -1, true},       {L"AND", And, 0, -1, true},
    {L"OR", Or, 0, -1, true},           {L"PROGN", Progn, 0, -1, true},
    {L"WHILE", While, 1, -1, true},     {L"REPEAT", Repeat, 1, -1, true},
    {L"FOREACH", ForEach, 2, -1, true},
};

}  // namespace

void DefineSpecialForms(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost

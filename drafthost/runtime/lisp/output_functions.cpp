#include "runtime/lisp/arguments.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/file_cell.h"
#include "runtime/lisp/function_tables.h"

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;

/// Puts `text` out to the file that the second argument may be. The functions of this family
/// return their first argument, and without one the symbol that a prompt shows nothing for.
LispValue Put(LispEvaluator& evaluator, const Arguments& arguments, const std::wstring& text) {
    PutText(evaluator.Host(), arguments.size() == 2 ? arguments[1] : LispValue(), text);
    return arguments[0];
}

LispValue Princ(LispEvaluator& evaluator, const Arguments& arguments) {
    if (arguments.empty()) return evaluator.Symbols().Intern(L"");
    return Put(evaluator, arguments, LispPrinc(arguments[0]));
}

LispValue Prin1(LispEvaluator& evaluator, const Arguments& arguments) {
    if (arguments.empty()) return evaluator.Symbols().Intern(L"");
    return Put(evaluator, arguments, LispPrin1(arguments[0]));
}

LispValue Print(LispEvaluator& evaluator, const Arguments& arguments) {
    if (arguments.empty()) return evaluator.Symbols().Intern(L"");
    return Put(evaluator, arguments, L"\n" + LispPrin1(arguments[0]) + L" ");
}

LispValue Prompt(LispEvaluator& evaluator, const Arguments& arguments) {
    evaluator.Host().Print(StringArgument(arguments[0]));
    return LispValue();
}

LispValue TerPri(LispEvaluator& evaluator, const Arguments&) {
    evaluator.Host().Print(L"\n");
    return LispValue();
}

/// A console has no message boxes: the text stands on a line of its own.
LispValue Alert(LispEvaluator& evaluator, const Arguments& arguments) {
    evaluator.Host().Print(L"\n" + StringArgument(arguments[0]) + L"\n");
    return LispValue();
}

constexpr LispFunctionRow rows[] = {
    {L"PRINC", Princ, 0, 2},   {L"PRIN1", Prin1, 0, 2},   {L"PRINT", Print, 0, 2},
    {L"PROMPT", Prompt, 1, 1}, {L"TERPRI", TerPri, 0, 0}, {L"ALERT", Alert, 1, 1},
};

}  // namespace

void DefineOutputFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost

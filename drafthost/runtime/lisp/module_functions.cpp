#include "runtime/lisp/arguments.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/function_tables.h"

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;

LispValue Arx(LispEvaluator& evaluator, const Arguments&) {
    Arguments names;
    for (const std::wstring& name : evaluator.Host().Modules())
        names.push_back(LispValue::String(name));
    return LispValue::List(names);
}

/// The file's name, or the second argument in place of the error.
LispValue Outcome(const Arguments& arguments, const wchar_t* function, bool succeeded) {
    if (succeeded) return arguments[0];
    if (arguments.size() == 2) return arguments[1];
    throw LispError(std::wstring(function) + L" failed: " + LispPrin1(arguments[0]));
}

LispValue ArxLoad(LispEvaluator& evaluator, const Arguments& arguments) {
    const bool loaded = evaluator.Host().LoadModule(StringArgument(arguments[0]));
    return Outcome(arguments, L"ARXLOAD", loaded);
}

LispValue ArxUnload(LispEvaluator& evaluator, const Arguments& arguments) {
    const bool unloaded = evaluator.Host().UnloadModule(StringArgument(arguments[0]));
    return Outcome(arguments, L"ARXUNLOAD", unloaded);
}

/// A function C:NAME that loads the file, which is to define the real one, and calls that.
std::wstring StubText(const std::wstring& file, const std::wstring& command) {
    const std::wstring function = L"C:" + command;
    const std::wstring missing =
        LispPrin1(LispValue::String(L"\n" + file + L" doesn't define " + function + L"."));
    std::wstring text = L"(defun " + function + L" () ((lambda (stub) (load ";
    text += LispPrin1(LispValue::String(file));
    text += L") (if (eq stub " + function + L") (progn (princ " + missing + L") (princ)) (";
    text += function + L"))) " + function + L"))";
    return text;
}

/// Commands that have a function already keep it.
LispValue AutoLoad(LispEvaluator& evaluator, const Arguments& arguments) {
    const std::wstring& file = StringArgument(arguments[0]);
    for (const LispValue& command : ItemsArgument(arguments[1])) {
        const std::wstring& name = StringArgument(command);
        const SymbolCell* symbol = evaluator.Symbols().Find(L"C:" + name);
        if (symbol != nullptr && IsLispFunction(symbol->value)) continue;
        evaluator.EvaluateText(StubText(file, name));
    }
    return LispValue();
}

constexpr LispFunctionRow rows[] = {
    {L"ARX", Arx, 0, 0},
    {L"ARXLOAD", ArxLoad, 1, 2},
    {L"ARXUNLOAD", ArxUnload, 1, 2},
    {L"AUTOLOAD", AutoLoad, 2, 2},
};

}  // namespace

void DefineModuleFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost

#include "runtime/lisp/arguments.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/function_tables.h"

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;

LispValue Exit(LispEvaluator&, const Arguments&) {
    throw LispError(L"quit / exit abort", LispError::Cause::Exit);
}

LispValue CatchAllApply(LispEvaluator& evaluator, const Arguments& arguments) {
    return evaluator.ApplyAndCatch(
        arguments[0], arguments.size() == 2 ? ItemsArgument(arguments[1]) : Arguments());
}

LispValue IsCatchAllError(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Boolean(arguments[0].Kind() == LispKind::CaughtError);
}

LispValue CatchAllErrorMessage(LispEvaluator&, const Arguments& arguments) {
    if (arguments[0].Kind() != LispKind::CaughtError) {
        throw BadArgumentType(L"vl-catch-all-error-p", arguments[0]);
    }
    return LispValue::String(CellOf<CaughtErrorCell>(arguments[0]).message);
}

constexpr LispFunctionRow rows[] = {
    {L"EXIT", Exit, 0, 0},
    {L"QUIT", Exit, 0, 0},
    {L"VL-CATCH-ALL-APPLY", CatchAllApply, 1, 2},
    {L"VL-CATCH-ALL-ERROR-P", IsCatchAllError, 1, 1},
    {L"VL-CATCH-ALL-ERROR-MESSAGE", CatchAllErrorMessage, 1, 1},
};

}  // namespace

void DefineErrorFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost

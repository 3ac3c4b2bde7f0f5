#include "runtime/lisp/arguments.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/function_tables.h"
#include "runtime/lisp/number_text.h"

#include <algorithm>

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;

std::wstring Ask(LispEvaluator& evaluator, const LispValue& prompt) {
    const auto line =
        evaluator.Host().ReadLine(prompt.IsNil() ? std::wstring() : StringArgument(prompt));
    if (!line) throw FunctionCancelled(LispError::Cause::Failure);
    return *line;
}

/// With T for the first of two arguments blanks are part of the answer, else the first one ends it.
LispValue GetString(LispEvaluator& evaluator, const Arguments& arguments) {
    const bool promptsFirst = arguments.size() == 1 && arguments[0].IsString();
    const bool takesBlanks = !arguments.empty() && !promptsFirst && !arguments[0].IsNil();
    const LispValue prompt = arguments.size() == 2 ? arguments[1]
                             : promptsFirst        ? arguments[0]
                                                   : LispValue();
    std::wstring line = Ask(evaluator, prompt);
    if (!takesBlanks) line.erase(std::min(line.find(L' '), line.size()));
    return LispValue::String(std::move(line));
}

/// Asks until the answer is a number that `accepts` it; an empty one gives nil.
template <class Accepts>
LispValue AskForNumber(LispEvaluator& evaluator, const Arguments& arguments,
                       const wchar_t* complaint, Accepts accepts) {
    for (;;) {
        evaluator.CheckInterruption();
        const std::wstring line = Ask(evaluator, arguments.empty() ? LispValue() : arguments[0]);
        const std::size_t first = line.find_first_not_of(L' ');
        if (first == std::wstring::npos) return LispValue();
        const auto number =
            ParseLispNumber(line.substr(first, line.find_last_not_of(L' ') - first + 1));
        if (number && accepts(*number)) return *number;
        evaluator.Host().Print(complaint);
    }
}

LispValue GetInt(LispEvaluator& evaluator, const Arguments& arguments) {
    return AskForNumber(evaluator, arguments, L"Requires an integer value.\n",
                        [](const LispValue& number) { return number.IsInteger(); });
}

LispValue GetReal(LispEvaluator& evaluator, const Arguments& arguments) {
    const LispValue number = AskForNumber(evaluator, arguments, L"Requires numeric value.\n",
                                          [](const LispValue&) { return true; });
    return number.IsNil() ? number : LispValue::Real(number.AsReal());
}

constexpr LispFunctionRow rows[] = {
    {L"GETSTRING", GetString, 0, 2},
    {L"GETINT", GetInt, 0, 1},
    {L"GETREAL", GetReal, 0, 1},
};

}  // namespace

void DefineInputFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost

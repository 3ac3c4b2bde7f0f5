#include "runtime/lisp/arguments.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/function_tables.h"
#include "runtime/lisp/letter_case.h"
#include "runtime/lisp/number_text.h"
#include "runtime/lisp/printer.h"
#include "runtime/lisp/unit_text.h"
#include "runtime/lisp/wildcard.h"

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;

LispValue StrCat(LispEvaluator&, const Arguments& arguments) {
    std::wstring text;
    for (const LispValue& argument : arguments)
        text += StringArgument(argument);
    return LispValue::String(std::move(text));
}

LispValue StrLen(LispEvaluator&, const Arguments& arguments) {
    std::size_t length = 0;
    for (const LispValue& argument : arguments)
        length += StringArgument(argument).size();
    return LispValue::Integer(static_cast<std::int32_t>(length));
}

LispValue SubStr(LispEvaluator&, const Arguments& arguments) {
    const std::wstring& text = StringArgument(arguments[0]);
    const std::int32_t start = IntegerArgument(arguments[1]);
    const std::int32_t length =
        arguments.size() == 3 ? IntegerArgument(arguments[2]) : static_cast<int>(text.size());
    if (start < 1) throw BadArgumentValue(L"positive:", arguments[1]);
    if (length < 0) throw BadArgumentValue(L"non-negative:", arguments[2]);
    if (static_cast<std::size_t>(start) > text.size()) return LispValue::String(L"");
    return LispValue::String(text.substr(start - 1, length));
}

LispValue StrCase(LispEvaluator&, const Arguments& arguments) {
    const std::wstring& text = StringArgument(arguments[0]);
    const bool toLower = arguments.size() == 2 && !arguments[1].IsNil();
    return LispValue::String(toLower ? ToLowerCase(text) : ToUpperCase(text));
}

LispValue IToA(LispEvaluator&, const Arguments& arguments) {
    return LispValue::String(std::to_wstring(IntegerArgument(arguments[0])));
}

LispValue AToI(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Integer(LeadingInteger(StringArgument(arguments[0])));
}

LispValue AToF(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Real(LeadingReal(StringArgument(arguments[0])));
}

/// The host's variable, when it has one that is an integer.
std::int32_t VariableOr(LispEvaluator& evaluator, const wchar_t* name, std::int32_t fallback) {
    const auto variable = evaluator.Host().GetVariable(name);
    return variable && variable->IsInteger() ? variable->AsInteger() : fallback;
}

LispValue RToS(LispEvaluator& evaluator, const Arguments& arguments) {
    const double number = NumberArgument(arguments[0]);
    const std::int32_t mode =
        arguments.size() > 1 ? IntegerArgument(arguments[1]) : VariableOr(evaluator, L"LUNITS", 2);
    const std::int32_t precision =
        arguments.size() > 2 ? IntegerArgument(arguments[2]) : VariableOr(evaluator, L"LUPREC", 4);
    if (mode < 1 || mode > 5)
        throw BadArgumentValue(L"mode from 1 to 5:", LispValue::Integer(mode));
    const LispZeros zeros = ZerosOfVariable(VariableOr(evaluator, L"DIMZIN", 0));
    return LispValue::String(FormatUnits(number, static_cast<LispUnits>(mode), precision, zeros));
}

LispValue Ascii(LispEvaluator&, const Arguments& arguments) {
    const std::wstring& text = StringArgument(arguments[0]);
    return LispValue::Integer(text.empty() ? 0 : text[0]);
}

LispValue Chr(LispEvaluator&, const Arguments& arguments) {
    const std::int32_t code = IntegerArgument(arguments[0]);
    if (code < 0 || code > 0xFFFF) throw BadArgumentValue(L"character code:", arguments[0]);
    return LispValue::String(code == 0 ? L"" : std::wstring(1, static_cast<wchar_t>(code)));
}

LispValue WcMatch(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Boolean(
        MatchesWildcards(StringArgument(arguments[0]), StringArgument(arguments[1])));
}

LispValue Prin1ToString(LispEvaluator&, const Arguments& arguments) {
    return LispValue::String(LispPrin1(arguments[0]));
}

LispValue PrincToString(LispEvaluator&, const Arguments& arguments) {
    return LispValue::String(LispPrinc(arguments[0]));
}

LispValue StringToList(LispEvaluator&, const Arguments& arguments) {
    Arguments codes;
    for (const wchar_t letter : StringArgument(arguments[0])) {
        codes.push_back(LispValue::Integer(letter));
    }
    return LispValue::List(codes);
}

LispValue ListToString(LispEvaluator&, const Arguments& arguments) {
    std::wstring text;
    for (const LispValue& item : ItemsArgument(arguments[0])) {
        const std::int32_t code = IntegerArgument(item);
        if (code < 1 || code > 0xFFFF) throw BadArgumentValue(L"character code:", item);
        text += static_cast<wchar_t>(code);
    }
    return LispValue::String(std::move(text));
}

constexpr LispFunctionRow rows[] = {
    {L"STRCAT", StrCat},
    {L"STRLEN", StrLen},
    {L"SUBSTR", SubStr, 2, 3},
    {L"STRCASE", StrCase, 1, 2},
    {L"ITOA", IToA, 1, 1},
    {L"ATOI", AToI, 1, 1},
    {L"ATOF", AToF, 1, 1},
    {L"RTOS", RToS, 1, 3},
    {L"ASCII", Ascii, 1, 1},
    {L"CHR", Chr, 1, 1},
    {L"WCMATCH", WcMatch, 2, 2},
    {L"VL-PRIN1-TO-STRING", Prin1ToString, 1, 1},
    {L"VL-PRINC-TO-STRING", PrincToString, 1, 1},
    {L"VL-STRING->LIST", StringToList, 1, 1},
    {L"VL-LIST->STRING", ListToString, 1, 1},
};

}  // namespace

void DefineStringFunctions(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost

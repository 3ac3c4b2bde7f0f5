#include "runtime/lisp/arguments.h"
#include "runtime/lisp/evaluator.h"
#include "runtime/lisp/function_tables.h"

namespace drafthost {

namespace {

using Arguments = std::vector<LispValue>;

LispValue IsAtom(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Boolean(!arguments[0].IsCons());
}

LispValue IsNull(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Boolean(arguments[0].IsNil());
}

LispValue IsList(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Boolean(arguments[0].IsCons() || arguments[0].IsNil());
}

LispValue IsPair(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Boolean(arguments[0].IsCons());
}

LispValue IsNumber(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Boolean(arguments[0].IsNumber());
}

LispValue IsNegative(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Boolean(NumberArgument(arguments[0]) < 0.0);
}

LispValue IsZero(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Boolean(NumberArgument(arguments[0]) == 0.0);
}

LispValue IsSymbol(LispEvaluator&, const Arguments& arguments) {
    return LispValue::Boolean(arguments[0].IsSymbol() || arguments[0].Kind() == LispKind::True);
}

LispValue IsBound(LispEvaluator&, const Arguments& arguments) {
    if (arguments[0].Kind() == LispKind::True) return LispValue::True();
    return LispValue::Boolean(arguments[0].IsSymbol() && !SymbolOf(arguments[0]).value.IsNil());
}

const wchar_t* TypeName(LispKind kind) {
    switch (kind) {
        case LispKind::Integer:
            return L"INT";
        case LispKind::Real:
            return L"REAL";
        case LispKind::String:
            return L"STR";
        case LispKind::True:
        case LispKind::Symbol:
            return L"SYM";
        case LispKind::Cons:
            return L"LIST";
        case LispKind::Subr:
            return L"SUBR";
        case LispKind::UserSubr:
            return L"USUBR";
        case LispKind::ExternalSubr:
            return L"EXRXSUBR";
        case LispKind::File:
            return L"FILE";
        case LispKind::CaughtError:
            return L"VL-CATCH-ALL-APPLY-ERROR";
        case LispKind::Nil:
            break;
    }
    return L"NIL";
}

LispValue Type(LispEvaluator& evaluator, const Arguments& arguments) {
    return evaluator.Symbols().Intern(TypeName(arguments[0].Kind()));
}

constexpr LispFunctionRow rows[] = {
    {L"ATOM", IsAtom, 1, 1},       {L"NULL", IsNull, 1, 1},     {L"NOT", IsNull, 1, 1},
    {L"LISTP", IsList, 1, 1},      {L"VL-CONSP", IsPair, 1, 1}, {L"NUMBERP", IsNumber, 1, 1},
    {L"MINUSP", IsNegative, 1, 1}, {L"ZEROP", IsZero, 1, 1},    {L"VL-SYMBOLP", IsSymbol, 1, 1},
    {L"BOUNDP", IsBound, 1, 1},    {L"TYPE", Type, 1, 1},
};

}  // namespace

void DefinePredicates(LispEvaluator& evaluator) {
    for (const LispFunctionRow& row : rows)
        evaluator.Define(row);
}

}  // namespace drafthost

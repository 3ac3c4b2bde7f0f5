#include "runtime/lisp/arguments.h"

#include "runtime/lisp/error.h"

namespace drafthost {

double NumberArgument(const LispValue& value) {
    if (!value.IsNumber()) throw BadArgumentType(L"numberp:", value);
    return value.AsReal();
}

std::int32_t IntegerArgument(const LispValue& value) {
    if (!value.IsInteger()) throw BadArgumentType(L"fixnump:", value);
    return value.AsInteger();
}

const std::wstring& StringArgument(const LispValue& value) {
    if (!value.IsString()) throw BadArgumentType(L"stringp", value);
    return value.AsString();
}

const LispValue& ListArgument(const LispValue& value) {
    if (!value.IsNil() && !value.IsCons()) throw BadArgumentType(L"listp", value);
    return value;
}

std::vector<LispValue> ItemsArgument(const LispValue& value) {
    std::vector<LispValue> items;
    const LispValue* rest = &value;
    for (; rest->IsCons(); rest = &rest->Cdr())
        items.push_back(rest->Car());
    if (!rest->IsNil()) throw BadArgumentType(L"listp", value);
    return items;
}

const LispValue& SymbolArgument(const LispValue& value) {
    if (!value.IsSymbol()) throw BadArgumentType(L"symbolp", value);
    return value;
}

}  // namespace drafthost

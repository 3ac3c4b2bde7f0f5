#include "runtime/lisp/error.h"

#include "runtime/lisp/printer.h"

namespace drafthost {

LispError BadArgumentType(const wchar_t* expected, const LispValue& value) {
    return LispError(std::wstring(L"bad argument type: ") + expected + L" " + LispPrin1(value));
}

LispError BadArgumentValue(const wchar_t* expected, const LispValue& value) {
    return LispError(std::wstring(L"bad argument value: ") + expected + L" " + LispPrin1(value));
}

LispError TooFewArguments() {
    return LispError(L"too few arguments");
}

LispError TooManyArguments() {
    return LispError(L"too many arguments");
}

LispError FunctionCancelled(LispError::Cause cause) {
    return LispError(L"Function cancelled", cause);
}

}  // namespace drafthost

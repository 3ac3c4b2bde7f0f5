#pragma once

#include "runtime/lisp/value.h"

#include <cstdint>
#include <string>
#include <vector>

namespace drafthost {

// What a built-in function makes of an argument. Each throws the LispError of a bad argument type.

double NumberArgument(const LispValue& value);
std::int32_t IntegerArgument(const LispValue& value);
const std::wstring& StringArgument(const LispValue& value);
/// Nil or a pair; dotted ones too.
const LispValue& ListArgument(const LispValue& value);
/// The items of nil or a list, which must end in nil.
std::vector<LispValue> ItemsArgument(const LispValue& value);
/// A symbol; T and nil are none.
const LispValue& SymbolArgument(const LispValue& value);

}  // namespace drafthost

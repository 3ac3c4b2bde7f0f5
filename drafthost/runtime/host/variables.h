#pragma once

#include "runtime/lisp/value.h"

#include <optional>
#include <string>

namespace drafthost {

class Document;

// The host's variables as LISP's `getvar` and `setvar` see them. Names in any case.

/// Empty when there is no such variable.
std::optional<LispValue> GetHostVariable(const std::wstring& name, const Document& document);

/// False when there is no such variable, or it can't be set, or not to a value of this kind.
bool SetHostVariable(const std::wstring& name, const LispValue& value);

}  // namespace drafthost

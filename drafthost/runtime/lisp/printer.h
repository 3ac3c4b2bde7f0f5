#pragma once

#include "runtime/lisp/value.h"

#include <string>

namespace drafthost {

/// The text of `value` as `prin1` writes it, which is what a prompt shows: strings in quotes and
/// with escapes. Empty for the symbol that `(princ)` gives. Lists may be nested to any depth.
std::wstring LispPrin1(const LispValue& value);

/// As `princ` writes it: strings as they are, in lists too.
std::wstring LispPrinc(const LispValue& value);

}  // namespace drafthost

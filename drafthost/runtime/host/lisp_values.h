#pragma once

#include "runtime/lisp/value.h"

#include "adsdef.h"

#include <vector>

namespace drafthost {

class LispInterpreter;

/// LISP's arguments as a list of values for a module, to be released with `acutRelRb`; null for
/// none. Lists of two or three reals become points, other lists stand between RTLB and RTLE.
/// Throws LispError for what can't pass to a module: symbols, functions, files.
resbuf* ToResultBuffers(const std::vector<LispValue>& values);

/// A module's result as a LISP value; nil for null. Of several values the first counts. Throws
/// LispError for brackets that don't match and for codes that no LISP value has. `interpreter`
/// gives the symbol that stands for RTVOID.
LispValue ToLispValue(const resbuf* buffers, LispInterpreter& interpreter);

}  // namespace drafthost

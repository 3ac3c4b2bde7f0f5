#pragma once

#include "runtime/lisp/value.h"

namespace drafthost {

/// `equal`: the same atoms in lists of the same shape, to any depth; numbers by value, whole or
/// not, that differ by `fuzz` at most.
bool AreEqualLisp(const LispValue& left, const LispValue& right, double fuzz = 0.0);

}  // namespace drafthost

#pragma once

#include "runtime/lisp/value.h"

#include <optional>
#include <string>
#include <string_view>

namespace drafthost {

/// A real as LISP prints it: six significant digits and always a point, "1.0", "0.333333",
/// "1.0e+10"; "1.#INF" and "1.#QNAN" for what is no number.
std::wstring FormatLispReal(double real);

/// With just that many digits behind the point, never with an exponent.
std::wstring FormatFixed(double real, int decimals);

/// With one digit ahead of the point and an exponent: "1.7500E+01".
std::wstring FormatScientific(double real, int decimals);

/// A number as it stands in LISP text: a sign, digits, then perhaps a point, digits and an
/// exponent. Whole numbers beyond 32 bits become reals. Empty when any of `token` is left over.
std::optional<LispValue> ParseLispNumber(std::wstring_view token);

/// The number that `text` begins with, blanks ahead of it skipped; 0 without one. An integer beyond
/// 32 bits becomes the nearest one that has them.
std::int32_t LeadingInteger(const std::wstring& text);
double LeadingReal(const std::wstring& text);

}  // namespace drafthost

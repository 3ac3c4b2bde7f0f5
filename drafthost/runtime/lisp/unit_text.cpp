#include "runtime/lisp/unit_text.h"

#include "runtime/lisp/number_text.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace drafthost {

namespace {

constexpr double largestInParts = 1e12;  // Beyond, a double can't count the smallest parts.

std::wstring WholeText(double whole) {
    return FormatFixed(whole, 0);
}

/// "17 1/2", "17", "1/2"; `steps` counts parts of 1/`bottom`.
std::wstring MixedNumber(double steps, long bottom) {
    const double whole = std::floor(steps / bottom);
    const long top = std::lround(steps - whole * bottom);
    if (top == 0) return WholeText(whole);
    const long divisor = std::gcd(top, bottom);
    const std::wstring fraction =
        std::to_wstring(top / divisor) + L"/" + std::to_wstring(bottom / divisor);
    return whole == 0.0 ? fraction : WholeText(whole) + L" " + fraction;
}

std::wstring Engineering(double inches, int precision) {
    const double scale = std::pow(10.0, precision);
    const double rounded = std::round(inches * scale) / scale;
    const double feet = std::floor(rounded / 12.0);
    const std::wstring rest = FormatFixed(std::max(0.0, rounded - feet * 12.0), precision) + L"\"";
    return feet == 0.0 ? rest : WholeText(feet) + L"'-" + rest;
}

std::wstring Architectural(double inches, long bottom) {
    const double steps = std::round(inches * bottom);
    const double feet = std::floor(steps / (12.0 * bottom));
    const std::wstring rest = MixedNumber(steps - feet * 12.0 * bottom, bottom) + L"\"";
    return feet == 0.0 ? rest : WholeText(feet) + L"'-" + rest;
}

std::wstring FormatSize(double size, LispUnits units, int precision) {
    if (units == LispUnits::Scientific) return FormatScientific(size, precision);
    if (units == LispUnits::Decimal || size > largestInParts) return FormatFixed(size, precision);
    const long bottom = 1L << precision;
    if (units == LispUnits::Engineering) return Engineering(size, precision);
    if (units == LispUnits::Architectural) return Architectural(size, bottom);
    return MixedNumber(std::round(size * bottom), bottom);
}

}  // namespace

std::wstring FormatUnits(double number, LispUnits units, int precision) {
    if (!std::isfinite(number)) return FormatLispReal(number);
    precision = std::clamp(precision, 0, 8);
    const double size = std::fabs(number);
    const std::wstring text = FormatSize(size, units, precision);
    const bool isZero = text.find_first_of(L"123456789") == std::wstring::npos;
    return number < 0.0 && !isZero ? L"-" + text : text;
}

}  // namespace drafthost

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

bool IsZero(const std::wstring& text) {
    return text.find_first_of(L"123456789") == std::wstring::npos;
}

std::wstring Decimal(double size, int precision, const LispZeros& zeros) {
    std::wstring text = FormatFixed(size, precision);
    const std::size_t point = text.find(L'.');
    if (!zeros.hasTrailing && point != std::wstring::npos) {
        const std::size_t last = text.find_last_not_of(L'0');
        text.erase(last == point ? point : last + 1);
    }
    const bool isBelowOne = text.size() > 1 && text[0] == L'0' && !IsZero(text);
    return !zeros.hasLeading && isBelowOne ? text.substr(1) : text;
}

/// `inches` stands below a foot.
std::wstring FeetAndInches(double feet, const std::wstring& inches, const LispZeros& zeros) {
    const bool hasInches = !IsZero(inches) || zeros.hasZeroInches;
    const bool hasFeet = feet != 0.0 || zeros.hasZeroFeet;
    if (!hasFeet) return inches + L"\"";
    if (!hasInches) return WholeText(feet) + L"'";
    return WholeText(feet) + L"'-" + inches + L"\"";
}

std::wstring Engineering(double inches, int precision, const LispZeros& zeros) {
    const double scale = std::pow(10.0, precision);
    const double rounded = std::round(inches * scale) / scale;
    const double feet = std::floor(rounded / 12.0);
    return FeetAndInches(feet, Decimal(std::max(0.0, rounded - feet * 12.0), precision, zeros),
                         zeros);
}

std::wstring Architectural(double inches, long bottom, const LispZeros& zeros) {
    const double steps = std::round(inches * bottom);
    const double feet = std::floor(steps / (12.0 * bottom));
    std::wstring rest = MixedNumber(steps - feet * 12.0 * bottom, bottom);
    const bool isFractionAlone =
        rest.find(L'/') != std::wstring::npos && rest.find(L' ') == std::wstring::npos;
    // Behind feet a fraction has its inches, be they zero.
    if (isFractionAlone && (feet != 0.0 || zeros.hasZeroFeet)) rest.insert(0, L"0 ");
    return FeetAndInches(feet, rest, zeros);
}

std::wstring FormatSize(double size, LispUnits units, int precision, const LispZeros& zeros) {
    if (units == LispUnits::Scientific) return FormatScientific(size, precision);
    if (units == LispUnits::Decimal || size > largestInParts)
        return Decimal(size, precision, zeros);
    const long bottom = 1L << precision;
    if (units == LispUnits::Engineering) return Engineering(size, precision, zeros);
    if (units == LispUnits::Architectural) return Architectural(size, bottom, zeros);
    return MixedNumber(std::round(size * bottom), bottom);
}

}  // namespace

LispZeros ZerosOfVariable(int dimzin) {
    const int feetAndInches = dimzin & 3;
    return {feetAndInches == 1 || feetAndInches == 2, feetAndInches == 1 || feetAndInches == 3,
            (dimzin & 4) == 0, (dimzin & 8) == 0};
}

std::wstring FormatUnits(double number, LispUnits units, int precision, const LispZeros& zeros) {
    if (!std::isfinite(number)) return FormatLispReal(number);
    precision = std::clamp(precision, 0, 8);
    const std::wstring text = FormatSize(std::fabs(number), units, precision, zeros);
    return number < 0.0 && !IsZero(text) ? L"-" + text : text;
}

}  // namespace drafthost

#include "runtime/lisp/number_text.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace drafthost {

namespace {

std::wstring Widened(const std::string& ascii) {
    return {ascii.begin(), ascii.end()};
}

std::string Formatted(double real, std::chars_format format, int precision) {
    std::string text(400 + precision, '\0');
    const auto result =
        std::to_chars(text.data(), text.data() + text.size(), real, format, precision);
    text.resize(result.ptr - text.data());
    return text;
}

std::size_t SkipDigits(std::wstring_view text, std::size_t at) {
    while (at < text.size() && text[at] >= L'0' && text[at] <= L'9')
        ++at;
    return at;
}

/// How far a number reaches from the start of `text`, and whether it is a whole one.
struct NumberExtent {
    std::size_t length = 0;  ///< 0: no number
    bool isInteger = true;
};

NumberExtent MeasureNumber(std::wstring_view text) {
    NumberExtent extent;
    std::size_t at = !text.empty() && (text[0] == L'+' || text[0] == L'-') ? 1 : 0;
    const std::size_t digits = at;
    at = SkipDigits(text, at);
    std::size_t digitCount = at - digits;
    if (at < text.size() && text[at] == L'.') {
        const std::size_t end = SkipDigits(text, at + 1);
        digitCount += end - at - 1;
        extent.isInteger = false;
        at = end;
    }
    if (digitCount == 0) return {};
    if (at < text.size() && (text[at] == L'e' || text[at] == L'E')) {
        std::size_t exponent = at + 1;
        if (exponent < text.size() && (text[exponent] == L'+' || text[exponent] == L'-')) {
            ++exponent;
        }
        const std::size_t end = SkipDigits(text, exponent);
        if (end > exponent) {
            extent.isInteger = false;
            at = end;
        }
    }
    extent.length = at;
    return extent;
}

double RealOf(std::wstring_view number) {
    std::string text(number.begin(), number.end());
    const bool isNegative = text[0] == '-';
    if (text[0] == '-' || text[0] == '+') text.erase(0, 1);
    double real = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), real);
    if (result.ec == std::errc::result_out_of_range) {
        const bool isTiny = text.find("e-") != std::string::npos ||
                            text.find("E-") != std::string::npos || text[0] == '0';
        real = isTiny ? 0.0 : std::numeric_limits<double>::infinity();
    }
    return isNegative ? -real : real;
}

std::wstring_view WithoutLeadingBlanks(const std::wstring& text) {
    const std::size_t start = text.find_first_not_of(L" \t\r\n");
    return start == std::wstring::npos ? std::wstring_view()
                                       : std::wstring_view(text).substr(start);
}

}  // namespace

std::wstring FormatLispReal(double real) {
    if (std::isnan(real)) return L"1.#QNAN";
    if (std::isinf(real)) return real < 0 ? L"-1.#INF" : L"1.#INF";
    std::string text = Formatted(real, std::chars_format::general, 6);
    if (text.find('.') == std::string::npos) {
        const std::size_t exponent = text.find('e');
        text.insert(exponent == std::string::npos ? text.size() : exponent, ".0");
    }
    return Widened(text);
}

std::wstring FormatFixed(double real, int decimals) {
    if (!std::isfinite(real)) return FormatLispReal(real);
    return Widened(Formatted(real, std::chars_format::fixed, decimals));
}

std::wstring FormatScientific(double real, int decimals) {
    if (!std::isfinite(real)) return FormatLispReal(real);
    std::string text = Formatted(real, std::chars_format::scientific, decimals);
    const std::size_t exponent = text.find('e');
    text[exponent] = 'E';
    return Widened(text);
}

std::optional<LispValue> ParseLispNumber(std::wstring_view token) {
    const NumberExtent extent = MeasureNumber(token);
    if (extent.length == 0 || extent.length != token.size()) return std::nullopt;
    const double real = RealOf(token);
    const bool fits = real >= std::numeric_limits<std::int32_t>::min() &&
                      real <= std::numeric_limits<std::int32_t>::max();
    if (!extent.isInteger || !fits) return LispValue::Real(real);
    return LispValue::Integer(static_cast<std::int32_t>(real));
}

std::int32_t LeadingInteger(const std::wstring& text) {
    const std::wstring_view rest = WithoutLeadingBlanks(text);
    const std::size_t sign = !rest.empty() && (rest[0] == L'+' || rest[0] == L'-') ? 1 : 0;
    const std::size_t end = SkipDigits(rest, sign);
    if (end == sign) return 0;
    const double real = RealOf(rest.substr(0, end));
    if (real >= std::numeric_limits<std::int32_t>::max()) {
        return std::numeric_limits<std::int32_t>::max();
    }
    if (real <= std::numeric_limits<std::int32_t>::min()) {
        return std::numeric_limits<std::int32_t>::min();
    }
    return static_cast<std::int32_t>(real);
}

double LeadingReal(const std::wstring& text) {
    const std::wstring_view rest = WithoutLeadingBlanks(text);
    const NumberExtent extent = MeasureNumber(rest);
    return extent.length == 0 ? 0.0 : RealOf(rest.substr(0, extent.length));
}

}  // namespace drafthost

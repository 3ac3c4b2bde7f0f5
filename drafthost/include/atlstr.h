#pragma once

#include <windows.h>

#include <cstdarg>
#include <cstdio>
#include <cwchar>
#include <string>

/// A string of narrow (process's ANSI code page) or wide (UTF-16) characters that converts from the
/// other kind on construction and assignment. A null pointer counts as the empty text. The text
/// ends at its first zero. Only as wide as its users need.
template <typename Character>
class CStringT;

using CStringA = CStringT<char>;
using CStringW = CStringT<wchar_t>;
using CString = CStringW;

namespace CStringConversion {

inline std::string Convert(const wchar_t* text, char) {
    const int size = WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr);
    if (size <= 1) return {};
    std::string narrow(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, text, -1, narrow.data(), size, nullptr, nullptr);
    narrow.pop_back();
    return narrow;
}

inline std::wstring Convert(const char* text, wchar_t) {
    const int size = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    if (size <= 1) return {};
    std::wstring wide(static_cast<size_t>(size), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text, -1, wide.data(), size);
    wide.pop_back();
    return wide;
}

inline int FormattedLength(const char* format, va_list arguments) {
    return _vscprintf(format, arguments);
}
inline int FormattedLength(const wchar_t* format, va_list arguments) {
    return _vscwprintf(format, arguments);
}
inline void FormatInto(char* buffer, size_t size, const char* format, va_list arguments) {
    _vsnprintf(buffer, size, format, arguments);
}
inline void FormatInto(wchar_t* buffer, size_t size, const wchar_t* format, va_list arguments) {
    _vsnwprintf(buffer, size, format, arguments);
}

template <typename Character>
struct Other;
template <>
struct Other<char> {
    using Type = wchar_t;
};
template <>
struct Other<wchar_t> {
    using Type = char;
};

}  // namespace CStringConversion

template <typename Character>
class CStringT {
    using OtherCharacter = typename CStringConversion::Other<Character>::Type;

  public:
    using XCHAR = Character;
    using PCXSTR = const Character*;

    CStringT() = default;
    CStringT(PCXSTR text) : m_text(text != nullptr ? text : &g_terminator) {}
    /// Converts between the ANSI code page and UTF-16.
    explicit CStringT(const OtherCharacter* text)
        : m_text(CStringConversion::Convert(text, Character())) {}

    CStringT& operator=(PCXSTR text) {
        m_text = text != nullptr ? text : &g_terminator;
        return *this;
    }
    /// Converts between the ANSI code page and UTF-16.
    CStringT& operator=(const OtherCharacter* text) {
        m_text = CStringConversion::Convert(text, Character());
        return *this;
    }

    operator PCXSTR() const { return m_text.c_str(); }
    PCXSTR GetString() const { return m_text.c_str(); }
    int GetLength() const { return static_cast<int>(m_text.size()); }

    /// Replaces the text by the formatted one, by the C runtime's rules: "%s" takes text of this
    /// string's own kind. The string itself may be among the arguments.
    void Format(PCXSTR format, ...) {
        va_list arguments;
        va_start(arguments, format);
        const int length = CStringConversion::FormattedLength(format, arguments);
        va_end(arguments);
        std::basic_string<Character> result(length > 0 ? static_cast<size_t>(length) + 1 : 0, 0);
        if (length > 0) {
            va_start(arguments, format);
            CStringConversion::FormatInto(result.data(), result.size(), format, arguments);
            va_end(arguments);
            result.pop_back();
        }
        m_text.swap(result);
    }

    friend bool operator==(const CStringT& left, const CStringT& right) {
        return left.m_text == right.m_text;
    }
    friend bool operator!=(const CStringT& left, const CStringT& right) { return !(left == right); }
    friend bool operator==(const CStringT& left, PCXSTR right) { return left.m_text == right; }
    friend bool operator!=(const CStringT& left, PCXSTR right) { return !(left == right); }

  private:
    static constexpr Character g_terminator = 0;

    std::basic_string<Character> m_text;
};

#include "runtime/lisp/reader.h"

#include "runtime/lisp/error.h"
#include "runtime/lisp/number_text.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace drafthost {

namespace {

bool IsBlank(wchar_t letter) {
    return letter <= L' ' || letter == L'\x00A0' || letter == L'\x3000' || letter == L'\xFEFF';
}

bool EndsWord(wchar_t letter) {
    return IsBlank(letter) || std::wstring_view(L"()'\";").find(letter) != std::wstring_view::npos;
}

/// The value of `count` digits at `at` in base 8 or 16; empty if one of them is none.
std::optional<wchar_t> DigitsAt(const std::wstring& text, std::size_t at, int count, int base) {
    int value = 0;
    if (text.size() - at < static_cast<std::size_t>(count)) return std::nullopt;
    for (const wchar_t letter : text.substr(at, count)) {
        const std::wstring_view digits = L"0123456789ABCDEFabcdef";
        const std::size_t found = digits.find(letter);
        if (found == std::wstring_view::npos) return std::nullopt;
        const int digit = static_cast<int>(found < 16 ? found : found - 6);
        if (digit >= base) return std::nullopt;
        value = value * base + digit;
    }
    return static_cast<wchar_t>(value);
}

}  // namespace

/// A list or quotation that has begun.
struct LispReader::OpenList {
    enum class Dot { None, Seen, TailRead };

    bool isQuotation = false;
    std::vector<LispValue> items;
    Dot dot = Dot::None;
    LispValue tail;

    bool TakesDot() const { return !isQuotation && !items.empty() && dot == Dot::None; }

    void Add(const LispValue& value) {
        if (dot == Dot::None) {
            items.push_back(value);
        } else if (dot == Dot::Seen) {
            tail = value;
            dot = Dot::TailRead;
        } else {
            throw LispError(L"extra cdrs in dotted pair on input");
        }
    }
};

LispReader::LispReader(const std::wstring& text, LispSymbols& symbols)
    : m_text(text), m_symbols(symbols) {}

bool LispReader::Next(LispValue& expression) {
    std::vector<OpenList> open;
    for (;;) {
        SkipBlanks();
        if (m_at == m_text.size()) {
            if (open.empty()) return false;
            FailAtEnd(L"malformed list on input");
        }
        LispValue value;
        if (!ReadPiece(open, value)) continue;
        while (!open.empty() && open.back().isQuotation) {
            value = LispValue::List({m_symbols.Intern(L"QUOTE"), value});
            open.pop_back();
        }
        if (open.empty()) {
            expression = value;
            return true;
        }
        open.back().Add(value);
    }
}

/// Reads up to the end of a parenthesis, quotation mark or atom; true when that gives a value.
bool LispReader::ReadPiece(std::vector<OpenList>& open, LispValue& value) {
    switch (m_text[m_at]) {
        case L'(':
        case L'\'':
            open.emplace_back();
            open.back().isQuotation = m_text[m_at++] == L'\'';
            return false;
        case L')':
            ++m_at;
            value = Closed(open);
            return true;
        case L'"':
            value = ReadString();
            return true;
        default:
            return ReadWord(open, value);
    }
}

LispValue LispReader::Closed(std::vector<OpenList>& open) {
    if (open.empty()) throw LispError(L"extra right paren on input");
    if (open.back().isQuotation) throw LispError(L"malformed list on input");
    if (open.back().dot == OpenList::Dot::Seen) throw LispError(L"misplaced dot on input");
    LispValue list = LispValue::List(open.back().items, open.back().tail);
    open.pop_back();
    return list;
}

void LispReader::SkipBlanks() {
    while (m_at < m_text.size()) {
        if (IsBlank(m_text[m_at])) {
            ++m_at;
        } else if (m_text.compare(m_at, 2, L";|") == 0) {
            SkipBlockComment();
        } else if (m_text[m_at] == L';') {
            m_at = std::min(m_text.find(L'\n', m_at), m_text.size());
        } else {
            return;
        }
    }
}

void LispReader::SkipBlockComment() {
    const std::size_t end = m_text.find(L"|;", m_at + 2);
    if (end == std::wstring::npos) FailAtEnd(L"malformed comment on input");
    m_at = end + 2;
}

LispValue LispReader::ReadString() {
    std::wstring text;
    for (++m_at; m_at < m_text.size(); ++m_at) {
        const wchar_t letter = m_text[m_at];
        if (letter == L'"') {
            ++m_at;
            return LispValue::String(std::move(text));
        }
        text += letter == L'\\' ? ReadEscape() : letter;
    }
    FailAtEnd(L"malformed string on input");
}

/// From the backslash to the last letter of the escape.
wchar_t LispReader::ReadEscape() {
    if (++m_at == m_text.size()) FailAtEnd(L"malformed string on input");
    const wchar_t letter = m_text[m_at];
    if (const auto octal = DigitsAt(m_text, m_at, 3, 8)) {
        m_at += 2;
        return *octal;
    }
    if (letter == L'U' && m_text.compare(m_at, 2, L"U+") == 0) {
        if (const auto code = DigitsAt(m_text, m_at + 2, 4, 16)) {
            m_at += 5;
            return *code;
        }
    }
    switch (letter) {
        case L'e':
            return L'\x1b';
        case L'n':
            return L'\n';
        case L'r':
            return L'\r';
        case L't':
            return L'\t';
        default:
            return letter;
    }
}

/// A number, a symbol, or the dot of a pair, which gives no value.
bool LispReader::ReadWord(std::vector<OpenList>& open, LispValue& value) {
    const std::size_t start = m_at;
    while (m_at < m_text.size() && !EndsWord(m_text[m_at]))
        ++m_at;
    const std::wstring word = m_text.substr(start, m_at - start);
    if (word == L"." && !open.empty() && open.back().TakesDot()) {
        open.back().dot = OpenList::Dot::Seen;
        return false;
    }
    if (word[0] == L'.') throw LispError(L"misplaced dot on input");
    const auto number = ParseLispNumber(word);
    value = number ? *number : m_symbols.Intern(word);
    return true;
}

void LispReader::FailAtEnd(const wchar_t* message) {
    m_endedEarly = true;
    throw LispError(message);
}

}  // namespace drafthost

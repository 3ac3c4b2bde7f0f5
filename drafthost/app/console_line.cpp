#include "app/console_line.h"

#include <algorithm>
#include <cwctype>

namespace drafthost {

namespace {

constexpr const wchar_t* blanks = L" \t";

}  // namespace

std::wstring Trimmed(const std::wstring& text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::wstring::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

LineKind KindOfLine(const std::wstring& line) {
    const std::wstring text = Trimmed(line);
    if (text.empty() || text[0] == L';') return LineKind::Empty;
    if (text[0] == L'(') return LineKind::Lisp;
    // The mark of a transparent command is a quotation in LISP; a list behind it decides.
    if (text.compare(0, 2, L"'(") == 0) return LineKind::Lisp;
    return text[0] == L'!' ? LineKind::Value : LineKind::Command;
}

CommandLine SplitCommandLine(const std::wstring& line) {
    const std::wstring text = Trimmed(line);
    const std::size_t end = std::min(text.find_first_of(blanks), text.size());
    CommandLine split = {text.substr(0, end), Trimmed(text.substr(end))};
    for (wchar_t& character : split.word) {
        character = static_cast<wchar_t>(std::towupper(character));
    }
    return split;
}

std::vector<std::wstring> Words(const std::wstring& line) {
    std::vector<std::wstring> words;
    std::size_t start = line.find_first_not_of(blanks);
    while (start != std::wstring::npos) {
        const std::size_t end = std::min(line.find_first_of(blanks, start), line.size());
        words.push_back(line.substr(start, end - start));
        start = line.find_first_not_of(blanks, end);
    }
    return words;
}

std::wstring Unquoted(const std::wstring& text) {
    const bool isQuoted = text.size() >= 2 && text.front() == L'"' && text.back() == L'"';
    return isQuoted ? text.substr(1, text.size() - 2) : text;
}

}  // namespace drafthost

#include "app/line_source.h"

#include "runtime/control.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace drafthost {

namespace {

constexpr wchar_t endOfTyping = 0x1A;  // Ctrl+Z

template <class Text>
Text WithoutLineEnd(Text line) {
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r'))
        line.pop_back();
    return line;
}

}  // namespace

TextLines::TextLines(const std::wstring& text) {
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find(L'\n', start), text.size());
        m_lines.push_back(WithoutLineEnd(text.substr(start, end - start)));
        start = end + 1;
    }
}

std::optional<std::wstring> TextLines::NextLine() {
    if (m_lines.empty()) return {};
    std::wstring line = std::move(m_lines.front());
    m_lines.pop_front();
    return line;
}

StandardInput::StandardInput() : m_input(GetStdHandle(STD_INPUT_HANDLE)) {
    DWORD mode = 0;
    m_isConsole = GetConsoleMode(m_input, &mode) != FALSE;
}

std::optional<std::wstring> StandardInput::NextLine() {
    if (m_isConsole) return NextTypedLine();
    std::size_t end = m_bytes.find('\n');
    while (end == std::string::npos && ReadMore())
        end = m_bytes.find('\n');
    if (end == std::string::npos && m_bytes.empty()) return {};
    const std::size_t taken = end == std::string::npos ? m_bytes.size() : end + 1;
    // A mark in a later line is a character like others, and DecodeText would drop it.
    const std::wstring line = DecodeText((m_isFirstLine ? "" : "\xEF\xBB\xBF") +
                                         WithoutLineEnd(m_bytes.substr(0, taken)));
    m_isFirstLine = false;
    m_bytes.erase(0, taken);
    return line;
}

std::optional<std::wstring> StandardInput::NextTypedLine() {
    std::wstring line;
    wchar_t buffer[256];
    DWORD count = 0;
    do {
        SetLastError(ERROR_SUCCESS);
        if (!ReadConsoleW(m_input, buffer, 256, &count, nullptr)) return {};
        // Ctrl+C ends the reading without a character, and that isn't the end of the input.
        if (count == 0 && GetLastError() == ERROR_OPERATION_ABORTED) return L"";
        line.append(buffer, count);
    } while (count > 0 && line.back() != L'\n');
    if (line.empty() || line[0] == endOfTyping) return {};
    return WithoutLineEnd(line);
}

bool StandardInput::ReadMore() {
    char buffer[4096];
    DWORD count = 0;
    if (m_hasEnded || !ReadFile(m_input, buffer, sizeof buffer, &count, nullptr) || count == 0) {
        m_hasEnded = true;
        return false;
    }
    m_bytes.append(buffer, count);
    return true;
}

std::unique_ptr<LineSource> OpenScript(const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    if (!file) return nullptr;
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    return std::make_unique<TextLines>(DecodeText(bytes));
}

}  // namespace drafthost

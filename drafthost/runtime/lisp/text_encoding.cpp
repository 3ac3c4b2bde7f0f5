#include "runtime/lisp/text_encoding.h"

#include <windows.h>

#include <cstring>

namespace drafthost {

namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view utf16Mark = "\xFF\xFE";

bool StartsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

/// Empty also when the bytes aren't valid in that code page.
std::wstring Converted(UINT codePage, DWORD flags, std::string_view bytes) {
    const int size = static_cast<int>(bytes.size());
    const int length = MultiByteToWideChar(codePage, flags, bytes.data(), size, nullptr, 0);
    std::wstring text(length, L'\0');
    MultiByteToWideChar(codePage, flags, bytes.data(), size, text.data(), length);
    return text;
}

}  // namespace

std::wstring TextOfBytes(std::string_view bytes) {
    if (StartsWith(bytes, utf8Mark)) bytes.remove_prefix(utf8Mark.size());
    std::wstring text = Converted(CP_UTF8, MB_ERR_INVALID_CHARS, bytes);
    return text.empty() ? Converted(CP_ACP, 0, bytes) : text;
}

std::string Utf8OfText(std::wstring_view text) {
    const int size = static_cast<int>(text.size());
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string bytes(length, '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, bytes.data(), length, nullptr, nullptr);
    return bytes;
}

bool IsCompiledLisp(std::string_view bytes) {
    if (StartsWith(bytes, utf16Mark)) return false;
    if (bytes.find('\0') != std::string_view::npos) return true;
    const std::size_t start = bytes.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos) return false;
    bytes.remove_prefix(start);
    return StartsWith(bytes, "VRTLIB") || StartsWith(bytes, "FAS4-FILE");
}

std::wstring TextOfLispFile(std::string_view bytes) {
    if (!StartsWith(bytes, utf16Mark)) return TextOfBytes(bytes);
    bytes.remove_prefix(utf16Mark.size());
    std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
    return text;
}

}  // namespace drafthost

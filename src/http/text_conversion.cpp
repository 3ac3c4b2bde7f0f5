#include "http/text_conversion.h"

#include <windows.h>

std::wstring AnsiToWide(const std::string& text) {
    if (text.empty()) return {};
    const int length = static_cast<int>(text.size());
    const int wideLength = MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0);
    if (wideLength == 0) return {};
    std::wstring wide(wideLength, L'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), wideLength);
    return wide;
}

std::string Utf8ToAnsi(std::string text) {
    // Length -1 on both sides: the sizes include the NUL, and a NUL in the text ends it.
    const int wideSize = MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, nullptr, 0);
    std::wstring wide(wideSize, L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, wide.data(), wideSize);

    const int size = WideCharToMultiByte(CP_ACP, 0, wide.c_str(), -1, nullptr, 0, nullptr, nullptr);
    // The result takes the text's place, so that a large one isn't held three times. Its NUL takes
    // the place of the string's own.
    text.resize(size > 0 ? size - 1 : 0);
    if (WideCharToMultiByte(CP_ACP, 0, wide.c_str(), -1, text.data(), size, nullptr, nullptr) == 0)
        text.clear();
    return text;
}

#include "kvtfetch/utf8.h"

#include <windows.h>

std::string WideToUtf8(const std::wstring& text) {
    const int length = static_cast<int>(text.size());
    std::string utf8(
        WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(), static_cast<int>(utf8.size()),
                        nullptr, nullptr);
    return utf8;
}

std::wstring Utf8ToWide(const std::string& text) {
    const int length = static_cast<int>(text.size());
    std::wstring wide(MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(),
                        static_cast<int>(wide.size()));
    return wide;
}

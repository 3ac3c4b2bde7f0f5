#pragma once

#include <string>

/// UTF-8 of a UTF-16 text and back; what is no text becomes U+FFFD.
std::string WideToUtf8(const std::wstring& text);
std::wstring Utf8ToWide(const std::string& text);

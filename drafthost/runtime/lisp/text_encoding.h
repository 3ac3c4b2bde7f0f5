#pragma once

#include <string>
#include <string_view>

namespace drafthost {

/// Bytes as text: UTF-8 where they are valid as such, else the ANSI code page. A byte order mark at
/// the front isn't part of the text.
std::wstring TextOfBytes(std::string_view bytes);

/// UTF-8 without a byte order mark.
std::string Utf8OfText(std::wstring_view text);

/// Whether the bytes of a LISP file are compiled code (FAS or VLX) and no text: by the words such
/// files begin with, or by a zero byte. UTF-16 with its byte order mark counts as text.
bool IsCompiledLisp(std::string_view bytes);

/// As `TextOfBytes`, and UTF-16 with its byte order mark (little-endian) too.
std::wstring TextOfLispFile(std::string_view bytes);

}  // namespace drafthost

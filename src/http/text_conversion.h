#pragma once

#include <string>

/// UTF-16 of a text in the system's ANSI code page, NULs included; empty when it can't be
/// converted.
std::wstring AnsiToWide(const std::string& text);

/// A UTF-8 text in the system's ANSI code page, up to its first NUL.
///
/// Takes invalid bytes and characters that the code page lacks as the platform replaces them; a
/// byte order mark is a character like any other. Empty when it can't be converted. Needs up to
/// twice the text's size beside the text itself.
std::string Utf8ToAnsi(std::string text);

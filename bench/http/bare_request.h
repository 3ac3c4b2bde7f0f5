#pragma once

#include <string>

/// A GET of `path` from port 80 of `host` by the calls that a request can't do without, written
/// out: the body in the system's ANSI code page, up to its first NUL. Checks only what it needs to
/// end.
std::string BareGet(const wchar_t* host, const wchar_t* path);

/// A UTF-8 text in the system's ANSI code page by the platform's two conversions, each sized first.
std::string BareUtf8ToAnsi(const std::string& text);

#pragma once

#include <string>

/// Whether the whole text is as the regular expression (ECMAScript) says. Apart from <regex>, which
/// costs each file that includes it seconds of compiling.
bool MatchesPattern(const std::wstring& text, const std::wstring& pattern);

/// Whether some part of it is.
bool ContainsPattern(const std::wstring& text, const std::wstring& pattern);

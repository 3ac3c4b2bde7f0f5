#include "support/text_pattern.h"

#include <regex>

bool MatchesPattern(const std::wstring& text, const std::wstring& pattern) {
    return std::regex_match(text, std::wregex(pattern));
}

bool ContainsPattern(const std::wstring& text, const std::wstring& pattern) {
    return std::regex_search(text, std::wregex(pattern));
}

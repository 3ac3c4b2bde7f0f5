#pragma once

#include <string>

/// How often `part` stands in `text`, also where one overlaps the next.
std::size_t Occurrences(const std::string& text, const std::string& part);
std::size_t Occurrences(const std::wstring& text, const std::wstring& part);

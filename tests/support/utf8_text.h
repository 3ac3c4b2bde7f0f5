#pragma once

#include <string>

/// What can't be converted becomes the replacement character.
std::string ToUtf8(const std::wstring& text);
std::wstring FromUtf8(const std::string& bytes);

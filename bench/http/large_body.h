#pragma once

#include <cstddef>

/// The largest file that the web server has.
constexpr wchar_t largePath[] = L"/67108864.txt";
constexpr std::size_t largeSize = std::size_t{64} * 1024 * 1024;

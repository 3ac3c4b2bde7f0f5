#pragma once

#include <cstdint>

/// The colours of a tip's picture, as 0xFFRRGGBB, for a fade level (0.0 at the start, near 1.0 at
/// the end). Channels are cut toward zero, not rounded, and of a level outside of 0 to 1 the low
/// 8 bits count.

/// The gradient's left edge: from white to a pale yellow.
std::uint32_t GradientFirstColor(double level);

/// The gradient's right edge: from tan to white.
std::uint32_t GradientSecondColor(double level);

/// The text drawn up and left of its place: dark at the start, light at the end.
std::uint32_t UpLeftTextColor(double level);

/// The text drawn down and right of its place: light at the start, dark at the end.
std::uint32_t DownRightTextColor(double level);

/// The text in its place, at every level.
constexpr std::uint32_t textColor = 0xFF000000;

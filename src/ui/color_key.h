#pragma once

#include <cstddef>
#include <cstdint>

/// Rows of 32-bit pixels in memory: blue, green, red, alpha.
struct PixelRows {
    std::uint8_t* firstRow;  ///< the row of y 0
    std::ptrdiff_t stride;   ///< bytes from a row to the next one; may be negative
    unsigned width;
    unsigned height;
};

/// Makes every pixel near `color` (0xRRGGBB in the low 24 bits) fully transparent: its alpha byte
/// becomes 0. Near is a distance of at most 10, summed over red, green and blue. The colour bytes
/// and every other pixel stay as they are; there is no partial alpha.
void KeyOutColor(const PixelRows& pixels, std::uint32_t color);

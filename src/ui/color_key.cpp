#include "ui/color_key.h"

#include <cstdlib>

namespace {

constexpr int keyDistance = 10;

int Distance(const std::uint8_t* pixel, std::uint32_t color) {
    const int blue = color & 0xFF;
    const int green = color >> 8 & 0xFF;
    const int red = color >> 16 & 0xFF;
    return std::abs(pixel[0] - blue) + std::abs(pixel[1] - green) + std::abs(pixel[2] - red);
}

}  // namespace

void KeyOutColor(const PixelRows& pixels, std::uint32_t color) {
    constexpr std::size_t bytesOfPixel = 4;
    // A copy: the bytes written below could otherwise be its own, and it would be read again at
    // every pixel.
    const PixelRows rows = pixels;
    for (unsigned y = 0; y < rows.height; ++y) {
        std::uint8_t* pixel = rows.firstRow + static_cast<std::ptrdiff_t>(y) * rows.stride;
        const std::uint8_t* const end = pixel + bytesOfPixel * rows.width;
        for (; pixel != end; pixel += bytesOfPixel) {
            if (Distance(pixel, color) <= keyDistance) pixel[3] = 0;
        }
    }
}

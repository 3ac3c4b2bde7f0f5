#include "ui/tip_colors.h"

namespace {

std::uint32_t Channel(double value) {
    return static_cast<std::uint8_t>(static_cast<int>(value));
}

std::uint32_t OpaqueColor(double red, double green, double blue) {
    return 0xFF000000u | Channel(red) << 16 | Channel(green) << 8 | Channel(blue);
}

}  // namespace

std::uint32_t GradientFirstColor(double level) {
    const double rest = 1.0 - level;
    return OpaqueColor(235 + 20 * rest, 235 + 20 * rest, 200 + 55 * rest);
}

std::uint32_t GradientSecondColor(double level) {
    const double rest = 1.0 - level;
    return OpaqueColor(255 - 45 * rest, 255 - 60 * rest, 255 - 112 * rest);
}

std::uint32_t UpLeftTextColor(double level) {
    const double rest = 1.0 - level;
    const double redAndGreen = 190 * rest + 255 * level;
    return OpaqueColor(redAndGreen, redAndGreen, 180 * rest + 245 * level);
}

std::uint32_t DownRightTextColor(double level) {
    const double rest = 1.0 - level;
    const double redAndGreen = 255 * rest + 190 * level;
    return OpaqueColor(redAndGreen, redAndGreen, 245 * rest + 180 * level);
}

#include "runtime/framework/image_format.h"

#include <gtest/gtest.h>

namespace {

struct Row {
    const char* why;
    unsigned format;
    int bitsPerPixel;
    bool hasAlpha;
    SectionFill fill;
    bool copyPalette;
};

constexpr SectionFill copy = SectionFill::CopyRows;
constexpr SectionFill draw = SectionFill::DrawOver;

constexpr Row rows[] = {
    {"1 bit, palette", 0x00030101, 1, false, copy, true},
    {"4 bits, palette", 0x00030402, 4, false, copy, true},
    {"8 bits, palette", 0x00030803, 8, false, copy, true},
    {"16 bits 555", 0x00021005, 16, false, copy, false},
    {"16 bits 565", 0x00021006, 16, false, copy, false},
    {"24 bits", 0x00021808, 24, false, copy, false},
    {"32 bits without alpha", 0x00022009, 32, false, copy, false},
    {"32 bits with alpha: the section's own layout", 0x0026200A, 32, true, copy, false},
    {"premultiplied: another layout than the section's", 0x000E200B, 32, true, draw, false},
    {"alpha beats the GDI flag", 0x00061007, 32, true, draw, false},
    {"64 bits with alpha, no GDI flag", 0x0034400D, 32, true, draw, false},
    {"16 bits grey: neither flag", 0x00101004, 32, false, draw, false},
    {"48 bits: neither flag", 0x0010300C, 32, false, draw, false},
    {"a palette adds to the way of the rest", 0x00010803, 32, false, draw, true},
    {"a palette with alpha", 0x00070803, 32, true, draw, true},
};

TEST(ImageFormat, TellsDepthWayAndPaletteOfEveryFormat) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);

        const SectionPlan plan = PlanSection(row.format);

        EXPECT_EQ(plan.bitsPerPixel, row.bitsPerPixel);
        EXPECT_EQ(plan.hasAlpha, row.hasAlpha);
        EXPECT_EQ(plan.fill, row.fill);
        EXPECT_EQ(plan.copyPalette, row.copyPalette);
    }
}

TEST(ImageFormat, ABitmapOverTheSectionHasAlphaAsTheSectionHas) {
    EXPECT_EQ(OverlayFormat(false), 0x00022009u);
    EXPECT_EQ(OverlayFormat(true), 0x0026200Au);
}

}  // namespace

#include "image_format.h"

namespace {

// Parts of a GDI+ pixel format.
constexpr unsigned indexedFlag = 0x00010000;
constexpr unsigned gdiFlag = 0x00020000;
constexpr unsigned alphaFlag = 0x00040000;
constexpr int BitsPerPixel(unsigned pixelFormat) {
    return (pixelFormat >> 8) & 0xFF;
}

constexpr unsigned rgb32 = 0x00022009;
constexpr unsigned argb32 = 0x0026200A;

}  // namespace

SectionPlan PlanSection(unsigned pixelFormat) {
    const bool indexed = (pixelFormat & indexedFlag) != 0;
    if ((pixelFormat & alphaFlag) != 0) {
        const bool sameLayout = pixelFormat == argb32;
        return {32, true, sameLayout ? SectionFill::CopyRows : SectionFill::DrawOver, indexed};
    }
    if ((pixelFormat & gdiFlag) != 0) {
        return {BitsPerPixel(pixelFormat), false, SectionFill::CopyRows, indexed};
    }
    return {32, false, SectionFill::DrawOver, indexed};
}

unsigned OverlayFormat(bool hasAlpha) {
    return hasAlpha ? argb32 : rgb32;
}

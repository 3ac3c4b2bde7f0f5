#include "ui/custom_tool_tip_plus.h"

#include "runtime/checked_element.h"
#include "ui/color_key.h"
#include "ui/gdiplus_owners.h"
#include "ui/resource_bitmap.h"
#include "ui/tip_colors.h"

#include <algorithm>

using namespace Gdiplus;
using namespace Gdiplus::DllExports;

namespace {

constexpr ARGB keyColor = 0xFFFEFDCE;
constexpr int keyTolerance = 10;
constexpr INT wholeText = -1;

// The status of most calls below is left unread: a call that failed gives a null object, which the
// next call refuses, and the picture lacks that part.

void SetQuality(GpGraphics* surface) {
    GdipSetSmoothingMode(surface, SmoothingModeHighQuality);
    GdipSetInterpolationMode(surface, InterpolationModeHighQualityBicubic);
    GdipSetCompositingQuality(surface, CompositingQualityHighQuality);
    GdipSetTextRenderingHint(surface, TextRenderingHintClearTypeGridFit);
}

OwnedGraphics OpenSurface(HWND window) {
    GpGraphics* surface = nullptr;
    GdipCreateFromHWND(window, &surface);
    SetQuality(surface);
    return OwnedGraphics(surface);
}

OwnedGraphics OpenSurface(GpBitmap* bitmap) {
    GpGraphics* surface = nullptr;
    GdipGetImageGraphicsContext(bitmap, &surface);
    SetQuality(surface);
    return OwnedGraphics(surface);
}

/// Fetched once for the process and kept; null until GDI+ gives it.
const GpFontFamily* SansSerifFamily() {
    static GpFontFamily* family = nullptr;
    if (family == nullptr) GdipGetGenericFontFamilySansSerif(&family);
    return family;
}

OwnedFont CreateTipFont() {
    GpFont* font = nullptr;
    GdipCreateFont(SansSerifFamily(), 9.0f, FontStyleRegular, UnitPoint, &font);
    return OwnedFont(font);
}

OwnedBrush CreateTextBrush(ARGB color) {
    GpSolidFill* brush = nullptr;
    GdipCreateSolidFill(color, &brush);
    return OwnedBrush(brush);
}

OwnedBrush CreateGradientBrush(const RectF& rect, ARGB left, ARGB right) {
    GpLineGradient* brush = nullptr;
    GdipCreateLineBrushFromRect(&rect, left, right, LinearGradientModeHorizontal, WrapModeTile,
                                &brush);
    return OwnedBrush(brush);
}

OwnedStringFormat CreateTipFormat() {
    GpStringFormat* format = nullptr;
    GdipCreateStringFormat(0, LANG_NEUTRAL, &format);
    GdipSetStringFormatAlign(format, StringAlignmentNear);
    return OwnedStringFormat(format);
}

struct ImageSize {
    UINT width = 0;
    UINT height = 0;
};

ImageSize ReadSize(GpImage* image) {
    ImageSize size;
    GdipGetImageWidth(image, &size.width);
    GdipGetImageHeight(image, &size.height);
    return size;
}

}  // namespace

TipDataPlus::TipDataPlus(const CStringW& text, DWORD imageId) : m_text(text), m_imageId(imageId) {}

CustomToolTipPlus::CustomToolTipPlus(HWND owner, HINSTANCE resources)
    : CustomToolTip(owner, true), m_resources(resources) {}

CustomToolTipPlus::~CustomToolTipPlus() {
    DeleteBackBuffer();
}

// Ends in the base's one deletion; a second one here would be of an object that is gone.
void CustomToolTipPlus::PostNcDestroy() {
    CustomToolTip::PostNcDestroy();
}

const TipDataPlus& CustomToolTipPlus::EntryContent(int index) const {
    return *static_cast<const TipDataPlus*>(CheckedElement(m_tips, index));
}

void CustomToolTipPlus::DeleteBackBuffer() {
    if (m_backBuffer != nullptr) GdipDisposeImage(m_backBuffer);
    m_backBuffer = nullptr;
}

void CustomToolTipPlus::MeasureTip(int index) {
    const OwnedGraphics surface = OpenSurface(m_hWnd);
    const OwnedFont font = CreateTipFont();
    const TipDataPlus& content = EntryContent(index);
    const CStringW text = content.m_text;

    // Meant: wrapped in the full width, though it is drawn in one that is 6 less.
    const RectF layout(0.0f, 0.0f, static_cast<REAL>(m_maxTextWidth), 0.0f);
    RectF bounds;
    GdipMeasureString(surface.get(), text, wholeText, font.get(), &layout, nullptr, &bounds,
                      nullptr, nullptr);
    m_height = static_cast<int>(bounds.Height) + 6;
    m_width = static_cast<int>(bounds.Width + 0.49f);

    m_imageWidth = 0;
    m_imageHeight = 0;
    if (const OwnedResourceBitmap image = LoadResourceBitmap(m_resources, content.m_imageId)) {
        const ImageSize size = ReadSize(image->bitmap.get());
        m_imageWidth = static_cast<int>(size.width);
        m_imageHeight = static_cast<int>(size.height);
    }
    m_height = std::max(m_height, m_imageHeight + 6);
    m_width += m_imageWidth + 4;
}

void CustomToolTipPlus::RenderTip(int index, double level) {
    DeleteBackBuffer();
    const OwnedGraphics reference = OpenSurface(m_hWnd);
    const OwnedFont font = CreateTipFont();
    const OwnedBrush black = CreateTextBrush(textColor);
    const OwnedStringFormat format = CreateTipFormat();
    const TipDataPlus& content = EntryContent(index);
    const CStringW text = content.m_text;

    if (GdipCreateBitmapFromGraphics(m_width, m_height, reference.get(), &m_backBuffer) == Ok) {
        DrawPicture(content, text, level, font.get(), format.get(), black.get());
    } else {
        DeleteBackBuffer();
        m_current = -1;
    }
}

void CustomToolTipPlus::DrawPicture(const TipDataPlus& content, const CStringW& text, double level,
                                    const GpFont* font, const GpStringFormat* format,
                                    const GpBrush* black) {
    const OwnedGraphics surface = OpenSurface(m_backBuffer);
    const RectF whole(0.0f, 0.0f, static_cast<REAL>(m_width), static_cast<REAL>(m_height));
    const OwnedBrush gradient =
        CreateGradientBrush(whole, GradientFirstColor(level), GradientSecondColor(level));
    GdipFillRectangle(surface.get(), gradient.get(), whole.X, whole.Y, whole.Width, whole.Height);

    DrawTipImage(surface.get(), level, content.m_imageId);

    const OwnedBrush upLeft = CreateTextBrush(UpLeftTextColor(level));
    const OwnedBrush downRight = CreateTextBrush(DownRightTextColor(level));
    const RectF place(static_cast<REAL>(m_imageWidth + 4) + 3.0f, 3.0f,
                      static_cast<REAL>(m_maxTextWidth - 6), static_cast<REAL>(m_height - 6));
    const auto drawText = [&](REAL offset, const GpBrush* brush) {
        const RectF moved(place.X + offset, place.Y + offset, place.Width, place.Height);
        GdipDrawString(surface.get(), text, wholeText, font, &moved, format, brush);
    };
    drawText(-1.0f, upLeft.get());
    drawText(1.0f, downRight.get());
    drawText(0.0f, black);
}

/// Meant: the level isn't used; the bitmap stands at full colour from the first step.
void CustomToolTipPlus::DrawTipImage(GpGraphics* target, double, DWORD imageId) {
    const OwnedResourceBitmap image = LoadResourceBitmap(m_resources, imageId);
    if (image == nullptr) return;

    const ImageSize size = ReadSize(image->bitmap.get());
    GpBitmap* clone = nullptr;
    GdipCloneBitmapArea(0.0f, 0.0f, static_cast<REAL>(size.width), static_cast<REAL>(size.height),
                        PixelFormat32bppARGB, image->bitmap.get(), &clone);
    const OwnedBitmap keyed(clone);
    MakeColorTransparent(keyed.get(), keyColor, keyTolerance);
    // With a size, a bitmap that has a resolution of its own isn't scaled to it.
    GdipDrawImageRectI(target, keyed.get(), 2, 2, static_cast<INT>(size.width),
                       static_cast<INT>(size.height));
}

/// Meant: the tolerance isn't read; the distance of 10 is a constant of the comparison.
void CustomToolTipPlus::MakeColorTransparent(GpBitmap* bitmap, ARGB color, int) {
    const ImageSize size = ReadSize(bitmap);
    const Rect whole(0, 0, static_cast<INT>(size.width), static_cast<INT>(size.height));
    BitmapData data;
    if (GdipBitmapLockBits(bitmap, &whole, ImageLockModeRead | ImageLockModeWrite,
                           PixelFormat32bppARGB, &data) != Ok) {
        return;
    }
    KeyOutColor({static_cast<BYTE*>(data.Scan0), data.Stride, size.width, size.height}, color);
    GdipBitmapUnlockBits(bitmap, &data);
}

void CustomToolTipPlus::PaintTip(CDC* dc) {
    if (m_backBuffer == nullptr || dc == nullptr) return;
    GpGraphics* opened = nullptr;
    GdipCreateFromHDC(dc->m_hDC, &opened);
    const OwnedGraphics surface(opened);
    const ImageSize size = ReadSize(m_backBuffer);
    GdipDrawImageRectI(surface.get(), m_backBuffer, 0, 0, static_cast<INT>(size.width),
                       static_cast<INT>(size.height));
}

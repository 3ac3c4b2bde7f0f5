#include "ui/bare_tip.h"

#include "ui/tip_colors.h"

#include <algorithm>
#include <cstdlib>

using namespace Gdiplus;
using namespace Gdiplus::DllExports;

namespace {

constexpr int maxTextWidth = 300;

void SetQuality(GpGraphics* surface) {
    GdipSetSmoothingMode(surface, SmoothingModeHighQuality);
    GdipSetInterpolationMode(surface, InterpolationModeHighQualityBicubic);
    GdipSetCompositingQuality(surface, CompositingQualityHighQuality);
    GdipSetTextRenderingHint(surface, TextRenderingHintClearTypeGridFit);
}

HWND MakeWindow() {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = DefWindowProcW;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"BareTip";
    RegisterClassW(&windowClass);  // Result ignored: the second tip finds the class there.
    return CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, L"BareTip", L"", WS_POPUP | WS_BORDER,
                           0, 0, 1, 1, nullptr, nullptr, windowClass.hInstance, nullptr);
}

}  // namespace

BareTip::BareTip(HINSTANCE resources, const wchar_t* text, WORD imageId)
    : m_window(MakeWindow()), m_resources(resources), m_text(text), m_imageId(imageId) {
    GdipGetGenericFontFamilySansSerif(&m_family);
}

BareTip::~BareTip() {
    if (m_picture != nullptr) GdipDisposeImage(m_picture);
    DestroyWindow(m_window);
}

void BareTip::Measure() {
    GpGraphics* surface = nullptr;
    GdipCreateFromHWND(m_window, &surface);
    SetQuality(surface);
    GpFont* font = nullptr;
    GdipCreateFont(m_family, 9.0f, FontStyleRegular, UnitPoint, &font);

    const RectF layout(0.0f, 0.0f, maxTextWidth, 0.0f);
    RectF bounds;
    GdipMeasureString(surface, m_text.c_str(), -1, font, &layout, nullptr, &bounds, nullptr,
                      nullptr);
    GpBitmap* image = nullptr;
    GdipCreateBitmapFromResource(m_resources, MAKEINTRESOURCEW(m_imageId), &image);
    GdipGetImageWidth(image, &m_imageWidth);
    GdipGetImageHeight(image, &m_imageHeight);
    GdipDisposeImage(image);
    m_width = static_cast<int>(bounds.Width + 0.49f) + static_cast<int>(m_imageWidth) + 4;
    m_height = std::max(static_cast<int>(bounds.Height), static_cast<int>(m_imageHeight)) + 6;

    GdipDeleteFont(font);
    GdipDeleteGraphics(surface);
}

void BareTip::Render(double level) {
    if (m_picture != nullptr) GdipDisposeImage(m_picture);
    m_picture = nullptr;
    GpGraphics* reference = nullptr;
    GdipCreateFromHWND(m_window, &reference);
    SetQuality(reference);
    GpFont* font = nullptr;
    GdipCreateFont(m_family, 9.0f, FontStyleRegular, UnitPoint, &font);
    GpSolidFill* black = nullptr;
    GdipCreateSolidFill(0xFF000000, &black);
    GpStringFormat* format = nullptr;
    GdipCreateStringFormat(0, LANG_NEUTRAL, &format);
    GdipSetStringFormatAlign(format, StringAlignmentNear);
    GdipCreateBitmapFromGraphics(m_width, m_height, reference, &m_picture);
    GpGraphics* surface = nullptr;
    GdipGetImageGraphicsContext(m_picture, &surface);
    SetQuality(surface);

    const RectF whole(0.0f, 0.0f, static_cast<REAL>(m_width), static_cast<REAL>(m_height));
    GpLineGradient* gradient = nullptr;
    GdipCreateLineBrushFromRect(&whole, GradientFirstColor(level), GradientSecondColor(level),
                                LinearGradientModeHorizontal, WrapModeTile, &gradient);
    GdipFillRectangle(surface, gradient, whole.X, whole.Y, whole.Width, whole.Height);
    DrawTipImage(surface);

    GpSolidFill* upLeft = nullptr;
    GdipCreateSolidFill(UpLeftTextColor(level), &upLeft);
    GpSolidFill* downRight = nullptr;
    GdipCreateSolidFill(DownRightTextColor(level), &downRight);
    const auto left = static_cast<REAL>(m_imageWidth + 7);
    const auto height = static_cast<REAL>(m_height - 6);
    const RectF upLeftPlace(left - 1.0f, 2.0f, maxTextWidth - 6, height);
    const RectF downRightPlace(left + 1.0f, 4.0f, maxTextWidth - 6, height);
    const RectF place(left, 3.0f, maxTextWidth - 6, height);
    GdipDrawString(surface, m_text.c_str(), -1, font, &upLeftPlace, format, upLeft);
    GdipDrawString(surface, m_text.c_str(), -1, font, &downRightPlace, format, downRight);
    GdipDrawString(surface, m_text.c_str(), -1, font, &place, format, black);

    GdipDeleteBrush(downRight);
    GdipDeleteBrush(upLeft);
    GdipDeleteBrush(gradient);
    GdipDeleteGraphics(surface);
    GdipDeleteStringFormat(format);
    GdipDeleteBrush(black);
    GdipDeleteFont(font);
    GdipDeleteGraphics(reference);
}

void BareTip::DrawTipImage(GpGraphics* surface) const {
    GpBitmap* image = nullptr;
    GdipCreateBitmapFromResource(m_resources, MAKEINTRESOURCEW(m_imageId), &image);
    UINT width = 0;
    UINT height = 0;
    GdipGetImageWidth(image, &width);
    GdipGetImageHeight(image, &height);
    GpBitmap* keyed = nullptr;
    GdipCloneBitmapArea(0.0f, 0.0f, static_cast<REAL>(width), static_cast<REAL>(height),
                        PixelFormat32bppARGB, image, &keyed);
    const Rect whole(0, 0, static_cast<INT>(width), static_cast<INT>(height));
    BitmapData rows;
    GdipBitmapLockBits(keyed, &whole, ImageLockModeRead | ImageLockModeWrite, PixelFormat32bppARGB,
                       &rows);
    KeyOutByHand(rows, 254, 253, 206);
    GdipBitmapUnlockBits(keyed, &rows);
    GdipDrawImageRectI(surface, keyed, 2, 2, whole.Width, whole.Height);
    GdipDisposeImage(keyed);
    GdipDisposeImage(image);
}

void BareTip::Paint(HDC dc) const {
    GpGraphics* surface = nullptr;
    GdipCreateFromHDC(dc, &surface);
    GdipDrawImageRectI(surface, m_picture, 0, 0, m_width, m_height);
    GdipDeleteGraphics(surface);
}

void KeyOutByHand(const BitmapData& rows, int red, int green, int blue) {
    const auto width = static_cast<int>(rows.Width);
    const auto height = static_cast<int>(rows.Height);
    const int stride = rows.Stride;
    BYTE* row = static_cast<BYTE*>(rows.Scan0);
    for (int y = 0; y < height; ++y, row += stride) {
        BYTE* pixel = row;
        for (int x = 0; x < width; ++x, pixel += 4) {
            const int distance =
                std::abs(pixel[2] - red) + std::abs(pixel[1] - green) + std::abs(pixel[0] - blue);
            if (distance <= 10) pixel[3] = 0;
        }
    }
}

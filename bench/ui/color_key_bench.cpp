// The colour key over the locked rows of a bitmap beside a loop by hand. The tip's own operation,
// which is private to it, is the same lock, loop and unlock.

#include "support/paired_benchmark.h"

#include "ui/bare_tip.h"
#include "ui/bench_bitmaps.h"
#include "ui/color_key.h"

#include "gallery/gdiplus_session.h"

using namespace Gdiplus;
using namespace Gdiplus::DllExports;

namespace {

constexpr INT side = 256;
constexpr INT signSide = 40;

/// 256 by 256 pixels with the tip's bitmap all over them: most of them have the key colour.
GpBitmap* MakeBitmap() {
    GpBitmap* sign = nullptr;
    GdipCreateBitmapFromResource(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDB_SIGN), &sign);
    GpBitmap* bitmap = nullptr;
    GdipCreateBitmapFromScan0(side, side, 0, PixelFormat32bppARGB, nullptr, &bitmap);
    GpGraphics* surface = nullptr;
    GdipGetImageGraphicsContext(bitmap, &surface);
    for (INT y = 0; y < side; y += signSide) {
        for (INT x = 0; x < side; x += signSide)
            GdipDrawImageRectI(surface, sign, x, y, signSide, signSide);
    }
    GdipDeleteGraphics(surface);
    GdipDisposeImage(sign);
    return bitmap;
}

template <typename KeyOut>
void TimeColorKey(benchmark::State& state, KeyOut keyOut) {
    const GdiplusSession session;
    GpBitmap* bitmap = MakeBitmap();
    const Rect whole(0, 0, side, side);
    for (auto _ : state) {
        BitmapData rows;
        if (GdipBitmapLockBits(bitmap, &whole, ImageLockModeRead | ImageLockModeWrite,
                               PixelFormat32bppARGB, &rows) != Ok) {
            state.SkipWithError("not locked");
            break;
        }
        keyOut(rows);
        GdipBitmapUnlockBits(bitmap, &rows);
    }
    GdipDisposeImage(bitmap);
}

void OurColorKey(benchmark::State& state) {
    TimeColorKey(state, [](const BitmapData& rows) {
        KeyOutColor({static_cast<BYTE*>(rows.Scan0), rows.Stride, rows.Width, rows.Height},
                    0xFFFEFDCE);
    });
}

void BareColorKey(benchmark::State& state) {
    TimeColorKey(state, [](const BitmapData& rows) { KeyOutByHand(rows, 254, 253, 206); });
}

const PairedBenchmarkEntry entry({"tip/colour key 256 by 256", OurColorKey, BareColorKey, 1.05,
                                  "GdipBitmapLockBits, a loop over the pixels, "
                                  "GdipBitmapUnlockBits"});

}  // namespace

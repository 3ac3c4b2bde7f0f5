#include "atlimage.h"

#include "image_format.h"
#include "image_process.h"

#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <new>

// gdiplus.h needs windows.h and objidl.h ahead of it.
#include <objidl.h>

#include <gdiplus.h>

using namespace Gdiplus::DllExports;
using Gdiplus::GpBitmap;
using Gdiplus::GpGraphics;

namespace {

struct BitmapDisposer {
    void operator()(GpBitmap* bitmap) const noexcept { GdipDisposeImage(bitmap); }
};
using OwnedBitmap = std::unique_ptr<GpBitmap, BitmapDisposer>;

struct GraphicsDeleter {
    void operator()(GpGraphics* graphics) const noexcept { GdipDeleteGraphics(graphics); }
};
using OwnedGraphics = std::unique_ptr<GpGraphics, GraphicsDeleter>;

struct SectionDeleter {
    void operator()(HBITMAP section) const noexcept { DeleteObject(section); }
};
using OwnedSection = std::unique_ptr<std::remove_pointer_t<HBITMAP>, SectionDeleter>;

/// A decoded file. The file is held open for as long as the bitmap lives.
struct Picture {
    OwnedBitmap bitmap;
    UINT width = 0;
    UINT height = 0;
    Gdiplus::PixelFormat format = 0;
};

bool Decode(LPCWSTR fileName, Picture& picture) {
    GpBitmap* bitmap = nullptr;
    if (GdipCreateBitmapFromFile(fileName, &bitmap) != Gdiplus::Ok) return false;
    picture.bitmap.reset(bitmap);
    return GdipGetImageWidth(bitmap, &picture.width) == Gdiplus::Ok &&
           GdipGetImageHeight(bitmap, &picture.height) == Gdiplus::Ok &&
           GdipGetImagePixelFormat(bitmap, &picture.format) == Gdiplus::Ok;
}

/// A bottom-up section: its description doesn't tell the two directions apart, so all are made the
/// usual way.
struct Section {
    OwnedSection handle;
    BYTE* topRow = nullptr;
    int pitch = 0;  ///< from a row to the one below it, negative
};

bool MakeSection(const Picture& picture, const SectionPlan& plan, Section& section) {
    struct {
        BITMAPINFOHEADER header;
        union {
            RGBQUAD colors[256];
            DWORD masks[3];
        };
    } info = {};
    info.header.biSize = sizeof info.header;
    info.header.biWidth = static_cast<LONG>(picture.width);
    info.header.biHeight = static_cast<LONG>(picture.height);
    info.header.biPlanes = 1;
    info.header.biBitCount = static_cast<WORD>(plan.bitsPerPixel);
    if (picture.format == PixelFormat16bppRGB565) {
        info.header.biCompression = BI_BITFIELDS;
        info.masks[0] = 0xF800;
        info.masks[1] = 0x07E0;
        info.masks[2] = 0x001F;
    }
    void* bits = nullptr;
    section.handle.reset(CreateDIBSection(nullptr, reinterpret_cast<BITMAPINFO*>(&info),
                                          DIB_RGB_COLORS, &bits, nullptr, 0));
    if (section.handle == nullptr) return false;
    const int rowBytes = static_cast<int>((picture.width * plan.bitsPerPixel + 31) / 32 * 4);
    section.topRow =
        static_cast<BYTE*>(bits) + static_cast<ptrdiff_t>(rowBytes) * (picture.height - 1);
    section.pitch = -rowBytes;
    return true;
}

HRESULT CopyPalette(const Picture& picture, const Section& section) {
    INT size = 0;
    if (GdipGetImagePaletteSize(picture.bitmap.get(), &size) != Gdiplus::Ok) return E_FAIL;
    const std::unique_ptr<BYTE[]> storage(new (std::nothrow) BYTE[size]);
    if (storage == nullptr) return E_OUTOFMEMORY;
    auto* palette = reinterpret_cast<Gdiplus::ColorPalette*>(storage.get());
    if (GdipGetImagePalette(picture.bitmap.get(), palette, size) != Gdiplus::Ok) return E_FAIL;

    RGBQUAD colors[256] = {};
    const UINT count = std::min<UINT>(palette->Count, 256);
    for (UINT index = 0; index < count; ++index) {
        const Gdiplus::ARGB color = palette->Entries[index];
        colors[index] = {static_cast<BYTE>(color), static_cast<BYTE>(color >> 8),
                         static_cast<BYTE>(color >> 16), 0};
    }
    HDC memoryDC = TakeMemoryDC();
    if (memoryDC == nullptr) return E_FAIL;
    HGDIOBJ before = SelectObject(memoryDC, section.handle.get());
    SetDIBColorTable(memoryDC, 0, count, colors);
    SelectObject(memoryDC, before);
    GiveMemoryDC(memoryDC);
    return S_OK;
}

HRESULT CopyRows(const Picture& picture, const SectionPlan& plan, const Section& section) {
    const Gdiplus::Rect whole(0, 0, static_cast<INT>(picture.width),
                              static_cast<INT>(picture.height));
    Gdiplus::BitmapData source = {};
    if (GdipBitmapLockBits(picture.bitmap.get(), &whole, Gdiplus::ImageLockModeRead, picture.format,
                           &source) != Gdiplus::Ok) {
        return E_OUTOFMEMORY;
    }
    const size_t used = (static_cast<size_t>(picture.width) * plan.bitsPerPixel + 7) / 8;
    for (INT row = 0; row < whole.Height; ++row) {
        std::memcpy(
            section.topRow + static_cast<ptrdiff_t>(row) * section.pitch,
            static_cast<const BYTE*>(source.Scan0) + static_cast<ptrdiff_t>(row) * source.Stride,
            used);
    }
    GdipBitmapUnlockBits(picture.bitmap.get(), &source);
    return S_OK;
}

HRESULT DrawOver(const Picture& picture, const SectionPlan& plan, const Section& section) {
    const INT width = static_cast<INT>(picture.width);
    const INT height = static_cast<INT>(picture.height);
    GpBitmap* bitmap = nullptr;
    if (GdipCreateBitmapFromScan0(width, height, section.pitch,
                                  static_cast<INT>(OverlayFormat(plan.hasAlpha)), section.topRow,
                                  &bitmap) != Gdiplus::Ok) {
        return E_FAIL;
    }
    const OwnedBitmap overlay(bitmap);
    GpGraphics* canvas = nullptr;
    if (GdipGetImageGraphicsContext(overlay.get(), &canvas) != Gdiplus::Ok) return E_FAIL;
    const OwnedGraphics graphics(canvas);
    // With a size of its own the file's resolution doesn't count.
    const auto status =
        GdipDrawImageRectI(graphics.get(), picture.bitmap.get(), 0, 0, width, height);
    return status == Gdiplus::Ok ? S_OK : E_FAIL;
}

}  // namespace

HRESULT CImage::Load(LPCWSTR fileName) {
    if (!StartDrawingLibrary()) return E_FAIL;
    Picture picture;
    if (!Decode(fileName, picture)) return E_FAIL;
    const SectionPlan plan = PlanSection(static_cast<unsigned>(picture.format));
    Section section;
    if (!MakeSection(picture, plan, section)) return E_FAIL;
    if (plan.copyPalette) {
        const HRESULT copied = CopyPalette(picture, section);
        if (FAILED(copied)) return copied;
    }
    const HRESULT filled = plan.fill == SectionFill::CopyRows ? CopyRows(picture, plan, section)
                                                              : DrawOver(picture, plan, section);
    if (FAILED(filled)) return filled;
    TakeOver(section.handle.release(), plan.hasAlpha);
    return S_OK;
}

// Steps of CImage's load of a file that fail. Each refusal is the replacement of one import.

#include "support/resource_counters.h"
#include "ui/image_hooks.h"
#include "ui/picture_files.h"

#include <atlimage.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <new>
#include <string>

// gdiplus.h needs windows.h and objidl.h ahead of it.
#include <objidl.h>

#include <gdiplus.h>

using Gdiplus::GpBitmap;
using Gdiplus::GpGraphics;
using Gdiplus::GpImage;
using Gdiplus::GpStatus;

namespace {

HBITMAP WINAPI RefuseSection(HDC, const BITMAPINFO*, UINT, void**, HANDLE, DWORD) {
    return nullptr;
}
GpStatus WINGDIPAPI RefuseSize(GpImage*, UINT*) {
    return Gdiplus::GenericError;
}
GpStatus WINGDIPAPI RefuseFormat(GpImage*, Gdiplus::PixelFormat*) {
    return Gdiplus::GenericError;
}
GpStatus WINGDIPAPI RefuseLock(GpBitmap*, GDIPCONST Gdiplus::Rect*, UINT, Gdiplus::PixelFormat,
                               Gdiplus::BitmapData*) {
    return Gdiplus::WrongState;
}
void* RefuseStorage(std::size_t, const std::nothrow_t&) noexcept {
    return nullptr;
}
GpStatus WINGDIPAPI RefusePaletteSize(GpImage*, INT*) {
    return Gdiplus::GenericError;
}
GpStatus WINGDIPAPI RefusePalette(GpImage*, Gdiplus::ColorPalette*, INT) {
    return Gdiplus::GenericError;
}
HDC WINAPI RefuseMemoryDC(HDC) {
    return nullptr;
}
GpStatus WINGDIPAPI RefuseOverlay(INT, INT, INT, Gdiplus::PixelFormat, BYTE*, GpBitmap**) {
    return Gdiplus::OutOfMemory;
}
GpStatus WINGDIPAPI RefuseGraphics(GpImage*, GpGraphics**) {
    return Gdiplus::OutOfMemory;
}
GpStatus WINGDIPAPI RefuseDrawing(GpGraphics*, GpImage*, INT, INT, INT, INT) {
    return Gdiplus::GenericError;
}
/// Makes the load draw where it would copy rows.
GpStatus WINGDIPAPI GiveFormatToDraw(GpImage*, Gdiplus::PixelFormat* format) {
    *format = PixelFormat48bppRGB;
    return Gdiplus::Ok;
}

struct RefusalRow {
    const char* import;
    void* replacement;
    int resource;
    bool draws;
    HRESULT result;
};

class ImageRefusals : public testing::TestWithParam<RefusalRow> {};

TEST_P(ImageRefusals, GiveTheirCodeAndLoseNothing) {
    const RefusalRow& row = GetParam();
    const TempFolder folder;
    const std::wstring path = WritePicture(folder, L"picture", row.resource);
    CImage image;
    ASSERT_EQ(image.Load(WritePicture(folder, L"first", IDR_PNG).c_str()), S_OK);
    const HBITMAP before = image;
    std::unique_ptr<ImportHook<decltype(&GiveFormatToDraw)>> drawInstead;
    if (row.draws) {
        drawInstead = std::make_unique<ImportHook<decltype(&GiveFormatToDraw)>>(
            RuntimeDll(), nullptr, "GdipGetImagePixelFormat", &GiveFormatToDraw);
    }
    const ImportHook<void*> refusal(RuntimeDll(), nullptr, row.import, row.replacement);
    image.Load(path.c_str());  // Warms the platform's caches up; the result is the second one's.
    const long long gdiObjects = CountResources().gdiObjects;

    EXPECT_EQ(image.Load(path.c_str()), row.result);

    EXPECT_EQ(static_cast<HBITMAP>(image), before);
    EXPECT_EQ(CountResources().gdiObjects, gdiObjects);
    EXPECT_TRUE(DeleteFileW(path.c_str())) << "still held";
}

template <typename Function>
void* Replacement(Function function) {
    return reinterpret_cast<void*>(function);
}

constexpr HRESULT failure = static_cast<HRESULT>(0x80004005);
constexpr HRESULT noMemory = static_cast<HRESULT>(0x8007000E);

const RefusalRow refusalRows[] = {
    {"CreateDIBSection", Replacement(&RefuseSection), IDR_PNG, false, failure},
    {"GdipGetImageWidth", Replacement(&RefuseSize), IDR_PNG, false, failure},
    {"GdipGetImageHeight", Replacement(&RefuseSize), IDR_PNG, false, failure},
    {"GdipGetImagePixelFormat", Replacement(&RefuseFormat), IDR_PNG, false, failure},
    {"GdipBitmapLockBits", Replacement(&RefuseLock), IDR_PNG, false, noMemory},
    {"_ZnayRKSt9nothrow_t", Replacement(&RefuseStorage), IDR_GIF, false, noMemory},
    {"GdipGetImagePaletteSize", Replacement(&RefusePaletteSize), IDR_GIF, false, failure},
    {"GdipGetImagePalette", Replacement(&RefusePalette), IDR_GIF, false, failure},
    {"CreateCompatibleDC", Replacement(&RefuseMemoryDC), IDR_GIF, false, failure},
    {"GdipCreateBitmapFromScan0", Replacement(&RefuseOverlay), IDR_PNG, true, failure},
    {"GdipGetImageGraphicsContext", Replacement(&RefuseGraphics), IDR_PNG, true, failure},
    {"GdipDrawImageRectI", Replacement(&RefuseDrawing), IDR_PNG, true, failure},
};

INSTANTIATE_TEST_SUITE_P(Each, ImageRefusals, testing::ValuesIn(refusalRows),
                         [](const auto& info) { return std::string(info.param.import); });

}  // namespace

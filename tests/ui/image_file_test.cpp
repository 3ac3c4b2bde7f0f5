// CImage's load of files.

#include "support/canvas.h"
#include "ui/image_hooks.h"
#include "ui/picture_files.h"

#include <atlimage.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <initializer_list>
#include <string>

// gdiplus.h needs windows.h and objidl.h ahead of it.
#include <objidl.h>

#include <gdiplus.h>

using namespace Gdiplus::DllExports;
using Gdiplus::GpBitmap;
using Gdiplus::GpGraphics;
using Gdiplus::GpStatus;

namespace {

constexpr COLORREF quarters[] = {RGB(255, 0, 0), RGB(0, 255, 0), RGB(0, 0, 255),
                                 RGB(255, 255, 255)};

/// Draws the image at its own size and compares the middles of its quarters.
void ExpectQuarters(const CImage& image, const COLORREF (&colors)[4], int tolerance) {
    const Canvas canvas(32, 16, RGB(128, 128, 128));
    EXPECT_TRUE(image.Draw(canvas.Handle(), 0, 0, 32, 16, 0, 0, 32, 16));
    for (int quarter = 0; quarter < 4; ++quarter) {
        SCOPED_TRACE(quarter);
        const COLORREF pixel = canvas.Pixel(quarter % 2 * 16 + 8, quarter / 2 * 8 + 4);
        EXPECT_NEAR(GetRValue(pixel), GetRValue(colors[quarter]), tolerance);
        EXPECT_NEAR(GetGValue(pixel), GetGValue(colors[quarter]), tolerance);
        EXPECT_NEAR(GetBValue(pixel), GetBValue(colors[quarter]), tolerance);
    }
}

struct FileRow {
    const char* why;
    const wchar_t* name;
    int resource;
    int bitsPerPixel;
    int tolerance;
};
constexpr FileRow fileRows[] = {
    {"no alpha: the file's own depth", L"plain.png", IDR_PNG, 24, 0},
    {"palette", L"palette.gif", IDR_GIF, 8, 0},
    {"lossy", L"photo.jpg", IDR_JPEG, 24, 8},
    {"bottom-up file", L"plain.bmp", IDR_BMP, 24, 0},
    {"the contents count, not the name", L"really a png.bmp", IDR_PNG, 24, 0},
    {"Chinese name with a blank", L"标志 图.png", IDR_PNG, 24, 0},
};

TEST(ImageFile, PicturesOfEveryKindAreLoadedAndFreeAtOnce) {
    const TempFolder folder(L"kvt 图片");
    for (const FileRow& row : fileRows) {
        SCOPED_TRACE(row.why);
        const std::wstring path = WritePicture(folder, row.name, row.resource);
        CImage image;

        EXPECT_EQ(image.Load(path.c_str()), S_OK);

        EXPECT_TRUE(DeleteFileW(path.c_str())) << "still held: " << GetLastError();
        EXPECT_EQ(image.GetWidth(), 32);
        EXPECT_EQ(image.GetHeight(), 16);
        EXPECT_EQ(image.GetBPP(), row.bitsPerPixel);
        ExpectQuarters(image, quarters, row.tolerance);
    }
}

TEST(ImageFile, ThePaletteBecomesTheColourTable) {
    const TempFolder folder;
    CImage image;

    ASSERT_EQ(image.Load(WritePicture(folder, L"palette.gif", IDR_GIF).c_str()), S_OK);

    RGBQUAD colors[256] = {};
    GetDIBColorTable(image.GetDC(), 0, 256, colors);
    image.ReleaseDC();
    const BYTE index = *static_cast<const BYTE*>(image.GetBits());
    EXPECT_EQ(RGB(colors[index].rgbRed, colors[index].rgbGreen, colors[index].rgbBlue),
              quarters[0]);
}

TEST(ImageFile, PixelsWithAlphaStayAsTheFileHasThem) {
    const TempFolder folder;
    CImage image;

    ASSERT_EQ(image.Load(WritePicture(folder, L"alpha.png", IDR_PNG_ALPHA).c_str()), S_OK);

    EXPECT_EQ(image.GetBPP(), 32);
    const auto* top = static_cast<const DWORD*>(image.GetBits());
    EXPECT_EQ(top[0], 0xFFC80000u);
    EXPECT_EQ(top[31], 0x80006400u) << "not premultiplied";
    const DWORD* bottom = top + 15 * image.GetPitch() / 4;
    EXPECT_EQ(bottom[0], 0x0000003Cu) << "colour under no alpha is kept";
}

int g_locks = 0;
decltype(&GdipBitmapLockBits) g_lockBits = nullptr;
decltype(&GdipBitmapUnlockBits) g_unlockBits = nullptr;

GpStatus WINGDIPAPI NoteLock(GpBitmap* bitmap, GDIPCONST Gdiplus::Rect* rectangle, UINT mode,
                             Gdiplus::PixelFormat format, Gdiplus::BitmapData* data) {
    ++g_locks;
    EXPECT_EQ(mode, static_cast<UINT>(Gdiplus::ImageLockModeRead));
    EXPECT_EQ(format, PixelFormat24bppRGB) << "the rows as they are";
    return g_lockBits(bitmap, rectangle, mode, format, data);
}
GpStatus WINGDIPAPI NoteUnlock(GpBitmap* bitmap, Gdiplus::BitmapData* data) {
    --g_locks;
    return g_unlockBits(bitmap, data);
}

TEST(ImageFile, RowsAreUnlockedAgain) {
    const TempFolder folder;
    const ImportHook<decltype(&GdipBitmapLockBits)> lock(RuntimeDll(), nullptr,
                                                         "GdipBitmapLockBits", &NoteLock);
    const ImportHook<decltype(&GdipBitmapUnlockBits)> unlock(RuntimeDll(), nullptr,
                                                             "GdipBitmapUnlockBits", &NoteUnlock);
    g_lockBits = lock.Original();
    g_unlockBits = unlock.Original();
    g_locks = 0;
    CImage image;

    ASSERT_EQ(image.Load(WritePicture(folder, L"plain.png", IDR_PNG).c_str()), S_OK);

    EXPECT_EQ(g_locks, 0);
}

TEST(ImageFile, ASecondFileDoesNotDeleteTheFirstBitmap) {
    const TempFolder folder;
    CImage image;
    ASSERT_EQ(image.Load(WritePicture(folder, L"plain.png", IDR_PNG).c_str()), S_OK);
    const HBITMAP first = image;

    ASSERT_EQ(image.Load(WritePicture(folder, L"alpha.png", IDR_PNG_ALPHA).c_str()), S_OK);

    EXPECT_NE(static_cast<HBITMAP>(image), first);
    EXPECT_TRUE(DeleteObject(first));
}

// Pixel formats that no picture file here decodes to come from a bitmap made in the decoder's
// place.

Gdiplus::PixelFormat g_madeFormat = 0;

/// Four quarters in `g_madeFormat`, drawn by GDI+.
GpStatus WINGDIPAPI MakeBitmap(GDIPCONST WCHAR*, GpBitmap** bitmap) {
    GpGraphics* graphics = nullptr;
    Gdiplus::GpSolidFill* brush = nullptr;
    GdipCreateBitmapFromScan0(32, 16, 0, g_madeFormat, nullptr, bitmap);
    GdipGetImageGraphicsContext(*bitmap, &graphics);
    for (int quarter = 0; quarter < 4; ++quarter) {
        const COLORREF color = quarters[quarter];
        GdipCreateSolidFill(
            Gdiplus::Color::MakeARGB(255, GetRValue(color), GetGValue(color), GetBValue(color)),
            &brush);
        GdipFillRectangleI(graphics, brush, quarter % 2 * 16, quarter / 2 * 8, 16, 8);
        GdipDeleteBrush(brush);
    }
    return GdipDeleteGraphics(graphics);
}

class ImageFormats : public testing::TestWithParam<Gdiplus::PixelFormat> {};

TEST_P(ImageFormats, KeepTheirColours) {
    g_madeFormat = GetParam();
    const ImportHook<decltype(&GdipCreateBitmapFromFile)> hook(
        RuntimeDll(), nullptr, "GdipCreateBitmapFromFile", &MakeBitmap);
    CImage image;

    ASSERT_EQ(image.Load(L"made by the hook"), S_OK);

    ExpectQuarters(image, quarters, 0);
}

INSTANTIATE_TEST_SUITE_P(All, ImageFormats,
                         testing::Values(PixelFormat16bppRGB555, PixelFormat16bppRGB565,
                                         PixelFormat24bppRGB, PixelFormat32bppRGB,
                                         PixelFormat32bppARGB, PixelFormat32bppPARGB,
                                         PixelFormat16bppARGB1555, PixelFormat48bppRGB,
                                         PixelFormat64bppARGB),
                         [](const auto& info) {
                             char name[16] = {};
                             std::snprintf(name, sizeof name, "x%06X", info.param);
                             return std::string(name);
                         });

// Files that are no pictures.

TEST(ImageFile, WhatIsNoPictureGivesFailure) {
    const TempFolder folder;
    const std::string png = PictureBytes(IDR_PNG);
    struct Row {
        const char* why;
        const wchar_t* name;
        std::string bytes;
    };
    const Row rows[] = {
        {"text with a picture's name", L"text.png", "not a picture\r\n"},
        {"nothing in it", L"empty.png", ""},
        {"cut in the header", L"header.png", png.substr(0, 20)},
        {"cut before the pixels", L"cut.png", png.substr(0, 33)},
        {"cut in the pixels", L"half.png", png.substr(0, png.size() - 20)},
        {"a bitmap's first bytes", L"cut.bmp", PictureBytes(IDR_BMP).substr(0, 14)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        WriteFileBytes(folder / row.name, row.bytes);
        CImage image;

        EXPECT_EQ(image.Load((folder / row.name).c_str()), static_cast<HRESULT>(0x80004005));

        EXPECT_TRUE(image.IsNull());
        EXPECT_TRUE(DeleteFileW((folder / row.name).c_str())) << "still held";
    }
}

TEST(ImageFile, AMissingFileAndAFolderGiveFailure) {
    const TempFolder folder;
    CImage image;

    EXPECT_EQ(image.Load((folder / L"none.png").c_str()), static_cast<HRESULT>(0x80004005));
    EXPECT_EQ(image.Load(folder.Path().c_str()), static_cast<HRESULT>(0x80004005));
    EXPECT_EQ(image.Load(nullptr), static_cast<HRESULT>(0x80004005));
}

TEST(ImageFile, AFailedLoadLeavesThePictureInHand) {
    const TempFolder folder;
    CImage image;
    image.Load(WritePicture(folder, L"plain.png", IDR_PNG).c_str());
    const HBITMAP before = image;

    EXPECT_EQ(image.Load((folder / L"none.png").c_str()), E_FAIL);

    EXPECT_EQ(static_cast<HBITMAP>(image), before);
    ExpectQuarters(image, quarters, 0);
}

}  // namespace

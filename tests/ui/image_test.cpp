// CImage but for its load of files.

#include "support/canvas.h"
#include "ui/image_hooks.h"
#include "ui/picture_files.h"

#include <atlimage.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <thread>
#include <vector>

namespace {

constexpr COLORREF red = RGB(255, 0, 0);
constexpr COLORREF green = RGB(0, 255, 0);
constexpr COLORREF blue = RGB(0, 0, 255);
constexpr COLORREF white = RGB(255, 255, 255);
constexpr COLORREF grey = RGB(128, 128, 128);

HINSTANCE OwnInstance() {
    return GetModuleHandleW(nullptr);
}

TEST(Image, ANewOneIsEmptyAndDrawsNothing) {
    const Canvas canvas(8, 8, grey);
    CImage image;

    EXPECT_TRUE(image.IsNull());
    EXPECT_EQ(image.GetWidth(), 0);
    EXPECT_EQ(image.GetHeight(), 0);
    EXPECT_EQ(image.GetBits(), nullptr);
    EXPECT_FALSE(image.Draw(canvas.Handle(), 0, 0, 8, 8, 0, 0, 0, 0));
    EXPECT_EQ(canvas.Pixel(4, 4), grey);
}

struct LoadImageCall {
    HINSTANCE instance;
    LPCWSTR name;
    UINT type;
    int width;
    int height;
    UINT flags;
};
LoadImageCall g_loadImageCall = {};
HANDLE(WINAPI* g_loadImage)(HINSTANCE, LPCWSTR, UINT, int, int, UINT) = nullptr;

HANDLE WINAPI NoteLoadImage(HINSTANCE instance, LPCWSTR name, UINT type, int width, int height,
                            UINT flags) {
    g_loadImageCall = {instance, name, type, width, height, flags};
    return g_loadImage(instance, name, type, width, height, flags);
}

TEST(Image, AResourceIsLoadedAtItsOwnSizeAsASection) {
    const ImportHook<decltype(&LoadImageW)> hook(RuntimeDll(), nullptr, "LoadImageW",
                                                 &NoteLoadImage);
    g_loadImage = hook.Original();
    CImage image;

    image.LoadFromResource(OwnInstance(), IDB_PLAIN);

    EXPECT_EQ(g_loadImageCall.instance, OwnInstance());
    EXPECT_EQ(g_loadImageCall.name, MAKEINTRESOURCEW(IDB_PLAIN));
    EXPECT_EQ(g_loadImageCall.type, static_cast<UINT>(IMAGE_BITMAP));
    EXPECT_EQ(g_loadImageCall.width, 0);
    EXPECT_EQ(g_loadImageCall.height, 0);
    EXPECT_EQ(g_loadImageCall.flags, 8192u);
    EXPECT_EQ(image.GetWidth(), 32);
    EXPECT_EQ(image.GetHeight(), 16);
    EXPECT_EQ(image.GetBPP(), 24);
}

TEST(Image, RowsOfAResourceGoUpwardsInMemory) {
    CImage image;

    image.LoadFromResource(OwnInstance(), IDB_PLAIN);

    EXPECT_EQ(image.GetPitch(), -96);
    const auto* top = static_cast<const BYTE*>(image.GetBits());
    EXPECT_EQ(RGB(top[2], top[1], top[0]), red);
    const BYTE* bottom = top + 15 * image.GetPitch();
    EXPECT_EQ(RGB(bottom[2], bottom[1], bottom[0]), blue);
}

TEST(Image, AResourceThatIsMissingLeavesThePictureInHand) {
    CImage image;
    image.LoadFromResource(OwnInstance(), IDB_PLAIN);
    const HBITMAP before = image;

    image.LoadFromResource(OwnInstance(), 999);

    EXPECT_EQ(static_cast<HBITMAP>(image), before);
    EXPECT_EQ(image.GetWidth(), 32);
}

std::vector<HGDIOBJ> g_deletedObjects;
BOOL(WINAPI* g_deleteObject)(HGDIOBJ) = nullptr;

BOOL WINAPI NoteDeleteObject(HGDIOBJ object) {
    g_deletedObjects.push_back(object);
    return g_deleteObject(object);
}

TEST(Image, OnlyTheLastBitmapIsDeletedAtTheEnd) {
    const ImportHook<decltype(&DeleteObject)> hook(RuntimeDll(), nullptr, "DeleteObject",
                                                   &NoteDeleteObject);
    g_deleteObject = hook.Original();
    g_deletedObjects.clear();
    auto image = std::make_unique<CImage>();

    std::vector<HBITMAP> loaded;
    for (int load = 0; load < 3; ++load) {
        image->LoadFromResource(OwnInstance(), IDB_PLAIN);
        loaded.push_back(*image);
    }
    EXPECT_TRUE(g_deletedObjects.empty());
    image.reset();

    EXPECT_EQ(g_deletedObjects, std::vector<HGDIOBJ>{loaded[2]});
    for (int lost = 0; lost < 2; ++lost) {
        EXPECT_TRUE(DeleteObject(loaded[lost])) << "the bitmap of load " << lost << " is gone";
    }
}

TEST(Image, AnEmptyOneDeletesNothingAtTheEnd) {
    const ImportHook<decltype(&DeleteObject)> hook(RuntimeDll(), nullptr, "DeleteObject",
                                                   &NoteDeleteObject);
    g_deleteObject = hook.Original();
    g_deletedObjects.clear();

    std::make_unique<CImage>().reset();

    EXPECT_TRUE(g_deletedObjects.empty());
}

// Ways of drawing.

int g_stretched = 0;
DWORD g_stretchOperation = 0;
int g_blended = 0;
BLENDFUNCTION g_blend = {};
int g_drawnTransparent = 0;
UINT g_transparentColor = 0;

BOOL WINAPI NoteStretchBlt(HDC, int, int, int, int, HDC, int, int, int, int, DWORD operation) {
    ++g_stretched;
    g_stretchOperation = operation;
    return TRUE;
}
BOOL WINAPI NoteAlphaBlend(HDC, int, int, int, int, HDC, int, int, int, int, BLENDFUNCTION blend) {
    ++g_blended;
    g_blend = blend;
    return TRUE;
}
BOOL WINAPI NoteTransparentBlt(HDC, int, int, int, int, HDC, int, int, int, int, UINT color) {
    ++g_drawnTransparent;
    g_transparentColor = color;
    return TRUE;
}

/// Counts the copies that images make, without making them.
class ImageWays : public testing::Test {
  protected:
    ImageWays() { g_stretched = g_blended = g_drawnTransparent = 0; }

    void LoadPicture(int resource) {
        ASSERT_EQ(m_image.Load(WritePicture(m_folder, L"picture", resource).c_str()), S_OK);
    }
    BOOL Draw() { return m_image.Draw(m_canvas.Handle(), 0, 0, 8, 8, 0, 0, 32, 16); }

    CImage m_image;
    const TempFolder m_folder;
    const Canvas m_canvas{8, 8, grey};
    const ImportHook<decltype(&StretchBlt)> m_stretchHook{RuntimeDll(), nullptr, "StretchBlt",
                                                          &NoteStretchBlt};
    const ImportHook<decltype(&AlphaBlend)> m_blendHook{RuntimeDll(), nullptr, "AlphaBlend",
                                                        &NoteAlphaBlend};
    const ImportHook<decltype(&TransparentBlt)> m_transparentHook{
        RuntimeDll(), nullptr, "TransparentBlt", &NoteTransparentBlt};
};

TEST_F(ImageWays, APictureFromAResourceIsStretched) {
    m_image.LoadFromResource(OwnInstance(), IDB_PLAIN);

    EXPECT_TRUE(Draw());

    EXPECT_EQ(g_stretched, 1);
    EXPECT_EQ(g_stretchOperation, 0x00CC0020u);
    EXPECT_EQ(g_blended + g_drawnTransparent, 0);
}

TEST_F(ImageWays, AlphaIsBlendedOverTheDestination) {
    LoadPicture(IDR_PNG_ALPHA);

    EXPECT_TRUE(Draw());

    EXPECT_EQ(g_blended, 1);
    EXPECT_EQ(g_blend.BlendOp, AC_SRC_OVER);
    EXPECT_EQ(g_blend.SourceConstantAlpha, 255);
    EXPECT_EQ(g_blend.AlphaFormat, AC_SRC_ALPHA);
    EXPECT_EQ(g_stretched + g_drawnTransparent, 0);
}

TEST_F(ImageWays, TheTransparentColourComesFromTheColourTable) {
    LoadPicture(IDR_GIF);
    RGBQUAD colors[4] = {};
    GetDIBColorTable(m_image.GetDC(), 0, 4, colors);
    m_image.ReleaseDC();

    EXPECT_EQ(m_image.SetTransparentColor(2), -1);
    EXPECT_TRUE(Draw());

    EXPECT_EQ(g_drawnTransparent, 1);
    EXPECT_EQ(g_transparentColor, RGB(colors[2].rgbRed, colors[2].rgbGreen, colors[2].rgbBlue));
    EXPECT_EQ(g_stretched + g_blended, 0);
}

TEST_F(ImageWays, ATransparentColourBeatsAlpha) {
    LoadPicture(IDR_PNG_ALPHA);

    m_image.SetTransparentColor(0);
    Draw();

    EXPECT_EQ(g_drawnTransparent, 1);
    EXPECT_EQ(g_blended, 0);
}

TEST_F(ImageWays, ALoadForgetsTheTransparentColour) {
    LoadPicture(IDR_GIF);
    m_image.SetTransparentColor(1);

    LoadPicture(IDR_GIF);

    EXPECT_EQ(m_image.GetTransparentColor(), -1);
}

DWORD WINAPI VersionBeforeTransparency() {
    return 4;
}

TEST_F(ImageWays, WithoutTransparencyOnThePlatformEverythingIsStretched) {
    const ImportHook<decltype(&GetVersion)> hook(RuntimeDll(), nullptr, "GetVersion",
                                                 &VersionBeforeTransparency);
    EXPECT_FALSE(CImage::IsTransparencySupported());
    LoadPicture(IDR_PNG_ALPHA);

    Draw();
    m_image.SetTransparentColor(0);
    Draw();

    EXPECT_EQ(g_stretched, 2);
    EXPECT_EQ(g_blended + g_drawnTransparent, 0);
}

TEST(ImageDraw, FillsTheDestinationAndOnlyThat) {
    const Canvas canvas(100, 60, grey);
    CImage image;
    image.LoadFromResource(OwnInstance(), IDB_PLAIN);

    EXPECT_TRUE(image.Draw(canvas.Handle(), 10, 20, 80, 30, 0, 0, 32, 16));

    EXPECT_EQ(canvas.Pixel(10, 20), red);
    EXPECT_EQ(canvas.Pixel(89, 20), green);
    EXPECT_EQ(canvas.Pixel(10, 49), blue);
    EXPECT_EQ(canvas.Pixel(89, 49), white);
    EXPECT_EQ(canvas.Pixel(9, 20), grey);
    EXPECT_EQ(canvas.Pixel(90, 49), grey);
    EXPECT_EQ(canvas.Pixel(89, 50), grey);
    EXPECT_EQ(canvas.Pixel(10, 19), grey);
}

TEST(ImageDraw, TakesTheSourceRectangle) {
    const Canvas canvas(20, 20, grey);
    CImage image;
    image.LoadFromResource(OwnInstance(), IDB_PLAIN);

    image.Draw(canvas.Handle(), 0, 0, 20, 20, 16, 8, 16, 8);

    EXPECT_EQ(canvas.Pixel(0, 0), white);
    EXPECT_EQ(canvas.Pixel(19, 19), white);
}

TEST(ImageDraw, AlphaIsTakenAsTheFileHasIt) {
    const TempFolder folder;
    const Canvas canvas(32, 16, grey);
    CImage image;
    image.Load(WritePicture(folder, L"alpha.png", IDR_PNG_ALPHA).c_str());

    image.Draw(canvas.Handle(), 0, 0, 32, 16, 0, 0, 32, 16);

    EXPECT_EQ(canvas.Pixel(4, 4), RGB(200, 0, 0));
    // Half of the grey shines through and the whole of the green is added to it.
    EXPECT_NEAR(GetRValue(canvas.Pixel(24, 4)), 64, 1);
    EXPECT_NEAR(GetGValue(canvas.Pixel(24, 4)), 164, 1);
    // Nothing hides the grey, and yet the blue is added.
    EXPECT_NEAR(GetBValue(canvas.Pixel(4, 12)), 188, 1);
    EXPECT_NEAR(GetRValue(canvas.Pixel(4, 12)), 128, 1);
    EXPECT_EQ(canvas.Pixel(24, 12), white);
}

TEST(ImageDraw, LeavesOutTheTransparentColour) {
    const TempFolder folder;
    const Canvas canvas(32, 16, grey);
    CImage image;
    image.Load(WritePicture(folder, L"palette.gif", IDR_GIF).c_str());
    const BYTE indexOfRed = *static_cast<const BYTE*>(image.GetBits());

    image.SetTransparentColor(indexOfRed);
    image.Draw(canvas.Handle(), 0, 0, 32, 16, 0, 0, 32, 16);

    EXPECT_EQ(canvas.Pixel(4, 4), grey);
    EXPECT_EQ(canvas.Pixel(24, 4), green);
    EXPECT_EQ(canvas.Pixel(4, 12), blue);
}

// Memory device contexts.

int g_createdDCs = 0;
int g_deletedDCs = 0;
HDC(WINAPI* g_createCompatibleDC)(HDC) = nullptr;
BOOL(WINAPI* g_deleteDC)(HDC) = nullptr;

HDC WINAPI NoteCreateCompatibleDC(HDC model) {
    ++g_createdDCs;
    return g_createCompatibleDC(model);
}
BOOL WINAPI NoteDeleteDC(HDC memoryDC) {
    ++g_deletedDCs;
    return g_deleteDC(memoryDC);
}

class ImageMemoryDCs : public testing::Test {
  protected:
    ImageMemoryDCs() {
        g_createCompatibleDC = m_createHook.Original();
        g_deleteDC = m_deleteHook.Original();
        g_createdDCs = g_deletedDCs = 0;
    }

    const ImportHook<decltype(&CreateCompatibleDC)> m_createHook{
        RuntimeDll(), nullptr, "CreateCompatibleDC", &NoteCreateCompatibleDC};
    const ImportHook<decltype(&DeleteDC)> m_deleteHook{RuntimeDll(), nullptr, "DeleteDC",
                                                       &NoteDeleteDC};
};

TEST_F(ImageMemoryDCs, OneServesDrawAfterDraw) {
    const Canvas canvas(8, 8, grey);
    auto image = std::make_unique<CImage>();
    image->LoadFromResource(OwnInstance(), IDB_PLAIN);

    for (int draw = 0; draw < 5; ++draw)
        image->Draw(canvas.Handle(), 0, 0, 8, 8, 0, 0, 32, 16);

    EXPECT_EQ(g_createdDCs, 1);
    EXPECT_EQ(g_deletedDCs, 0);
    image.reset();
    EXPECT_EQ(g_deletedDCs, 1) << "the pool ends with the last image";
}

TEST_F(ImageMemoryDCs, FourAreKept) {
    auto images = std::make_unique<CImage[]>(6);
    for (int index = 0; index < 6; ++index) {
        images[index].LoadFromResource(OwnInstance(), IDB_PLAIN);
        EXPECT_NE(images[index].GetDC(), nullptr);
    }
    EXPECT_EQ(g_createdDCs, 6);

    for (int index = 0; index < 6; ++index)
        images[index].ReleaseDC();
    EXPECT_EQ(g_deletedDCs, 2);

    images.reset();
    EXPECT_EQ(g_deletedDCs, 6);
}

TEST(Image, PairsOfGetDCAndReleaseDCNest) {
    CImage image;
    image.LoadFromResource(OwnInstance(), IDB_PLAIN);

    const HDC outer = image.GetDC();
    EXPECT_EQ(image.GetDC(), outer);
    image.ReleaseDC();

    EXPECT_EQ(GetCurrentObject(outer, OBJ_BITMAP), static_cast<HBITMAP>(image));
    image.ReleaseDC();
    EXPECT_NE(GetCurrentObject(outer, OBJ_BITMAP), static_cast<HBITMAP>(image));
}

TEST(Image, ThreadsShareThePoolWithoutMixingPictures) {
    std::vector<std::thread> threads;
    std::vector<int> wrong(6);
    threads.reserve(6);
    for (int number = 0; number < 6; ++number) {
        threads.emplace_back([number, &wrong] {
            const Canvas canvas(8, 8, grey);
            CImage image;
            image.LoadFromResource(OwnInstance(), IDB_PLAIN);
            const bool left = number % 2 == 0;
            for (int draw = 0; draw < 200; ++draw) {
                image.Draw(canvas.Handle(), 0, 0, 8, 8, left ? 0 : 16, 0, 16, 8);
                if (canvas.Pixel(4, 4) != (left ? red : green)) ++wrong[number];
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();

    EXPECT_EQ(wrong, std::vector<int>(6, 0));
}

}  // namespace

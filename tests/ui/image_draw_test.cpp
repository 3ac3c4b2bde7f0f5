// CImage's ways of drawing.

#include "support/canvas.h"
#include "ui/image_hooks.h"
#include "ui/picture_files.h"

#include <atlimage.h>

#include <gtest/gtest.h>

namespace {

constexpr COLORREF red = RGB(255, 0, 0);
constexpr COLORREF green = RGB(0, 255, 0);
constexpr COLORREF blue = RGB(0, 0, 255);
constexpr COLORREF white = RGB(255, 255, 255);
constexpr COLORREF grey = RGB(128, 128, 128);

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

}  // namespace

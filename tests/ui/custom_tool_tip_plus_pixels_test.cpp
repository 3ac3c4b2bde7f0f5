#include "ui/plus_scene.h"

#include "support/import_hook.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

// The pixels of rendered pictures.

namespace {

using Gdiplus::ARGB;

constexpr int width = 120;
constexpr int height = 40;

class CustomToolTipPlusPixels : public PlusSceneTest {
  protected:
    /// Renders an entry at a fixed size and gives the picture's pixels by rows.
    std::vector<ARGB> Render(const wchar_t* text, DWORD imageId, double level) {
        tip->m_width = width;
        tip->m_height = height;
        tip->m_imageWidth = 0;
        tip->RenderTip(AddEntry(text, imageId), level);
        std::vector<ARGB> pixels;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x)
                pixels.push_back(Pixel(x, y));
        }
        return pixels;
    }

    /// Black pixels in the right third of the picture.
    int InkOfRightThird() const {
        int ink = 0;
        for (int y = 0; y < tip->m_height; ++y) {
            for (int x = tip->m_width * 2 / 3; x < tip->m_width; ++x) {
                if (Pixel(x, y) == 0xFF000000) ++ink;
            }
        }
        return ink;
    }

    static ARGB At(const std::vector<ARGB>& pixels, int x, int y) { return pixels[y * width + x]; }
};

/// The largest difference of a channel.
int Difference(ARGB left, ARGB right) {
    int largest = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const int difference = std::abs(static_cast<int>(left >> shift & 0xFF) -
                                        static_cast<int>(right >> shift & 0xFF));
        largest = std::max(largest, difference);
    }
    return largest;
}

int g_pass = 0;
int g_wantedPass = 0;
decltype(&Gdiplus::DllExports::GdipDrawString) g_drawString = nullptr;

Gdiplus::GpStatus WINGDIPAPI DrawOnePass(Gdiplus::GpGraphics* surface, const WCHAR* text,
                                         INT length, const Gdiplus::GpFont* font,
                                         const Gdiplus::RectF* layout,
                                         const Gdiplus::GpStringFormat* format,
                                         const Gdiplus::GpBrush* brush) {
    if (++g_pass != g_wantedPass) return Gdiplus::Ok;
    return g_drawString(surface, text, length, font, layout, format, brush);
}

/// Lets through the n-th of the three text passes alone.
class OnePass {
  public:
    explicit OnePass(int pass) : m_hook("gdiplus.dll", "GdipDrawString", DrawOnePass) {
        g_drawString = m_hook.Original();
        g_pass = 0;
        g_wantedPass = pass;
    }

  private:
    ImportHook<decltype(&Gdiplus::DllExports::GdipDrawString)> m_hook;
};

decltype(&Gdiplus::DllExports::GdipCloneBitmapArea) g_clone = nullptr;

Gdiplus::GpStatus WINGDIPAPI CloneWithResolution(Gdiplus::REAL x, Gdiplus::REAL y,
                                                 Gdiplus::REAL areaWidth, Gdiplus::REAL areaHeight,
                                                 Gdiplus::PixelFormat format,
                                                 Gdiplus::GpBitmap* source,
                                                 Gdiplus::GpBitmap** clone) {
    const Gdiplus::GpStatus status = g_clone(x, y, areaWidth, areaHeight, format, source, clone);
    Gdiplus::DllExports::GdipBitmapSetResolution(*clone, 200.0f, 200.0f);
    return status;
}

}  // namespace

TEST_F(CustomToolTipPlusPixels, GradientRunsFromTheFirstColorToTheSecond) {
    struct Row {
        double level;
        ARGB left, right;
    };
    constexpr Row rows[] = {{0.0, 0xFFFFFFFF, 0xFFD2C38F},
                            {0.5, 0xFFF5F5E3, 0xFFE8E1C7},
                            {0.9999999999999999, 0xFFEBEBC8, 0xFFFFFFFF}};

    for (const Row& row : rows) {
        const std::vector<ARGB> pixels = Render(L"", ID_NO_BITMAP, row.level);
        for (const int y : {0, height / 2, height - 1}) {
            EXPECT_LE(Difference(At(pixels, 0, y), row.left), 1) << row.level;
            EXPECT_LE(Difference(At(pixels, width - 1, y), row.right), 1) << row.level;
        }
    }
}

TEST_F(CustomToolTipPlusPixels, KeyedPixelsShowTheGradientAndTheOthersTheirColor) {
    const std::vector<ARGB> plain = Render(L"", ID_NO_BITMAP, 0.0);
    const std::vector<ARGB> pixels = Render(L"", IDB_KEYED, 0.0);
    struct Row {
        const char* why;
        int x, y;
        ARGB color;  ///< 0: the gradient's
    };
    constexpr Row rows[] = {
        {"the key colour", 2, 2, 0},
        {"distance 10 over two channels", 3, 2, 0},
        {"distance 11 over two channels", 4, 2, 0xFFF9F7CE},
        {"red", 5, 2, 0xFFFF0000},
        {"distance 10 in blue", 2, 3, 0},
        {"distance 11 in blue", 3, 3, 0xFFFEFDD9},
        {"blue", 4, 3, 0xFF0000FF},
        {"white", 5, 3, 0xFFFFFFFF},
    };

    for (const Row& row : rows) {
        const ARGB expected = row.color != 0 ? row.color : At(plain, row.x, row.y);
        EXPECT_EQ(At(pixels, row.x, row.y), expected) << row.why;
    }
    EXPECT_EQ(At(pixels, 1, 2), At(plain, 1, 2));
    EXPECT_EQ(At(pixels, 6, 3), At(plain, 6, 3));
    EXPECT_EQ(At(pixels, 5, 4), At(plain, 5, 4));
}

TEST_F(CustomToolTipPlusPixels, BitmapStandsAtFullColorAtEveryLevel) {
    for (const double level : {0.0, 0.5, 0.9999999999999999}) {
        const std::vector<ARGB> pixels = Render(L"", IDB_TALL, level);
        EXPECT_EQ(At(pixels, 2, 2), 0xFF008000u) << level;
        EXPECT_EQ(At(pixels, 13, 39), 0xFF008000u) << level;
    }
}

TEST_F(CustomToolTipPlusPixels, BitmapWithAResolutionOfItsOwnIsntScaled) {
    const std::vector<ARGB> expected = Render(L"", IDB_KEYED, 0.0);
    const ImportHook<decltype(&Gdiplus::DllExports::GdipCloneBitmapArea)> hook(
        "gdiplus.dll", "GdipCloneBitmapArea", CloneWithResolution);
    g_clone = hook.Original();

    EXPECT_EQ(Render(L"", IDB_KEYED, 0.0), expected);
}

TEST_F(CustomToolTipPlusPixels, TextPassesLieOnePixelUpLeftAndDownRightOfThePlace) {
    const double level = 0.9999999999999999;  // Both shadows stand out against the gradient.
    const std::vector<ARGB> plain = Render(L"", ID_NO_BITMAP, level);
    std::vector<ARGB> passes[3];
    for (int pass = 1; pass <= 3; ++pass) {
        const OnePass only(pass);
        passes[pass - 1] = Render(L"Emboss", ID_NO_BITMAP, level);
    }
    const auto ink = [&plain](const std::vector<ARGB>& pixels, int x, int y) {
        return Difference(At(pixels, x, y), At(plain, x, y));
    };

    int compared = 0;
    for (int y = 1; y < height - 1; ++y) {
        for (int x = 1; x < width - 1; ++x) {
            if (ink(passes[2], x, y) < 100) continue;
            ++compared;
            EXPECT_GT(ink(passes[0], x - 1, y - 1), 5) << x << ", " << y;
            EXPECT_GT(ink(passes[1], x + 1, y + 1), 5) << x << ", " << y;
        }
    }
    EXPECT_GT(compared, 50);
}

TEST_F(CustomToolTipPlusPixels, BlackTextLiesOverItsTwoShadows) {
    const std::vector<ARGB> all = Render(L"Emboss", ID_NO_BITMAP, 0.0);
    std::vector<ARGB> black;
    {
        const OnePass only(3);
        black = Render(L"Emboss", ID_NO_BITMAP, 0.0);
    }

    int compared = 0;
    for (size_t i = 0; i < black.size(); ++i) {
        if (Difference(black[i], 0xFF000000) > 0x60) continue;
        ++compared;
        EXPECT_LE(Difference(all[i], 0xFF000000), 0x60) << i;
    }
    EXPECT_GT(compared, 10);
}

TEST_F(CustomToolTipPlusPixels, BothShadowsHaveOneColorInMidFade) {
    std::vector<ARGB> passes[2];
    for (int pass = 1; pass <= 2; ++pass) {
        const OnePass only(pass);
        passes[pass - 1] = Render(L"Emboss", ID_NO_BITMAP, 0.5);
    }

    for (const std::vector<ARGB>& pixels : passes) {
        EXPECT_NE(std::find(pixels.begin(), pixels.end(), 0xFFDEDED4), pixels.end());
    }
}

TEST_F(CustomToolTipPlusPixels, TextThatWrapsFurtherWhenDrawnIsCutAtTheBottom) {
    // As wide as a text can be that is measured on one line: drawn in 6 pixels less, it wraps.
    const wchar_t* const text = L"two words";
    const int index = AddEntry(text, ID_NO_BITMAP);
    tip->m_maxTextWidth = 1000;
    tip->MeasureTip(index);
    const int oneLine = tip->m_height;
    tip->m_maxTextWidth = tip->m_width - 4 + 1;
    tip->MeasureTip(index);
    ASSERT_EQ(tip->m_height, oneLine);
    tip->RenderTip(index, 0.0);

    // The second word would begin right of the first one's end; it isn't there, nor below.
    EXPECT_EQ(InkOfRightThird(), 0);

    tip->m_maxTextWidth += 6;  // Drawn in the width that it was measured in, it is there.
    tip->RenderTip(index, 0.0);
    EXPECT_GT(InkOfRightThird(), 0);
}

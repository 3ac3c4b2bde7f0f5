#include "ui/plus_scene.h"

#include "support/call_journal.h"
#include "support/child_scenario.h"
#include "support/import_hook.h"
#include "ui/gdiplus_owners.h"
#include "ui/gdiplus_watch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

// What a drawn tool tip asks of GDI+, in its order, and what it makes of the answers.

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

using CustomToolTipPlusTest = PlusSceneTest;

Gdiplus::RectF g_bounds;

Gdiplus::GpStatus WINGDIPAPI MeasureAsTold(Gdiplus::GpGraphics*, const WCHAR*, INT,
                                           const Gdiplus::GpFont*, const Gdiplus::RectF*,
                                           const Gdiplus::GpStringFormat*, Gdiplus::RectF* bounds,
                                           INT*, INT*) {
    *bounds = g_bounds;
    return Gdiplus::Ok;
}

/// Every text measures the given size while this lives.
class FixedMeasure {
  public:
    FixedMeasure(float width, float height)
        : m_hook("gdiplus.dll", "GdipMeasureString", MeasureAsTold) {
        g_bounds = Gdiplus::RectF(0, 0, width, height);
    }

  private:
    ImportHook<decltype(&Gdiplus::DllExports::GdipMeasureString)> m_hook;
};

/// The width that GDI+ itself gives the text in a tip's font.
float MeasuredWidth(const OpenTipPlus& tip, const wchar_t* text) {
    using namespace Gdiplus::DllExports;
    Gdiplus::GpGraphics* surface = nullptr;
    GdipCreateFromHWND(tip.m_hWnd, &surface);
    const OwnedGraphics ownedSurface(surface);
    GdipSetTextRenderingHint(surface, Gdiplus::TextRenderingHintClearTypeGridFit);
    Gdiplus::GpFontFamily* family = nullptr;
    GdipGetGenericFontFamilySansSerif(&family);
    Gdiplus::GpFont* font = nullptr;
    GdipCreateFont(family, 9.0f, Gdiplus::FontStyleRegular, Gdiplus::UnitPoint, &font);
    const OwnedFont ownedFont(font);

    const Gdiplus::RectF layout(0.0f, 0.0f, static_cast<float>(tip.m_maxTextWidth), 0.0f);
    Gdiplus::RectF bounds;
    EXPECT_EQ(
        GdipMeasureString(surface, text, -1, font, &layout, nullptr, &bounds, nullptr, nullptr),
        Gdiplus::Ok);
    return bounds.Width;
}

/// The font family is fetched by whoever draws first in the process.
void FetchFamily(OpenTipPlus* tip) {
    tip->AddTip(RECT{}, new TipDataPlus(L"", ID_NO_BITMAP));
    tip->MeasureTip(0);
}

}  // namespace

TEST_F(CustomToolTipPlusTest, ConstructionKeepsTheModuleAndFadesWithoutAPicture) {
    EXPECT_EQ(tip->m_backBuffer, nullptr);
    EXPECT_EQ(tip->m_resources, GetModuleHandleW(nullptr));
    EXPECT_TRUE(tip->m_fadeEnabled);
}

TEST_F(CustomToolTipPlusTest, ContentCopiesItsText) {
    wchar_t text[] = L"line";
    const TipDataPlus content(text, 0x10000 + IDB_KEYED);

    text[0] = L'p';

    EXPECT_STREQ(content.m_text, L"line");
    EXPECT_EQ(content.m_imageId, 0x10000u + IDB_KEYED);
}

TEST_F(CustomToolTipPlusTest, MessageMapAndRuntimeClassAreTheBases) {
    struct MapReader : OpenTipPlus {
        using OpenTipPlus::GetThisMessageMap;
        using OpenTipPlus::OpenTipPlus;
        bool SharesTheMap() const { return GetMessageMap() == CustomToolTip::GetThisMessageMap(); }
    };
    MapReader reader(nullptr, nullptr);

    EXPECT_TRUE(reader.SharesTheMap());
    EXPECT_EQ(tip->GetRuntimeClass(), RUNTIME_CLASS(CWnd));
}

TEST_F(CustomToolTipPlusTest, MeasureMakesItsCallsInTheirOrderAndReleasesAll) {
    FetchFamily(tip);
    const int index = AddEntry(L"text", 0xABC0000 + IDB_KEYED);
    const GdiplusWatch watch;

    tip->MeasureTip(index);

    EXPECT_THAT(
        CallJournal::Calls(),
        ElementsAre(
            L"GdipCreateFromHWND window -> surface1", L"GdipSetSmoothingMode surface1 2",
            L"GdipSetInterpolationMode surface1 7", L"GdipSetCompositingQuality surface1 2",
            L"GdipSetTextRenderingHint surface1 5", L"GdipCreateFont unknown 9 0 3 -> font1",
            L"GdipMeasureString surface1 'text' -1 font1 [0 0 300 0] null", L"GdipAlloc",
            L"GdipCreateBitmapFromResource module #401 -> bitmap1", L"GdipGetImageWidth bitmap1",
            L"GdipGetImageHeight bitmap1", L"GdipDisposeImage bitmap1", L"GdipFree",
            L"GdipDeleteFont font1", L"GdipDeleteGraphics surface1"));
    EXPECT_THAT(watch.alive, IsEmpty());
    EXPECT_EQ(watch.allocations, 0);
}

TEST_F(CustomToolTipPlusTest, RenderMakesItsCallsInTheirOrderAndReleasesAllButThePicture) {
    FetchFamily(tip);
    const int index = AddEntry(L"text", IDB_KEYED);
    tip->m_width = 60;
    tip->m_height = 30;
    tip->m_imageWidth = 4;
    const GdiplusWatch watch;

    tip->RenderTip(index, 0.5);

    const std::vector<std::wstring> expected = {
        L"GdipCreateFromHWND window -> surface1",
        L"GdipSetSmoothingMode surface1 2",
        L"GdipSetInterpolationMode surface1 7",
        L"GdipSetCompositingQuality surface1 2",
        L"GdipSetTextRenderingHint surface1 5",
        L"GdipCreateFont unknown 9 0 3 -> font1",
        L"GdipCreateSolidFill FF000000 -> brush1",
        L"GdipCreateStringFormat 0 0 -> format1",
        L"GdipSetStringFormatAlign format1 0",
        L"GdipCreateBitmapFromGraphics 60 30 surface1 -> bitmap1",
        L"GdipGetImageGraphicsContext bitmap1 -> surface2",
        L"GdipSetSmoothingMode surface2 2",
        L"GdipSetInterpolationMode surface2 7",
        L"GdipSetCompositingQuality surface2 2",
        L"GdipSetTextRenderingHint surface2 5",
        L"GdipCreateLineBrushFromRect [0 0 60 30] FFF5F5E3 FFE8E1C7 0 0 -> gradient1",
        L"GdipFillRectangle surface2 gradient1 0 0 60 30",
        L"GdipAlloc",
        L"GdipCreateBitmapFromResource module #401 -> bitmap2",
        L"GdipGetImageWidth bitmap2",
        L"GdipGetImageHeight bitmap2",
        L"GdipCloneBitmapArea 0 0 4 2 2498570 bitmap2 -> bitmap3",  // 0x26200A
        L"GdipGetImageWidth bitmap3",
        L"GdipGetImageHeight bitmap3",
        L"GdipBitmapLockBits bitmap3 [0 0 4 2] 3 2498570",
        L"GdipBitmapUnlockBits bitmap3",
        L"GdipDrawImageRectI surface2 bitmap3 2 2 4 2",
        L"GdipDisposeImage bitmap3",
        L"GdipDisposeImage bitmap2",
        L"GdipFree",
        L"GdipCreateSolidFill FFDEDED4 -> brush2",
        L"GdipCreateSolidFill FFDEDED4 -> brush3",
        L"GdipDrawString surface2 'text' -1 font1 [10 2 294 24] format1 brush2",
        L"GdipDrawString surface2 'text' -1 font1 [12 4 294 24] format1 brush3",
        L"GdipDrawString surface2 'text' -1 font1 [11 3 294 24] format1 brush1",
        L"GdipDeleteBrush brush3",
        L"GdipDeleteBrush brush2",
        L"GdipDeleteBrush gradient1",
        L"GdipDeleteGraphics surface2",
        L"GdipDeleteStringFormat format1",
        L"GdipDeleteBrush brush1",
        L"GdipDeleteFont font1",
        L"GdipDeleteGraphics surface1",
    };
    EXPECT_THAT(CallJournal::Calls(), ElementsAreArray(expected));
    EXPECT_EQ(watch.alive.size(), 1u);
    EXPECT_EQ(watch.alive.count(tip->m_backBuffer), 1u);
    EXPECT_EQ(watch.allocations, 0);
}

TEST_F(CustomToolTipPlusTest, RenderDeletesTheFormerPictureFirst) {
    const int index = AddEntry(L"text", ID_NO_BITMAP);
    const GdiplusWatch watch;
    tip->RenderTip(index, 0.0);
    const std::wstring former = watch.alive.at(tip->m_backBuffer);
    CallJournal::Clear();

    tip->RenderTip(index, 0.1);

    EXPECT_EQ(CallJournal::Calls().front(), L"GdipDisposeImage " + former);
    EXPECT_EQ(watch.alive.size(), 1u);
}

TEST_F(CustomToolTipPlusTest, TextPassesTakeTheirColorsFromTheLevel) {
    struct Row {
        double level;
        const wchar_t* upLeft;
        const wchar_t* downRight;
    };
    constexpr Row rows[] = {{0.0, L"FFBEBEB4", L"FFFFFFF5"},
                            {0.9999999999999999, L"FFFFFFF5", L"FFBEBEB4"}};
    const int index = AddEntry(L"text", ID_NO_BITMAP);

    for (const Row& row : rows) {
        const GdiplusWatch watch;
        tip->RenderTip(index, row.level);
        const auto made = [](int number, const wchar_t* color) {
            return L"GdipCreateSolidFill " + std::wstring(color) + L" -> brush" +
                   std::to_wstring(number);
        };
        EXPECT_EQ(CallJournal::Count(made(2, row.upLeft)), 1) << row.level;
        EXPECT_EQ(CallJournal::Count(made(3, row.downRight)), 1) << row.level;
        tip->RenderTip(index, 0.0);
    }
}

TEST_F(CustomToolTipPlusTest, PaintCopiesThePictureAtItsOwnSize) {
    const int index = AddEntry(L"text", ID_NO_BITMAP);
    tip->m_width = 60;
    tip->m_height = 30;
    CClientDC dc(tip);
    const GdiplusWatch watch;
    tip->RenderTip(index, 0.0);
    const std::wstring picture = watch.alive.at(tip->m_backBuffer);
    CallJournal::Clear();

    tip->m_width = 5;  // What the picture is of counts, not what the next one will be.
    tip->PaintTip(&dc);

    EXPECT_THAT(CallJournal::Calls(),
                ElementsAre(L"GdipCreateFromHDC context -> surface3",
                            L"GdipGetImageWidth " + picture, L"GdipGetImageHeight " + picture,
                            L"GdipDrawImageRectI surface3 " + picture + L" 0 0 60 30",
                            L"GdipDeleteGraphics surface3"));
}

TEST_F(CustomToolTipPlusTest, PaintWithoutAPictureOrAContextDoesNothing) {
    const int index = AddEntry(L"text", ID_NO_BITMAP);
    CClientDC dc(tip);
    const GdiplusWatch watch;

    tip->PaintTip(&dc);
    EXPECT_EQ(watch.calls, 0);
    tip->RenderTip(index, 0.0);
    const int before = watch.calls;
    tip->PaintTip(nullptr);

    EXPECT_EQ(watch.calls, before);
}

// Sizes.

TEST_F(CustomToolTipPlusTest, SizeFollowsTheMeasuredTextAndTheBitmap) {
    struct Row {
        const char* why;
        float textWidth, textHeight;
        DWORD imageId;
        int width, height, imageWidth, imageHeight;
    };
    constexpr Row rows[] = {
        {"text alone", 100.0f, 20.0f, ID_NO_BITMAP, 104, 26, 0, 0},
        {"both are cut, width after 0.49", 100.5f, 20.99f, ID_NO_BITMAP, 104, 26, 0, 0},
        {"width just over the half", 100.52f, 21.0f, ID_NO_BITMAP, 105, 27, 0, 0},
        {"the sum is a float: a double one is below 5", 4.50999975f, 1.0f, ID_NO_BITMAP, 9, 7, 0,
         0},
        {"nothing at all", 0.0f, 0.0f, ID_NO_BITMAP, 4, 6, 0, 0},
        {"low bitmap", 100.0f, 20.0f, IDB_KEYED, 108, 26, 4, 2},
        {"tall bitmap", 100.0f, 20.0f, IDB_TALL, 116, 46, 12, 40},
        {"bitmap of just the text's height", 100.0f, 40.0f, IDB_TALL, 116, 46, 12, 40},
        {"bitmap beside a text without extent", 0.0f, 0.0f, IDB_TALL, 16, 46, 12, 40},
        {"high 16 bits of the id", 0.0f, 0.0f, 0xFFFF0000 + IDB_TALL, 16, 46, 12, 40},
    };

    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        const FixedMeasure measure(row.textWidth, row.textHeight);
        tip->MeasureTip(AddEntry(L"text", row.imageId));
        EXPECT_EQ(tip->m_width, row.width);
        EXPECT_EQ(tip->m_height, row.height);
        EXPECT_EQ(tip->m_imageWidth, row.imageWidth);
        EXPECT_EQ(tip->m_imageHeight, row.imageHeight);
    }
}

TEST_F(CustomToolTipPlusTest, EmptyTextLeavesTheHeightToTheBitmapAndAddsWhatItMeasures) {
    tip->MeasureTip(AddEntry(L"", IDB_TALL));

    EXPECT_EQ(tip->m_width, 12 + 4 + static_cast<int>(MeasuredWidth(*tip, L"") + 0.49f));
    EXPECT_EQ(tip->m_height, 40 + 6);
}

TEST_F(CustomToolTipPlusTest, TextIsMeasuredInTheFullWidthAndDrawnInSixLess) {
    tip->m_maxTextWidth = 123;
    const int index = AddEntry(L"text", ID_NO_BITMAP);
    const GdiplusWatch watch;

    tip->MeasureTip(index);
    tip->RenderTip(index, 0.0);

    const auto has = [](const wchar_t* part) {
        return std::any_of(
            CallJournal::Calls().begin(), CallJournal::Calls().end(),
            [part](const std::wstring& call) { return call.find(part) != call.npos; });
    };
    EXPECT_TRUE(has(L"[0 0 123 0]"));
    EXPECT_TRUE(has(L"[7 3 117 "));  // Neither bitmap nor m_width matter to it.
}

TEST_F(CustomToolTipPlusTest, LongTextWrapsAtTheMaximumWidth) {
    const int shortText = AddEntry(L"word", ID_NO_BITMAP);
    const int latin = AddEntry(
        L"many words that together need more than one line of the tip "
        L"when it may be no wider than this",
        ID_NO_BITMAP);
    const int chinese = AddEntry(
        L"这是一段很长的中文说明文字，超过提示窗口的最大宽度时会自动换行显示。", ID_NO_BITMAP);
    tip->m_maxTextWidth = 150;

    tip->MeasureTip(shortText);
    const int line = tip->m_height;
    for (const int index : {latin, chinese}) {
        tip->MeasureTip(index);
        EXPECT_GE(tip->m_height, 2 * line - 6);
        EXPECT_LE(tip->m_width, 150 + 4);
    }
}

// Ends.

TEST_F(CustomToolTipPlusTest, DestroyedWindowEndsTheObjectOnceAndItsPicture) {
    const int index = AddEntry(L"text", IDB_KEYED);
    const GdiplusWatch watch;
    tip->RenderTip(index, 0.0);

    tip->DestroyWindow();
    tip = nullptr;

    EXPECT_EQ(OpenTipPlus::deletions, 1);
    EXPECT_THAT(watch.alive, IsEmpty());
}

TEST_F(CustomToolTipPlusTest, OwnersDeletionHappensOnce) {
    const HWND window = tip->m_hWnd;

    CustomToolTip* const base = tip;
    delete base;
    tip = nullptr;

    EXPECT_EQ(OpenTipPlus::deletions, 1);
    EXPECT_FALSE(IsWindow(window));
}

namespace {

/// Measures and renders twice; the count of family fetches is the exit code.
int CountFetches(int failingCall) {
    const GdiplusSession gdiplus;
    OpenTipPlus tip(nullptr, GetModuleHandleW(nullptr));
    tip.AddTip(RECT{}, new TipDataPlus(L"text", ID_NO_BITMAP));
    GdiplusWatch watch;
    watch.failingCall = failingCall;
    for (int round = 0; round < 2; ++round) {
        tip.MeasureTip(0);
        tip.RenderTip(0, 0.0);
    }
    const auto& calls = CallJournal::Calls();
    return static_cast<int>(std::count_if(calls.begin(), calls.end(), [](const auto& call) {
        return call.rfind(L"GdipGetGenericFontFamilySansSerif", 0) == 0;
    }));
}

CHILD_SCENARIO(FetchFamily) {
    return CountFetches(0);
}

// The call behind the surface and its four settings.
CHILD_SCENARIO(FetchFamilyAgain) {
    return CountFetches(6);
}

}  // namespace

TEST_F(CustomToolTipPlusTest, FontFamilyIsFetchedOnceForTheProcess) {
    EXPECT_EQ(RunScenario(L"FetchFamily").exitCode, 1u);
}

TEST_F(CustomToolTipPlusTest, FontFamilyThatWasntGivenIsFetchedAgain) {
    EXPECT_EQ(RunScenario(L"FetchFamilyAgain").exitCode, 2u);
}

#include "ui/plus_scene.h"

#include "support/call_journal.h"
#include "support/invalid_parameter_scope.h"
#include "support/resource_counters.h"
#include "ui/gdiplus_watch.h"
#include "ui/tip_platform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

// GDI+ calls that fail, in the drawing and around it.

namespace {

using testing::IsEmpty;

class CustomToolTipPlusFailures : public PlusSceneTest {
  protected:
    /// All that a show and a step draw.
    static void Draw(OpenTipPlus& drawn) {
        CClientDC dc(&drawn);
        drawn.MeasureTip(0);
        drawn.RenderTip(0, 0.0);
        drawn.PaintTip(&dc);
    }

    static bool Begins(const std::wstring& call, const wchar_t* name) {
        return call.rfind(name, 0) == 0;
    }

  private:
    InvalidParameterScope m_scope;
};

}  // namespace

TEST_F(CustomToolTipPlusFailures, EveryCallMayFailAndOnlyTheWantedStorageIsLost) {
    const int enough = 1000;
    int failing = 1;
    for (; failing < enough; ++failing) {
        GdiplusWatch watch;
        watch.failingCall = failing;
        {
            OpenTipPlus drawn(nullptr, GetModuleHandleW(nullptr));
            drawn.AddTip(RECT{}, new TipDataPlus(L"text", IDB_KEYED));
            drawn.m_current = 0;
            Draw(drawn);
            if (watch.calls < failing) break;

            std::wstring failed;
            for (const std::wstring& call : CallJournal::Calls()) {
                if (call.find(L"-> failed") != call.npos) failed = call;
            }
            SCOPED_TRACE(testing::Message() << "call " << failing << ": " << failed.c_str());
            ASSERT_FALSE(failed.empty());
            const bool noPicture = Begins(failed, L"GdipCreateBitmapFromGraphics");
            EXPECT_EQ(drawn.m_backBuffer == nullptr, noPicture);
            EXPECT_EQ(drawn.m_current, noPicture ? -1 : 0);
            EXPECT_EQ(watch.allocations, Begins(failed, L"GdipCreateBitmapFromResource") ? 1 : 0);
        }
        EXPECT_THAT(watch.alive, IsEmpty()) << failing;
    }

    EXPECT_GT(failing, 60);
    EXPECT_LT(failing, enough);
}

TEST_F(CustomToolTipPlusFailures, WithoutGdiplusTheTipMeasuresItsBareMinimumAndHasNoPicture) {
    AddEntry(L"text", IDB_KEYED);
    tip->m_current = 0;
    GdiplusWatch watch;
    watch.failEveryCall = true;
    watch.failure = Gdiplus::GdiplusNotInitialized;

    Draw(*tip);

    EXPECT_EQ(tip->m_width, 4);
    EXPECT_EQ(tip->m_height, 6);
    EXPECT_EQ(tip->m_imageWidth, 0);
    EXPECT_EQ(tip->m_backBuffer, nullptr);
    EXPECT_EQ(tip->m_current, -1);
}

TEST_F(CustomToolTipPlusFailures, PictureThatCantBeMadeParksTheTipAtTheShow) {
    TipPlatform platform;
    platform.cursor = {100, 100};
    CWnd owner;
    owner.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP, 0, 0, 1920, 1080, nullptr, nullptr);
    auto* shown = new OpenTipPlus(owner, GetModuleHandleW(nullptr));
    shown->AddTip(RECT{0, 0, 1920, 1080}, new TipDataPlus(L"text", ID_NO_BITMAP));
    shown->RelayMouseMove();
    {
        GdiplusWatch watch;
        watch.failEveryCall = true;
        shown->SendMessage(WM_TIMER, OpenTipPlus::HoverTimer);
        EXPECT_GT(watch.calls, 0);
    }

    RECT rect = {};
    GetWindowRect(shown->m_hWnd, &rect);
    const RECT parked = {0, 10, 1, 11};
    EXPECT_TRUE(EqualRect(&rect, &parked));
    shown->DestroyWindow();
}

TEST_F(CustomToolTipPlusFailures, BadIndexDropsThePictureAndEndsInTheInvalidParameterHandler) {
    const int index = AddEntry(L"text", IDB_KEYED);
    GdiplusWatch watch;
    tip->RenderTip(index, 0.0);
    ASSERT_NE(tip->m_backBuffer, nullptr);

    EXPECT_THROW(tip->RenderTip(-1, 0.1), LeftByHandler);

    EXPECT_EQ(tip->m_backBuffer, nullptr);
    EXPECT_THROW(tip->MeasureTip(1), LeftByHandler);
    EXPECT_THAT(watch.alive, IsEmpty());
}

TEST_F(CustomToolTipPlusFailures, MissingResourceLosesOneAllocationInEachOfItsTwoPlaces) {
    const int index = AddEntry(L"text", ID_NO_BITMAP);
    const GdiplusWatch watch;

    tip->MeasureTip(index);
    EXPECT_EQ(watch.allocations, 1);
    tip->RenderTip(index, 0.0);

    EXPECT_EQ(watch.allocations, 2);
}

TEST_F(CustomToolTipPlusFailures, RoundsOfDrawingLeaveNothingBehind) {
    AddEntry(L"some text", IDB_KEYED);
    for (int round = 0; round < 100; ++round)
        Draw(*tip);
    const ResourceCounts before = CountResources();

    for (int round = 0; round < 100; ++round)
        Draw(*tip);

    const ResourceCounts after = CountResources();
    EXPECT_EQ(after.heapBlocks, before.heapBlocks);
    EXPECT_EQ(after.gdiObjects, before.gdiObjects);
    EXPECT_EQ(after.kernelHandles, before.kernelHandles);
}

TEST_F(CustomToolTipPlusFailures, RoundsWithAMissingResourceLeaveJustTheWantedBlocks) {
    AddEntry(L"some text", ID_NO_BITMAP);
    for (int round = 0; round < 100; ++round)
        Draw(*tip);
    const ResourceCounts before = CountResources();

    for (int round = 0; round < 100; ++round)
        Draw(*tip);

    EXPECT_EQ(CountResources().heapBlocks, before.heapBlocks + 200);
    EXPECT_EQ(CountResources().gdiObjects, before.gdiObjects);
}

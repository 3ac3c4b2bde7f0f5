// Tool tips on the screen, from the relayed mouse move to the window's end. The test's ticks stand
// in for time, so that a round takes none.

#include "soak/soak.h"

#include "support/call_journal.h"
#include "ui/plus_scene.h"
#include "ui/resource_bitmap.h"
#include "ui/tip_platform.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr int measuresOfATip = 1;
constexpr int rendersOfATip = 12;  // One as it comes up, eleven of the fade.

class TipSoak : public testing::Test {
  protected:
    TipSoak() {
        owner.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP, 100, 100, 600, 400, nullptr,
                       nullptr);
    }
    ~TipSoak() override { owner.DestroyWindow(); }

    // One for all tests: a tip's font family doesn't outlive it.
    static void SetUpTestSuite() { m_gdiplus = std::make_unique<GdiplusSession>(); }
    static void TearDownTestSuite() { m_gdiplus.reset(); }

    /// Shows a tip with the text and the bitmap, and lets its pointer leave.
    void Round(DWORD imageId) {
        OpenTipPlus::deletions = 0;
        auto* const tip = new OpenTipPlus(owner, GetModuleHandleW(nullptr));
        ASSERT_TRUE(tip->AddTip(RECT{0, 0, 200, 200}, new TipDataPlus(L"提", imageId)));
        platform.cursor = {150, 150};
        tip->RelayMouseMove();
        Tick(*tip, OpenTipPlus::HoverTimer, 1);
        ASSERT_EQ(tip->m_current, 0);
        Tick(*tip, OpenTipPlus::FadeTimer, rendersOfATip);
        platform.cursor = {600, 400};
        Tick(*tip, OpenTipPlus::LeaveTimer, 3);
        ASSERT_EQ(tip->m_current, -1);
        ASSERT_TRUE(platform.timers.empty());
        tip->DestroyWindow();
        ASSERT_EQ(OpenTipPlus::deletions, 1);
        CallJournal::Clear();
    }

    TipPlatform platform;
    CWnd owner;

  private:
    static void Tick(CWnd& tip, UINT_PTR timer, int times) {
        for (int i = 0; i < times; ++i)
            tip.SendMessage(WM_TIMER, timer);
    }

    static inline std::unique_ptr<GdiplusSession> m_gdiplus;
};

TEST_F(TipSoak, WithABitmap) {
    Soak("tips shown and gone", SoakRounds(1000), [this] { Round(IDB_TALL); });
}

// Meant: a bitmap that isn't there costs its wrapper at each attempt.
TEST_F(TipSoak, WithAMissingBitmapLosesABlockForEachAttempt) {
    constexpr int attempts = measuresOfATip + rendersOfATip;
    ResourceCounts lost;
    lost.heapBlocks = attempts;
    lost.heapBytes = attempts * static_cast<long long>(sizeof(ResourceBitmap));

    Soak(
        "tips with a missing bitmap", SoakRounds(1000), [this] { Round(ID_NO_BITMAP); }, lost);
}

}  // namespace

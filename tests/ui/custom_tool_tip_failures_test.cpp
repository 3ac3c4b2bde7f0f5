#include "ui/tip_scene.h"

#include "support/invalid_parameter_scope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// A render that can't draw, and indices that name nothing.

namespace {

using testing::ElementsAre;

constexpr UINT_PTR hover = RecordingTip::HoverTimer;
constexpr UINT_PTR leave = RecordingTip::LeaveTimer;
constexpr UINT_PTR fade = RecordingTip::FadeTimer;

class CustomToolTipFailures : public TipSceneTest {
    InvalidParameterScope m_scope;
};

}  // namespace

TEST_F(CustomToolTipFailures, RenderThatFailsAtTheShowParksButTheTimersStart) {
    tip->m_idlePeriod = 500;
    tip->whenRendered = [this] { tip->m_current = -1; };
    RelayAt(inFirst);
    Calls();

    Tick(hover);

    EXPECT_THAT(Calls(),
                ElementsAre(L"KillTimer 996", L"GetCursorPos", L"MeasureTip 0", L"RenderTip 0 0",
                            L"SetWindowPos 0,10 1x1 20", L"ValidateRect", L"GetDC", L"PaintTip",
                            L"ReleaseDC", L"SetTimer 995 55", L"KillTimer 994",
                            L"SetTimer 994 1100", L"KillTimer 997", L"SetTimer 997 500"));
    EXPECT_TRUE(tip->m_showing);
    Tick(fade);
    EXPECT_THAT(Calls(), ElementsAre(L"RenderTip -1 0", L"GetDC", L"PaintTip", L"ReleaseDC"));
}

TEST_F(CustomToolTipFailures, RenderThatFailsInTheFadeLeavesTheWindowInItsPlace) {
    RestAt(inFirst);
    const RECT before = WindowRect();
    tip->whenRendered = [this] { tip->m_current = -1; };
    Calls();

    Tick(fade, 2);

    EXPECT_THAT(Calls(), ElementsAre(L"RenderTip 0 0", L"GetDC", L"PaintTip", L"ReleaseDC",
                                     L"RenderTip -1 0.10000000000000001", L"GetDC", L"PaintTip",
                                     L"ReleaseDC"));
    const RECT after = WindowRect();
    EXPECT_TRUE(EqualRect(&before, &after));
}

TEST_F(CustomToolTipFailures, RenderThatFailsUnfadedIsParkedByTheLeaveWatch) {
    tip->m_fadeEnabled = false;
    tip->whenRendered = [this] { tip->m_current = -1; };
    RestAt(inFirst);
    EXPECT_TRUE(IsParked());

    Tick(leave, 3);

    EXPECT_EQ(State(), L"Parked");
}

TEST_F(CustomToolTipFailures, CurrentIndexPastTheEntriesEndsInTheInvalidParameterHandler) {
    RestAt(inSecond);
    tip->RemoveTip(&second);

    EXPECT_THROW(tip->IsCursorOverCurrentTip(), LeftByHandler);
    EXPECT_THROW(tip->SendMessage(WM_TIMER, leave), LeftByHandler);
    tip->m_anchorToItem = true;
    EXPECT_THROW(tip->PlaceTip(), LeftByHandler);
}

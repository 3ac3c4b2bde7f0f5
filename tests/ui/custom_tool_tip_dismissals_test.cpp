#include "ui/tip_scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// What makes a tip go: the leave watch, the idle watch, the cursor over the tip itself.

namespace {

using testing::ElementsAre;

using CustomToolTipDismissals = TipSceneTest;

constexpr UINT_PTR hover = RecordingTip::HoverTimer;
constexpr UINT_PTR leave = RecordingTip::LeaveTimer;
constexpr UINT_PTR idle = RecordingTip::IdleTimer;

}  // namespace

// Leave watch.

TEST_F(CustomToolTipDismissals, LeaveTicksGiveGraceThenDismissThenStop) {
    tip->m_idlePeriod = 500;
    RestAt(inFirst);
    platform.cursor = inNone;
    Calls();

    Tick(leave);
    EXPECT_THAT(Calls(), ElementsAre(L"GetCursorPos"));
    EXPECT_EQ(tip->m_leaveCount, 1);
    EXPECT_TRUE(tip->m_showing);

    Tick(leave);
    EXPECT_THAT(Calls(), ElementsAre(L"GetCursorPos", L"KillTimer 995", L"KillTimer 997",
                                     L"SetWindowPos 0,10 1x1 20"));
    EXPECT_EQ(tip->m_leaveCount, 2);
    EXPECT_FALSE(tip->m_showing);
    EXPECT_EQ(tip->m_current, -1);

    Tick(leave);
    EXPECT_THAT(Calls(), ElementsAre(L"KillTimer 994", L"KillTimer 995", L"KillTimer 997",
                                     L"SetWindowPos 0,10 1x1 20"));
    EXPECT_EQ(tip->m_leaveCount, 2);
}

TEST_F(CustomToolTipDismissals, ReturnToTheEntryClearsTheLeaveCount) {
    RestAt(inFirst);
    platform.cursor = inNone;
    Tick(leave);
    platform.cursor = inFirst;

    Tick(leave);

    EXPECT_EQ(tip->m_leaveCount, 0);
    EXPECT_EQ(State(), L"Fading");
}

TEST_F(CustomToolTipDismissals, FailingCursorCountsAsHavingLeft) {
    RestAt(inFirst);
    platform.cursorResult = FALSE;

    Tick(leave, 2);

    EXPECT_EQ(State(), L"Closing");
}

TEST_F(CustomToolTipDismissals, ShowOutOfClosingCountsFromNoneAgain) {
    RestAt(inFirst);
    platform.cursor = inNone;
    Tick(leave, 2);

    RestAt(inFirst);

    EXPECT_EQ(State(), L"Fading");
    EXPECT_EQ(tip->m_leaveCount, 0);
}

// Idle watch.

TEST_F(CustomToolTipDismissals, IdleTickOfACursorAtRestDismisses) {
    tip->m_idlePeriod = 500;
    RestAt(inFirst);
    tip->m_leaveCount = 1;
    Calls();

    Tick(idle);

    EXPECT_THAT(Calls(), ElementsAre(L"GetCursorPos", L"KillTimer 997", L"KillTimer 994",
                                     L"KillTimer 995", L"SetWindowPos 0,10 1x1 20"));
    EXPECT_TRUE(tip->m_idleDismissed);
    EXPECT_FALSE(tip->m_showing);
    EXPECT_EQ(tip->m_leaveCount, 0);
    EXPECT_EQ(tip->m_current, -1);
}

TEST_F(CustomToolTipDismissals, IdleTickOfAMovedCursorSamplesItsPoint) {
    tip->m_idlePeriod = 500;
    RestAt(inFirst);
    platform.cursor = {inFirst.x, inFirst.y + 1};
    Calls();

    Tick(idle);

    EXPECT_THAT(Calls(), ElementsAre(L"GetCursorPos"));
    EXPECT_TRUE(Same(tip->m_idlePoint, platform.cursor));
    EXPECT_FALSE(tip->m_idleDismissed);
}

TEST_F(CustomToolTipDismissals, IdleTickWithoutACursorDoesNothing) {
    tip->m_idlePeriod = 500;
    RestAt(inFirst);
    platform.cursorResult = FALSE;
    Calls();

    Tick(idle);

    EXPECT_THAT(Calls(), ElementsAre(L"GetCursorPos"));
    EXPECT_EQ(State(), L"Fading");
}

TEST_F(CustomToolTipDismissals, CursorThatLeftAndCameBackBetweenTwoSamplesCountsAsAtRest) {
    tip->m_idlePeriod = 500;
    RestAt(inFirst);
    platform.cursor = inNone;
    Tick(leave);
    platform.cursor = inFirst;

    Tick(idle);

    EXPECT_EQ(State(), L"Parked");
}

TEST_F(CustomToolTipDismissals, IdleDismissedTipStaysAwayFromThatPointAlone) {
    tip->m_idlePeriod = 500;
    RestAt(inFirst);
    Tick(idle);

    for (int again = 0; again < 3; ++again) {
        RelayAt(inFirst);
        Calls();
        Tick(hover);
        EXPECT_THAT(Calls(), ElementsAre(L"KillTimer 996", L"GetCursorPos"));
        EXPECT_EQ(State(), L"Parked");
        EXPECT_TRUE(tip->m_idleDismissed);
    }
    RestAt({inFirst.x + 1, inFirst.y});

    EXPECT_EQ(State(), L"Fading");
    EXPECT_FALSE(tip->m_idleDismissed);
}

// The cursor over the tip's window.

TEST_F(CustomToolTipDismissals, MoveOverTheTipOutsideOfItsEntryDismissesAtOnce) {
    tip->m_idlePeriod = 500;
    RestAt(inFirst);
    platform.cursor = inNone;
    tip->m_leaveCount = 1;
    Calls();

    tip->SendMessage(WM_MOUSEMOVE);

    EXPECT_THAT(Calls(), ElementsAre(L"GetCursorPos", L"KillTimer 994", L"KillTimer 995",
                                     L"KillTimer 997", L"SetWindowPos 0,10 1x1 20"));
    EXPECT_FALSE(tip->m_showing);
    EXPECT_EQ(tip->m_leaveCount, 0);
    EXPECT_EQ(tip->m_current, -1);
}

TEST_F(CustomToolTipDismissals, MoveOverTheTipInItsEntryChangesNothing) {
    RestAt(inFirst);
    Calls();

    tip->SendMessage(WM_MOUSEMOVE);

    EXPECT_THAT(Calls(), ElementsAre(L"GetCursorPos"));
    EXPECT_EQ(State(), L"Fading");
}

TEST_F(CustomToolTipDismissals, MoveOverTheTipWithoutACursorDismisses) {
    RestAt(inFirst);
    platform.cursorResult = FALSE;

    tip->SendMessage(WM_MOUSEMOVE);

    EXPECT_EQ(State(), L"Parked");
}

TEST_F(CustomToolTipDismissals, MoveOverTheParkedWindowAsksForNoCursorAndStopsTheLeaveTimer) {
    RestAt(inFirst);
    platform.cursor = inNone;
    Tick(leave, 2);
    Calls();

    tip->SendMessage(WM_MOUSEMOVE);

    EXPECT_THAT(Calls(), ElementsAre(L"KillTimer 994", L"KillTimer 995", L"KillTimer 997",
                                     L"SetWindowPos 0,10 1x1 20"));
    EXPECT_EQ(State(), L"Parked");
}

TEST_F(CustomToolTipDismissals, MoveOverTheTipGoesToDefaultProcessingInEitherCase) {
    RestAt(inFirst);
    Calls();
    const NotedDefault noted;

    tip->SendMessage(WM_MOUSEMOVE);
    EXPECT_EQ(Calls().back(), L"Default");
    platform.cursor = inNone;
    tip->SendMessage(WM_MOUSEMOVE);

    EXPECT_EQ(Calls().back(), L"Default");
}

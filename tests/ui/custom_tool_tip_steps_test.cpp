#include "ui/tip_scene.h"

#include "support/call_journal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// The steps of each operation and timer tick, in their order.

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using CustomToolTipSteps = TipSceneTest;

constexpr UINT_PTR hover = RecordingTip::HoverTimer;
constexpr UINT_PTR leave = RecordingTip::LeaveTimer;
constexpr UINT_PTR fade = RecordingTip::FadeTimer;
constexpr UINT_PTR idle = RecordingTip::IdleTimer;

}  // namespace

// Relay.

TEST_F(CustomToolTipSteps, FirstRelayParksAndShowsTheWindowAndStartsTheDelay) {
    RelayAt(inFirst);

    EXPECT_THAT(Calls(), ElementsAre(L"GetCursorPos", L"SetWindowPos 0,10 1x1 20", L"ShowWindow 5",
                                     L"ValidateRect", L"KillTimer 996", L"SetTimer 996 100"));
    EXPECT_FALSE(tip->m_firstRelay);
    EXPECT_TRUE(Same(tip->m_lastPoint, inFirst));
    EXPECT_TRUE(IsParked());
}

TEST_F(CustomToolTipSteps, LaterRelaysOnlyRestartTheDelay) {
    RelayAt(inFirst);
    Calls();

    RelayAt(inSecond);

    EXPECT_THAT(Calls(), ElementsAre(L"GetCursorPos", L"KillTimer 996", L"SetTimer 996 100"));
    EXPECT_TRUE(Same(tip->m_lastPoint, inSecond));
}

TEST_F(CustomToolTipSteps, RelayWithoutACursorStoresNothing) {
    // Exactly 1 counts as success.
    for (const BOOL result : {0, 2, -1}) {
        platform.cursorResult = result;
        RelayAt(inFirst);

        EXPECT_THAT(Calls(), ElementsAre(L"GetCursorPos")) << result;
        EXPECT_TRUE(Same(tip->m_lastPoint, {0, 0})) << result;
        EXPECT_EQ(State(), L"New") << result;
    }
}

TEST_F(CustomToolTipSteps, RelayNeverMovesATipThatIsUp) {
    RestAt(inFirst);
    const RECT before = WindowRect();
    Calls();

    RelayAt(inSecond);

    EXPECT_THAT(Calls(), ElementsAre(L"GetCursorPos", L"KillTimer 996", L"SetTimer 996 100"));
    const RECT after = WindowRect();
    EXPECT_TRUE(EqualRect(&before, &after));
}

// Hover and show.

TEST_F(CustomToolTipSteps, ShowMeasuresRendersPlacesPaintsAndStartsTheTimers) {
    tip->m_idlePeriod = 500;
    RelayAt(inFirst);
    Calls();

    Tick(hover);

    EXPECT_THAT(
        Calls(),
        ElementsAre(L"KillTimer 996", L"GetCursorPos", L"MeasureTip 0", L"RenderTip 0 0",
                    L"GetSystemMetrics 0", L"GetSystemMetrics 1", L"SetWindowPos 165,145 200x50 20",
                    L"ValidateRect", L"GetDC", L"PaintTip", L"ReleaseDC", L"SetTimer 995 55",
                    L"KillTimer 994", L"SetTimer 994 1100", L"KillTimer 997", L"SetTimer 997 500"));
    EXPECT_TRUE(tip->m_showing);
    EXPECT_EQ(tip->m_leaveCount, 0);
    EXPECT_EQ(tip->m_current, 0);
    EXPECT_EQ(tip->m_fadeLevel, 0.0);
    EXPECT_TRUE(Same(tip->m_idlePoint, inFirst));
    EXPECT_FALSE(GetUpdateRect(tip->m_hWnd, nullptr, FALSE));
}

TEST_F(CustomToolTipSteps, ShowWithoutFadeStartsAtFullLevelAndNeverSetsTheFadeTimer) {
    tip->m_fadeEnabled = false;
    RelayAt(inFirst);
    Calls();

    Tick(hover);

    EXPECT_THAT(Calls(), ElementsAre(L"KillTimer 996", L"GetCursorPos", L"MeasureTip 0",
                                     L"RenderTip 0 1", L"GetSystemMetrics 0", L"GetSystemMetrics 1",
                                     L"SetWindowPos 165,145 200x50 20", L"ValidateRect", L"GetDC",
                                     L"PaintTip", L"ReleaseDC", L"KillTimer 994",
                                     L"SetTimer 994 1100", L"KillTimer 997"));
    EXPECT_EQ(tip->m_fadeLevel, 1.0);
}

TEST_F(CustomToolTipSteps, IdlePeriodOfZeroKillsTheIdleTimerAndKeepsTheIdlePoint) {
    tip->m_idlePoint = {7, 8};

    RestAt(inFirst);

    EXPECT_EQ(platform.timers.count(idle), 0u);
    EXPECT_EQ(CallJournal::Count(L"KillTimer 997"), 1);
    EXPECT_TRUE(Same(tip->m_idlePoint, {7, 8}));
}

TEST_F(CustomToolTipSteps, ShowOfAnotherEntryIsOneStepWithoutParking) {
    RestAt(inFirst);
    Tick(fade, 5);
    tip->m_leaveCount = 1;
    RelayAt(inSecond);
    Calls();

    Tick(hover);

    EXPECT_THAT(Calls(), ElementsAre(L"KillTimer 996", L"GetCursorPos", L"MeasureTip 1",
                                     L"RenderTip 1 0", L"GetSystemMetrics 0", L"GetSystemMetrics 1",
                                     L"SetWindowPos 365,145 200x50 20", L"ValidateRect", L"GetDC",
                                     L"PaintTip", L"ReleaseDC", L"SetTimer 995 55",
                                     L"KillTimer 994", L"SetTimer 994 1100", L"KillTimer 997"));
    EXPECT_EQ(tip->m_fadeLevel, 0.0);
    EXPECT_EQ(tip->m_leaveCount, 0);
}

TEST_F(CustomToolTipSteps, RestOnTheShownEntryRestartsNothing) {
    RestAt(inFirst);
    Tick(fade, 3);
    const RECT before = WindowRect();
    const double level = tip->m_fadeLevel;
    RelayAt({inFirst.x + 20, inFirst.y});
    Calls();

    Tick(hover);

    EXPECT_THAT(Calls(), ElementsAre(L"KillTimer 996", L"GetCursorPos"));
    const RECT after = WindowRect();
    EXPECT_TRUE(EqualRect(&before, &after));
    EXPECT_EQ(tip->m_fadeLevel, level);
}

TEST_F(CustomToolTipSteps, RestInNoEntryLeavesTheTipToTheLeaveWatch) {
    RestAt(inFirst);
    RestAt(inNone);
    EXPECT_EQ(State(), L"Fading");

    Tick(leave, 2);

    EXPECT_EQ(State(), L"Closing");
}

TEST_F(CustomToolTipSteps, MoveOfOnePixelCancelsTheShowUntilTheNextRelay) {
    for (const POINT step : {POINT{1, 0}, POINT{0, 1}, POINT{-1, 0}, POINT{0, -1}}) {
        RelayAt(inFirst);
        platform.cursor = {inFirst.x + step.x, inFirst.y + step.y};
        Calls();

        Tick(hover);

        EXPECT_THAT(Calls(), ElementsAre(L"KillTimer 996", L"GetCursorPos"));
        EXPECT_EQ(State(), L"Parked");
    }
    RestAt(inFirst);
    EXPECT_EQ(State(), L"Fading");
}

TEST_F(CustomToolTipSteps, IdleDismissalIsForgottenAtWhateverShowIsTried) {
    struct Row {
        const char* why;
        POINT rest;
    };
    constexpr Row rows[] = {{"no entry there", inNone}, {"same entry", inFirst}};

    for (const Row& row : rows) {
        RestAt(inFirst);
        tip->m_idleDismissed = true;
        tip->m_idlePoint = {1, 1};
        RestAt(row.rest);
        EXPECT_FALSE(tip->m_idleDismissed) << row.why;
    }
}

// Fade.

TEST_F(CustomToolTipSteps, FadeRendersElevenLevelsAndStopsAtTheTwelfthTick) {
    RestAt(inFirst);
    Calls();

    for (const wchar_t* level :
         {L"0", L"0.10000000000000001", L"0.20000000000000001", L"0.30000000000000004",
          L"0.40000000000000002", L"0.5", L"0.59999999999999998", L"0.69999999999999996",
          L"0.79999999999999993", L"0.89999999999999991", L"0.99999999999999989"}) {
        Tick(fade);
        EXPECT_THAT(Calls(), ElementsAre(std::wstring(L"RenderTip 0 ") + level, L"GetDC",
                                         L"PaintTip", L"ReleaseDC"));
    }
    Tick(fade);

    EXPECT_THAT(Calls(), ElementsAre(L"KillTimer 995"));
    EXPECT_EQ(tip->m_fadeLevel, 1.0999999999999999);
}

TEST_F(CustomToolTipSteps, FadeFieldsAreInert) {
    tip->m_fadePeriod = 1;
    tip->m_fadeSteps = 2;
    tip->m_fadeStep = 0.5;
    RestAt(inFirst);

    EXPECT_EQ(platform.timers[fade], 55u);
    Tick(fade, 11);
    EXPECT_EQ(tip->m_fadeLevel, 1.0999999999999999);
}

TEST_F(CustomToolTipSteps, FadeSwitchedOffInMidFadeRendersOnceMoreAtTheNextShow) {
    RestAt(inFirst);
    Tick(fade, 3);
    tip->m_fadeEnabled = false;
    RestAt(inSecond);
    Calls();

    Tick(fade);
    EXPECT_THAT(Calls(), ElementsAre(L"RenderTip 1 1", L"GetDC", L"PaintTip", L"ReleaseDC"));

    Tick(fade);
    EXPECT_THAT(Calls(), ElementsAre(L"KillTimer 995"));
}

// Timers that mean nothing.

TEST_F(CustomToolTipSteps, OtherTimersDoNothing) {
    RestAt(inFirst);
    Calls();

    for (const WPARAM id : {0u, 1u, 993u, 998u})
        tip->SendMessage(WM_TIMER, id);

    EXPECT_THAT(Calls(), IsEmpty());
    EXPECT_EQ(State(), L"Fading");
}

#include "ui/tip_scene.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <string>

// The states of a tool tip and every way from one to another.

namespace {

class CustomToolTipStates : public TipSceneTest {
  public:
    using Step = void (CustomToolTipStates::*)();

    struct Row {
        const char* why;
        Step from;
        Step event;
        const wchar_t* expected;
    };

    /// Runs each row on a tip of its own.
    template <size_t count>
    void Check(const Row (&rows)[count], DWORD idlePeriod) {
        for (const Row& row : rows) {
            SCOPED_TRACE(row.why);
            NewTip(idlePeriod);
            (this->*row.from)();
            (this->*row.event)();
            EXPECT_EQ(State(), row.expected);
        }
    }

    void NewTip(DWORD idlePeriod) {
        tip->DestroyWindow();
        platform.timers.clear();
        platform.cursorResult = TRUE;
        tip = new RecordingTip(owner);
        platform.tip = tip->m_hWnd;
        tip->m_idlePeriod = idlePeriod;
        tip->AddTip(&first, new CountedContent(contentDeletions));
        tip->AddTip(&second, new CountedContent(contentDeletions));
    }

    // States to start from.
    void New() { EXPECT_EQ(State(), L"New"); }
    void Parked() {
        RestAt(inNone);
        EXPECT_EQ(State(), L"Parked");
    }
    void ParkedArmed() {
        Parked();
        RelayAt(inFirst);
        EXPECT_EQ(State(), L"Parked, armed");
    }
    void Fading() {
        RestAt(inFirst);
        EXPECT_EQ(State(), L"Fading");
    }
    void FadingArmed() {
        Fading();
        RelayAt(inFirst);
        EXPECT_EQ(State(), L"Fading, armed");
    }
    void Steady() {
        Fading();
        Tick(RecordingTip::FadeTimer, 12);
        EXPECT_EQ(State(), L"Steady");
    }
    void SteadyArmed() {
        Steady();
        RelayAt(inFirst);
        EXPECT_EQ(State(), L"Steady, armed");
    }
    void Closing() {
        Fading();
        CursorLeaves();
        Tick(RecordingTip::LeaveTimer, 2);
        EXPECT_EQ(State(), L"Closing");
    }
    void ClosingArmed() {
        Closing();
        RelayAt(inFirst);
        EXPECT_EQ(State(), L"Closing, armed");
    }
    void LeftForOneTick() {
        Fading();
        CursorLeaves();
        Tick(RecordingTip::LeaveTimer);
        EXPECT_EQ(tip->m_leaveCount, 1);
    }
    void SteadyLeftForOneTick() {
        Steady();
        CursorLeaves();
        Tick(RecordingTip::LeaveTimer);
    }
    void IdleDismissedArmed() {
        Fading();
        Tick(RecordingTip::IdleTimer);
        RelayAt(inFirst);
        EXPECT_EQ(State(), L"Parked, armed");
    }

    // Events.
    void Relay() { RelayAt(inFirst); }
    void RelayFails() {
        platform.cursorResult = FALSE;
        tip->RelayMouseMove();
    }
    void HoverTick() { Tick(RecordingTip::HoverTimer); }
    void HoverTickAfterMove() {
        ++platform.cursor.x;
        HoverTick();
    }
    void HoverTickFails() {
        platform.cursorResult = FALSE;
        HoverTick();
    }
    void RestInNone() { RestAt(inNone); }
    void RestInSecond() { RestAt(inSecond); }
    void RestInSecondUnfaded() {
        tip->m_fadeEnabled = false;
        RestInSecond();
    }
    void FadeTick() { Tick(RecordingTip::FadeTimer); }
    void LastFadeTick() {
        Tick(RecordingTip::FadeTimer, 11);
        EXPECT_EQ(State(), L"Fading");
        FadeTick();
    }
    void CursorLeaves() { platform.cursor = inNone; }
    void LeaveTick() { Tick(RecordingTip::LeaveTimer); }
    void LeaveTickElsewhere() {
        CursorLeaves();
        LeaveTick();
    }
    void IdleTick() { Tick(RecordingTip::IdleTimer); }
    void IdleTickElsewhere() {
        ++platform.cursor.x;
        IdleTick();
    }
    void MoveOverTip() { tip->SendMessage(WM_MOUSEMOVE); }
    void MoveOverTipElsewhere() {
        CursorLeaves();
        MoveOverTip();
    }
};

}  // namespace

TEST_F(CustomToolTipStates, FollowTheTableWithoutAnIdlePeriod) {
    using T = CustomToolTipStates;
    static const Row rows[] = {
        {"first relay", &T::New, &T::Relay, L"Parked, armed"},
        {"first relay without a cursor", &T::New, &T::RelayFails, L"New"},
        {"relay of a parked tip", &T::Parked, &T::Relay, L"Parked, armed"},
        {"relay of a closing tip", &T::Closing, &T::Relay, L"Closing, armed"},
        {"relay of a fading tip", &T::Fading, &T::Relay, L"Fading, armed"},
        {"relay of a steady tip", &T::Steady, &T::Relay, L"Steady, armed"},
        {"relay of an armed tip", &T::ParkedArmed, &T::Relay, L"Parked, armed"},
        {"parked, moved since", &T::ParkedArmed, &T::HoverTickAfterMove, L"Parked"},
        {"closing, moved since", &T::ClosingArmed, &T::HoverTickAfterMove, L"Closing"},
        {"fading, moved since", &T::FadingArmed, &T::HoverTickAfterMove, L"Fading"},
        {"steady, moved since", &T::SteadyArmed, &T::HoverTickAfterMove, L"Steady"},
        {"parked, no cursor", &T::ParkedArmed, &T::HoverTickFails, L"Parked"},
        {"closing, no cursor", &T::ClosingArmed, &T::HoverTickFails, L"Closing"},
        {"fading, no cursor", &T::FadingArmed, &T::HoverTickFails, L"Fading"},
        {"steady, no cursor", &T::SteadyArmed, &T::HoverTickFails, L"Steady"},
        {"parked, rest in no entry", &T::Parked, &T::RestInNone, L"Parked"},
        {"closing, rest in no entry", &T::Closing, &T::RestInNone, L"Closing"},
        {"fading, rest in no entry", &T::Fading, &T::RestInNone, L"Fading"},
        {"steady, rest in no entry", &T::Steady, &T::RestInNone, L"Steady"},
        {"parked, rest in an entry", &T::ParkedArmed, &T::HoverTick, L"Fading"},
        {"closing, rest in an entry", &T::ClosingArmed, &T::HoverTick, L"Fading"},
        {"fading, rest in another entry", &T::Fading, &T::RestInSecond, L"Fading"},
        {"steady, rest in another entry", &T::Steady, &T::RestInSecond, L"Fading"},
        {"parked, rest, no fade", &T::Parked, &T::RestInSecondUnfaded, L"Steady"},
        {"steady, rest elsewhere, no fade", &T::Steady, &T::RestInSecondUnfaded, L"Steady"},
        {"fading, rest in the same entry", &T::FadingArmed, &T::HoverTick, L"Fading"},
        {"steady, rest in the same entry", &T::SteadyArmed, &T::HoverTick, L"Steady"},
        {"a step of the fade", &T::Fading, &T::FadeTick, L"Fading"},
        {"the fade's last tick", &T::Fading, &T::LastFadeTick, L"Steady"},
        {"fading, over the entry", &T::Fading, &T::LeaveTick, L"Fading"},
        {"steady, over the entry", &T::Steady, &T::LeaveTick, L"Steady"},
        {"fading, left for a tick", &T::Fading, &T::LeaveTickElsewhere, L"Fading"},
        {"steady, left for a tick", &T::Steady, &T::LeaveTickElsewhere, L"Steady"},
        {"fading, left for two ticks", &T::LeftForOneTick, &T::LeaveTick, L"Closing"},
        {"steady, left for two ticks", &T::SteadyLeftForOneTick, &T::LeaveTick, L"Closing"},
        {"the third tick", &T::Closing, &T::LeaveTick, L"Parked"},
        {"the third tick, armed", &T::ClosingArmed, &T::LeaveTick, L"Parked, armed"},
        {"fading, cursor on the tip", &T::Fading, &T::MoveOverTipElsewhere, L"Parked"},
        {"steady, cursor on the tip", &T::Steady, &T::MoveOverTipElsewhere, L"Parked"},
        {"armed, cursor on the tip", &T::FadingArmed, &T::MoveOverTipElsewhere, L"Parked, armed"},
        {"parked, cursor on the tip", &T::Parked, &T::MoveOverTip, L"Parked"},
        {"parked and armed, likewise", &T::ParkedArmed, &T::MoveOverTip, L"Parked, armed"},
        {"closing, cursor on the tip", &T::Closing, &T::MoveOverTip, L"Parked"},
        {"tip over its own entry", &T::Fading, &T::MoveOverTip, L"Fading"},
    };

    Check(rows, 0);
}

TEST_F(CustomToolTipStates, FollowTheTableWithAnIdlePeriod) {
    using T = CustomToolTipStates;
    static const Row rows[] = {
        {"fading, cursor at rest", &T::Fading, &T::IdleTick, L"Parked"},
        {"steady, cursor at rest", &T::Steady, &T::IdleTick, L"Parked"},
        {"armed, cursor at rest", &T::FadingArmed, &T::IdleTick, L"Parked, armed"},
        {"fading, cursor moved", &T::Fading, &T::IdleTickElsewhere, L"Fading"},
        {"steady, cursor moved", &T::Steady, &T::IdleTickElsewhere, L"Steady"},
        {"rest where it went idle", &T::IdleDismissedArmed, &T::HoverTick, L"Parked"},
        {"rest elsewhere", &T::IdleDismissedArmed, &T::RestInSecond, L"Fading"},
        {"left for two ticks", &T::LeftForOneTick, &T::LeaveTick, L"Closing"},
        {"cursor on the tip", &T::Steady, &T::MoveOverTipElsewhere, L"Parked"},
        {"rest in another entry", &T::Steady, &T::RestInSecond, L"Fading"},
    };

    Check(rows, 500);
}

#pragma once

#include "ui/custom_tool_tip.h"

#include "support/import_hook.h"
#include "ui/tip_platform.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

/// A tool tip that draws nothing and notes what is asked of it, with its fields in the open.
class RecordingTip : public CustomToolTip {
  public:
    explicit RecordingTip(HWND owner, bool fadeEnabled = true);
    ~RecordingTip() override;

    using CustomToolTip::FadeTimer;
    using CustomToolTip::HoverTimer;
    using CustomToolTip::IdleTimer;
    using CustomToolTip::LeaveTimer;

    using CustomToolTip::IsCursorOverCurrentTip;
    using CustomToolTip::PlaceTip;

    using CustomToolTip::m_controls;
    using CustomToolTip::m_current;
    using CustomToolTip::m_fadeLevel;
    using CustomToolTip::m_fadePeriod;
    using CustomToolTip::m_fadeStep;
    using CustomToolTip::m_fadeSteps;
    using CustomToolTip::m_firstRelay;
    using CustomToolTip::m_height;
    using CustomToolTip::m_idleDismissed;
    using CustomToolTip::m_idlePoint;
    using CustomToolTip::m_lastPoint;
    using CustomToolTip::m_leaveCount;
    using CustomToolTip::m_owner;
    using CustomToolTip::m_rects;
    using CustomToolTip::m_showing;
    using CustomToolTip::m_tips;
    using CustomToolTip::m_width;

    SIZE measured = {200, 50};           ///< what MeasureTip gives
    std::function<void()> whenRendered;  ///< runs inside RenderTip
    static inline int deletions = 0;     ///< of all tips of this class

  protected:
    void MeasureTip(int index) override;
    void RenderTip(int index, double level) override;
    void PaintTip(CDC* dc) override;
};

/// Notes "Default" in the call journal where a message goes to default processing, which isn't
/// carried out while this lives.
class NotedDefault {
  public:
    NotedDefault();

  private:
    ImportHook<LRESULT (*)(CWnd*)> m_hook;
};

/// Content that counts its deletions.
class CountedContent : public TipData {
  public:
    explicit CountedContent(int& deletions) : m_deletions(deletions) {}
    ~CountedContent() override { ++m_deletions; }

  private:
    int& m_deletions;
};

bool Same(POINT left, POINT right);

/// An owner window at 100, 100 of the screen with three buttons, the first two with an entry each:
/// the screen points below lie in them. Nothing is shown but by the tip itself.
class TipSceneTest : public testing::Test {
  protected:
    explicit TipSceneTest(TipPlatform::Timers mode = TipPlatform::Timers::injected);
    ~TipSceneTest() override;

    static constexpr POINT inFirst = {150, 130};   ///< in 120, 120 to 220, 150
    static constexpr POINT inSecond = {350, 130};  ///< in 300, 120 to 400, 150
    static constexpr POINT inNone = {600, 400};

    /// Moves the cursor there and relays the move.
    void RelayAt(POINT point);
    /// As above, and the hover timer ticks.
    void RestAt(POINT point);
    /// Sends the tip the timer's message; the timer must be running.
    void Tick(UINT_PTR timer, int times = 1);
    /// The tip's window on the screen.
    RECT WindowRect() const;
    bool IsParked() const;
    /// The state that the tip is in, judged by fields, timers and window alike: "New", "Parked",
    /// "Fading", "Steady", "Closing", with ", armed" when the hover timer runs; else "?".
    std::wstring State() const;
    /// The calls noted since the last time, those about activation and painting left out.
    std::vector<std::wstring> Calls();

    TipPlatform platform;
    CWnd owner;
    CButton first, second, third;
    int contentDeletions = 0;
    RecordingTip* tip;  ///< destroyed at the end unless the test has set it to null
};

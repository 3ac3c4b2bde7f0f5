#pragma once

#include "ui/bare_tip.h"

#include <windows.h>

/// What a tip asks of its window, the timers and the cursor in a whole fade, written out in the
/// tip's order: for one entry in the owner's client area, with the cursor where it should be.
class BareFade {
  public:
    BareFade(BareTip& tip, HWND owner, const RECT& entry);

    /// A mouse move is relayed.
    void Arm();
    /// The hover timer ticks.
    void Show();
    /// The fade timer ticks.
    void Step();
    /// The leave timer ticks until it ends.
    void Leave();

  private:
    void Park();
    void Paint();
    bool IsCursorOverEntry();

    BareTip& m_tip;
    HWND m_window;
    HWND m_owner;
    RECT m_entry;
    POINT m_cursor = {0, 0};
    double m_level = 0.0;
    bool m_shownBefore = false;
};

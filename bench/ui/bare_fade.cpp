#include "ui/bare_fade.h"

namespace {

constexpr UINT_PTR leaveTimer = 994;
constexpr UINT_PTR fadeTimer = 995;
constexpr UINT_PTR hoverTimer = 996;
constexpr UINT_PTR idleTimer = 997;
constexpr UINT placement = SWP_NOZORDER | SWP_NOACTIVATE;

}  // namespace

BareFade::BareFade(BareTip& tip, HWND owner, const RECT& entry)
    : m_tip(tip), m_window(tip.Window()), m_owner(owner), m_entry(entry) {}

void BareFade::Arm() {
    GetCursorPos(&m_cursor);
    if (!m_shownBefore) {
        Park();
        ShowWindow(m_window, SW_SHOW);
        ValidateRect(m_window, nullptr);
        m_shownBefore = true;
    }
    KillTimer(m_window, hoverTimer);
    SetTimer(m_window, hoverTimer, 100, nullptr);
}

void BareFade::Show() {
    KillTimer(m_window, hoverTimer);
    if (!IsCursorOverEntry()) return;
    m_level = 0.0;
    m_tip.Measure();
    m_tip.Render(m_level);
    const int screenWidth = GetSystemMetrics(SM_CXSCREEN);
    const int screenHeight = GetSystemMetrics(SM_CYSCREEN);
    const bool fits = m_cursor.x + 15 + m_tip.Width() < screenWidth &&
                      m_cursor.y + 20 + m_tip.Height() < screenHeight;
    const int offset = fits ? 15 : -15;
    SetWindowPos(m_window, nullptr, m_cursor.x + offset, m_cursor.y + offset, m_tip.Width(),
                 m_tip.Height(), placement);
    ValidateRect(m_window, nullptr);
    Paint();
    SetTimer(m_window, fadeTimer, 55, nullptr);
    KillTimer(m_window, leaveTimer);
    SetTimer(m_window, leaveTimer, 1100, nullptr);
    KillTimer(m_window, idleTimer);
}

void BareFade::Step() {
    if (m_level > 1.0) {
        KillTimer(m_window, fadeTimer);
        return;
    }
    m_tip.Render(m_level);
    Paint();
    m_level += 0.1;
}

void BareFade::Leave() {
    // The tick of grace, the one that dismisses the tip, and the last one.
    for (int outside = 0; outside < 2; ++outside) {
        if (IsCursorOverEntry()) return;
    }
    KillTimer(m_window, fadeTimer);
    KillTimer(m_window, idleTimer);
    Park();
    KillTimer(m_window, leaveTimer);
    KillTimer(m_window, fadeTimer);
    KillTimer(m_window, idleTimer);
    Park();
}

void BareFade::Park() {
    SetWindowPos(m_window, nullptr, 0, 10, 1, 1, placement);
}

void BareFade::Paint() {
    HDC dc = GetDC(m_window);
    m_tip.Paint(dc);
    ReleaseDC(m_window, dc);
}

bool BareFade::IsCursorOverEntry() {
    GetCursorPos(&m_cursor);
    POINT topLeft = {m_entry.left, m_entry.top};
    POINT bottomRight = {m_entry.right, m_entry.bottom};
    ClientToScreen(m_owner, &topLeft);
    ClientToScreen(m_owner, &bottomRight);
    const RECT onScreen = {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
    return PtInRect(&onScreen, m_cursor) != FALSE;
}

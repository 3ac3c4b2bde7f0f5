#include "ui/custom_tool_tip.h"

#include "runtime/checked_element.h"
#include "ui/fade_level.h"
#include "ui/tip_placement.h"

namespace {

constexpr UINT hoverPeriod = 100;
constexpr UINT fadePeriod = 55;
constexpr UINT leavePeriod = 1100;
constexpr UINT placementFlags = SWP_NOZORDER | SWP_NOACTIVATE;

bool ReadCursor(POINT& point) {
    return ::GetCursorPos(&point) == 1;
}

bool SamePoint(POINT left, POINT right) {
    return left.x == right.x && left.y == right.y;
}

}  // namespace

BEGIN_MESSAGE_MAP(CustomToolTip, CWnd)
ON_WM_PAINT()
ON_WM_MOUSEMOVE()
ON_WM_TIMER()
ON_WM_ERASEBKGND()
ON_WM_MOVE()
ON_WM_ACTIVATE()
END_MESSAGE_MAP()

CustomToolTip::CustomToolTip(HWND owner, bool fadeEnabled)
    : m_owner(owner), m_fadeEnabled(fadeEnabled) {
    const LPCWSTR className = AfxRegisterWndClass(0, nullptr, nullptr, nullptr);
    CreateEx(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, className, L"", WS_POPUP | WS_BORDER, 0, 0, 1, 1,
             nullptr, nullptr, nullptr);
}

CustomToolTip::~CustomToolTip() {
    for (TipData* content : m_tips)
        delete content;
}

void CustomToolTip::PostNcDestroy() {
    CWnd::PostNcDestroy();
    delete this;
}

bool CustomToolTip::AddTip(CWnd* control, TipData* content) {
    if (control == nullptr || content == nullptr) return true;
    RemoveTip(control);
    return AppendEntry(control, RECT{}, content);
}

bool CustomToolTip::AddTip(const RECT& rect, TipData* content) {
    if (content == nullptr) return true;
    return AppendEntry(nullptr, rect, content);
}

bool CustomToolTip::AppendEntry(CWnd* control, const RECT& rect, TipData* content) {
    const size_t index = m_tips.size();
    try {
        m_tips.push_back(content);
        m_controls.push_back(control);
        m_rects.push_back(rect);
    } catch (...) {
        m_tips.resize(index);
        m_controls.resize(index);
        return false;
    }
    return true;
}

void CustomToolTip::RemoveTip(CWnd* control) {
    if (control == nullptr) return;
    for (int index = 0; index < static_cast<int>(m_controls.size()); ++index) {
        if (CheckedElement(m_controls, index) != control) continue;
        // Meant: m_current stays, though it may name another entry now, or none.
        delete CheckedElement(m_tips, index);
        m_tips.erase(m_tips.begin() + index);
        m_controls.erase(m_controls.begin() + index);
        m_rects.erase(m_rects.begin() + index);
        return;
    }
}

void CustomToolTip::RelayMouseMove() {
    POINT cursor;
    if (!ReadCursor(cursor)) return;
    m_lastPoint = cursor;
    if (m_firstRelay) {
        HideTip();
        ShowWindow(SW_SHOW);
        ::ValidateRect(m_hWnd, nullptr);
        m_firstRelay = false;
    }
    ::KillTimer(m_hWnd, HoverTimer);
    ::SetTimer(m_hWnd, HoverTimer, hoverPeriod, nullptr);
}

void CustomToolTip::MeasureTip(int) {}

void CustomToolTip::RenderTip(int, double) {}

void CustomToolTip::PaintTip(CDC*) {}

RECT CustomToolTip::EntryRectangle(int index) const {
    if (const CWnd* const control = CheckedElement(m_controls, index)) {
        RECT rect = {};
        ::GetWindowRect(control->m_hWnd, &rect);
        return rect;
    }
    const RECT& rect = CheckedElement(m_rects, index);
    POINT topLeft = {rect.left, rect.top};
    POINT bottomRight = {rect.right, rect.bottom};
    ::ClientToScreen(m_owner, &topLeft);
    ::ClientToScreen(m_owner, &bottomRight);
    return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}

/// The first entry whose rectangle holds the point, -1 for none.
int CustomToolTip::FindEntryAt(POINT point) const {
    for (int index = 0; index < static_cast<int>(m_tips.size()); ++index) {
        const RECT rect = EntryRectangle(index);
        if (::PtInRect(&rect, point)) return index;
    }
    return -1;
}

bool CustomToolTip::IsCursorOverCurrentTip() const {
    if (m_current < 0) return false;
    POINT cursor;
    if (!ReadCursor(cursor)) return false;
    const RECT rect = EntryRectangle(m_current);
    return ::PtInRect(&rect, cursor) != FALSE;
}

/// Parks the window.
void CustomToolTip::HideTip() {
    ::SetWindowPos(m_hWnd, nullptr, 0, 10, 1, 1, placementFlags);
}

void CustomToolTip::ShowTipUnderCursor() {
    m_idleDismissed = false;
    const int index = FindEntryAt(m_lastPoint);
    if (index < 0 || index == m_current) return;

    m_fadeLevel = m_fadeEnabled ? fadeFirstLevel : fadeFullLevel;
    m_current = index;
    MeasureTip(index);
    // From here on m_current may be -1 again; the steps go on all the same.
    RenderTip(m_current, m_fadeLevel);
    PlaceTip();
    ::ValidateRect(m_hWnd, nullptr);
    {
        CClientDC dc(this);
        PaintTip(&dc);
    }
    if (m_fadeEnabled) ::SetTimer(m_hWnd, FadeTimer, fadePeriod, nullptr);
    ::KillTimer(m_hWnd, LeaveTimer);
    ::SetTimer(m_hWnd, LeaveTimer, leavePeriod, nullptr);
    m_showing = true;
    m_leaveCount = 0;
    ::KillTimer(m_hWnd, IdleTimer);
    if (m_idlePeriod != 0) {
        ::SetTimer(m_hWnd, IdleTimer, m_idlePeriod, nullptr);
        m_idlePoint = m_lastPoint;
    }
}

void CustomToolTip::PlaceTip() {
    if (m_current < 0 || (m_height < 1 && m_width < 1)) {
        HideTip();
        return;
    }
    const TipSize tip = {m_width, m_height};
    const TipSize screen = {::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
    TipPoint position;
    if (m_anchorToItem) {
        const RECT item = EntryRectangle(m_current);
        position = PlaceByItem({item.left, item.top, item.right, item.bottom}, tip, screen);
    } else {
        position = PlaceByCursor({m_lastPoint.x, m_lastPoint.y}, tip, screen);
    }
    // Meant: not enlarged for the border, which cuts the picture's last two columns and rows off.
    ::SetWindowPos(m_hWnd, nullptr, position.x, position.y, m_width, m_height, placementFlags);
}

void CustomToolTip::OnTimer(UINT_PTR id) {
    switch (id) {
        case HoverTimer:
            ShowAfterHover();
            break;
        case LeaveTimer:
            CheckCursorLeft();
            break;
        case FadeTimer:
            StepFade();
            break;
        case IdleTimer:
            CheckCursorRests();
            break;
    }
}

void CustomToolTip::ShowAfterHover() {
    ::KillTimer(m_hWnd, HoverTimer);
    POINT cursor;
    if (!ReadCursor(cursor)) return;
    if (!SamePoint(cursor, m_lastPoint)) return;
    // Under a cursor that hasn't moved since the idle dismissal the tip doesn't come back.
    if (m_idleDismissed && SamePoint(cursor, m_idlePoint)) return;
    ShowTipUnderCursor();
}

/// The leave timer's tick: the first one outside of the entry is grace, the second one dismisses
/// the tip, the third one ends the timer.
void CustomToolTip::CheckCursorLeft() {
    if (IsCursorOverCurrentTip()) {
        m_leaveCount = 0;
    } else if (m_leaveCount == 0) {
        m_leaveCount = 1;
    } else if (m_leaveCount == 1) {
        m_showing = false;
        m_current = -1;
        ::KillTimer(m_hWnd, FadeTimer);
        ::KillTimer(m_hWnd, IdleTimer);
        HideTip();
        ++m_leaveCount;
    } else {
        ::KillTimer(m_hWnd, LeaveTimer);
        ::KillTimer(m_hWnd, FadeTimer);
        ::KillTimer(m_hWnd, IdleTimer);
        m_current = -1;
        HideTip();
    }
}

// Meant: the first tick draws level 0.0, which the show has drawn, and level 1.0 is never drawn.
void CustomToolTip::StepFade() {
    if (FadeIsOver(m_fadeLevel)) {
        ::KillTimer(m_hWnd, FadeTimer);
        return;
    }
    RenderTip(m_current, m_fadeLevel);  // Meant: also for -1, after a render that failed.
    CClientDC dc(this);
    PaintTip(&dc);
    m_fadeLevel = NextFadeLevel(m_fadeLevel);
}

/// The idle timer's tick: only two samples are compared, so a cursor that moved and came back
/// between them counts as one at rest.
void CustomToolTip::CheckCursorRests() {
    POINT cursor;
    if (!ReadCursor(cursor)) return;
    if (!SamePoint(cursor, m_idlePoint)) {
        m_idlePoint = cursor;
        return;
    }
    ::KillTimer(m_hWnd, IdleTimer);
    ::KillTimer(m_hWnd, LeaveTimer);
    ::KillTimer(m_hWnd, FadeTimer);
    m_current = -1;
    m_showing = false;
    m_leaveCount = 0;
    m_idleDismissed = true;
    HideTip();
}

/// The cursor moved over the tip's own window: outside of the entry the tip gives way.
void CustomToolTip::OnMouseMove(UINT, CPoint) {
    if (!IsCursorOverCurrentTip()) {
        ::KillTimer(m_hWnd, LeaveTimer);
        ::KillTimer(m_hWnd, FadeTimer);
        ::KillTimer(m_hWnd, IdleTimer);
        m_showing = false;
        m_current = -1;
        m_leaveCount = 0;
        HideTip();
    }
    Default();
}

void CustomToolTip::OnPaint() {
    CPaintDC dc(this);
    PaintTip(&dc);
}

BOOL CustomToolTip::OnEraseBkgnd(CDC*) {
    return 1;
}

void CustomToolTip::OnActivate(UINT, CWnd*, BOOL) {
    Default();
    ::SetActiveWindow(m_owner);  // Meant: also when the message tells of a loss.
}

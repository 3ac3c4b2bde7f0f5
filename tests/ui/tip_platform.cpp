#include "ui/tip_platform.h"

#include "support/call_journal.h"

#include <string>

namespace {

constexpr const char* user = "USER32.dll";
constexpr UINT realPeriod = 10;

TipPlatform* g_platform = nullptr;

std::wstring Text(LONGLONG number) {
    return std::to_wstring(number);
}

HMODULE Framework() {
    return GetModuleHandleW(L"drafthost17.dll");
}

}  // namespace

TipPlatform::TipPlatform(Timers mode)
    : m_mode(mode),
      m_getCursorPos(user, "GetCursorPos", OnGetCursorPos),
      m_getSystemMetrics(user, "GetSystemMetrics", OnGetSystemMetrics),
      m_setWindowPos(user, "SetWindowPos", OnSetWindowPos),
      m_showWindow(user, "ShowWindow", OnShowWindow),
      m_validateRect(user, "ValidateRect", OnValidateRect),
      m_setTimer(user, "SetTimer", OnSetTimer),
      m_killTimer(user, "KillTimer", OnKillTimer),
      m_setActiveWindow(user, "SetActiveWindow", OnSetActiveWindow),
      m_getDC(Framework(), user, "GetDC", OnGetDC),
      m_releaseDC(Framework(), user, "ReleaseDC", OnReleaseDC) {
    g_platform = this;
    CallJournal::Clear();
}

TipPlatform::~TipPlatform() {
    g_platform = nullptr;
}

std::wstring TipPlatform::Remark(HWND window) const {
    return window == tip ? L"" : L" of another window";
}

BOOL WINAPI TipPlatform::OnGetCursorPos(POINT* point) {
    CallJournal::Add(L"GetCursorPos");
    *point = g_platform->cursor;
    return g_platform->cursorResult;
}

int WINAPI TipPlatform::OnGetSystemMetrics(int index) {
    CallJournal::Add(L"GetSystemMetrics " + Text(index));
    if (index == SM_CXSCREEN) return g_platform->screen.cx;
    if (index == SM_CYSCREEN) return g_platform->screen.cy;
    return g_platform->m_getSystemMetrics.Original()(index);
}

BOOL WINAPI TipPlatform::OnSetWindowPos(HWND window, HWND after, int x, int y, int width,
                                        int height, UINT flags) {
    CallJournal::Add(L"SetWindowPos " + Text(x) + L"," + Text(y) + L" " + Text(width) + L"x" +
                     Text(height) + L" " + Text(flags) +
                     (after != nullptr ? L" after another" : L"") + g_platform->Remark(window));
    return g_platform->m_setWindowPos.Original()(window, after, x, y, width, height, flags);
}

BOOL WINAPI TipPlatform::OnShowWindow(HWND window, int show) {
    CallJournal::Add(L"ShowWindow " + Text(show) + g_platform->Remark(window));
    return g_platform->m_showWindow.Original()(window, show == SW_SHOW ? SW_SHOWNA : show);
}

BOOL WINAPI TipPlatform::OnValidateRect(HWND window, const RECT* rect) {
    CallJournal::Add(std::wstring(L"ValidateRect") + (rect != nullptr ? L" of a part" : L"") +
                     g_platform->Remark(window));
    return g_platform->m_validateRect.Original()(window, rect);
}

UINT_PTR WINAPI TipPlatform::OnSetTimer(HWND window, UINT_PTR id, UINT period, TIMERPROC callback) {
    CallJournal::Add(L"SetTimer " + Text(static_cast<LONGLONG>(id)) + L" " + Text(period) +
                     (callback != nullptr ? L" with a callback" : L"") +
                     g_platform->Remark(window));
    g_platform->timers[id] = period;
    if (g_platform->m_mode == Timers::injected) return id;
    return g_platform->m_setTimer.Original()(window, id, realPeriod, callback);
}

BOOL WINAPI TipPlatform::OnKillTimer(HWND window, UINT_PTR id) {
    CallJournal::Add(L"KillTimer " + Text(static_cast<LONGLONG>(id)) + g_platform->Remark(window));
    const bool wasRunning = g_platform->timers.erase(id) != 0;
    if (g_platform->m_mode == Timers::injected) return wasRunning;
    return g_platform->m_killTimer.Original()(window, id);
}

HWND WINAPI TipPlatform::OnSetActiveWindow(HWND window) {
    CallJournal::Add(L"SetActiveWindow" + g_platform->Remark(window));
    return nullptr;
}

HDC WINAPI TipPlatform::OnGetDC(HWND window) {
    CallJournal::Add(L"GetDC" + g_platform->Remark(window));
    return g_platform->m_getDC.Original()(window);
}

int WINAPI TipPlatform::OnReleaseDC(HWND window, HDC dc) {
    CallJournal::Add(L"ReleaseDC" + g_platform->Remark(window));
    return g_platform->m_releaseDC.Original()(window, dc);
}

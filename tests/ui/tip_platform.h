#pragma once

#include "support/import_hook.h"

#include <windows.h>

#include <map>
#include <string>

/// Stands between tool tips and USER for its lifetime. The cursor, the primary screen and the
/// window timers are the test's; every other call goes through, but nothing is activated: an
/// active window goes to the window manager, and where there is none the platform waits two seconds
/// for it at the window's end.
///
/// All are noted in the call journal: "SetTimer 996 100", "SetWindowPos 0,10 1x1 20" and the like,
/// with a remark for a window other than `tip`. One object at a time.
class TipPlatform {
  public:
    enum class Timers {
        injected,  ///< nothing ticks: the test sends WM_TIMER itself
        real       ///< the platform's timers, at a period of 10 ms whatever was asked for
    };

    explicit TipPlatform(Timers mode = Timers::injected);
    TipPlatform(const TipPlatform&) = delete;
    TipPlatform& operator=(const TipPlatform&) = delete;
    ~TipPlatform();

    POINT cursor = {0, 0};
    BOOL cursorResult = TRUE;
    SIZE screen = {1920, 1080};
    HWND tip = nullptr;               ///< the window whose calls are noted without a remark
    std::map<UINT_PTR, UINT> timers;  ///< the running ones and the periods asked for

  private:
    static BOOL WINAPI OnGetCursorPos(POINT* point);
    static int WINAPI OnGetSystemMetrics(int index);
    static BOOL WINAPI OnSetWindowPos(HWND window, HWND after, int x, int y, int width, int height,
                                      UINT flags);
    static BOOL WINAPI OnShowWindow(HWND window, int show);
    static BOOL WINAPI OnValidateRect(HWND window, const RECT* rect);
    static UINT_PTR WINAPI OnSetTimer(HWND window, UINT_PTR id, UINT period, TIMERPROC callback);
    static BOOL WINAPI OnKillTimer(HWND window, UINT_PTR id);
    static HWND WINAPI OnSetActiveWindow(HWND window);
    static HDC WINAPI OnGetDC(HWND window);
    static int WINAPI OnReleaseDC(HWND window, HDC dc);

    std::wstring Remark(HWND window) const;

    Timers m_mode;
    ImportHook<decltype(&::GetCursorPos)> m_getCursorPos;
    ImportHook<decltype(&::GetSystemMetrics)> m_getSystemMetrics;
    ImportHook<decltype(&::SetWindowPos)> m_setWindowPos;
    ImportHook<decltype(&::ShowWindow)> m_showWindow;
    ImportHook<decltype(&::ValidateRect)> m_validateRect;
    ImportHook<decltype(&::SetTimer)> m_setTimer;
    ImportHook<decltype(&::KillTimer)> m_killTimer;
    ImportHook<decltype(&::SetActiveWindow)> m_setActiveWindow;
    ImportHook<decltype(&::GetDC)> m_getDC;
    ImportHook<decltype(&::ReleaseDC)> m_releaseDC;
};

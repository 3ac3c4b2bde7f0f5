#pragma once

#include <afxwin.h>

/// A hidden popup window with an object of class `Window` behind it, 200 by 100 at 10, 20.
template <typename Window>
bool MakeTestWindow(Window& window, DWORD style = WS_POPUP) {
    return window.CreateEx(0, AfxRegisterWndClass(0), L"test", style, 10, 20, 200, 100, nullptr,
                           nullptr) != FALSE;
}

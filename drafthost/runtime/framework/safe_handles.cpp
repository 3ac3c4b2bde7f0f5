// The handle of an object that need not be there. The build keeps the compiler from taking these
// tests for always true.

#include "afxwin.h"

HDC CDC::GetSafeHdc() const {
    return this != nullptr ? m_hDC : nullptr;
}

HWND CWnd::GetSafeHwnd() const {
    return this != nullptr ? m_hWnd : nullptr;
}

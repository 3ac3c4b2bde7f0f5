#include "afxwin.h"

IMPLEMENT_DYNAMIC(CStatic, CWnd)

BOOL CStatic::Create(LPCTSTR text, DWORD style, const RECT& rectangle, CWnd* parent, UINT id) {
    return CreateEx(0, L"STATIC", text, style, rectangle, parent, id);
}

IMPLEMENT_DYNAMIC(CButton, CWnd)

BOOL CButton::Create(LPCTSTR caption, DWORD style, const RECT& rectangle, CWnd* parent, UINT id) {
    return CreateEx(0, L"BUTTON", caption, style, rectangle, parent, id);
}

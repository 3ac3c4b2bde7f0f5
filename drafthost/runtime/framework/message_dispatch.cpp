// From a window's message to its object's handler.

#include "afxwin.h"

#include "runtime/framework/framework_thread.h"
#include "runtime/framework/message_map.h"

#include <windowsx.h>

namespace {

// A row keeps its handler as a command's; nSig tells the type to go back to.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wcast-function-type"
template <typename Handler>
Handler As(AFX_PMSG handler) {
    return (Handler)handler;
}
#pragma GCC diagnostic pop

CPoint PointOf(LPARAM lParam) {
    return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
}

LRESULT CallHandler(CWnd* window, const AFX_MSGMAP_ENTRY& entry, WPARAM wParam, LPARAM lParam) {
    switch (entry.nSig) {
        case AfxSig_v_v:
            (window->*As<void (CWnd::*)()>(entry.pfn))();
            return 0;
        case AfxSig_v_u_p:
            (window->*As<void (CWnd::*)(UINT, CPoint)>(entry.pfn))(static_cast<UINT>(wParam),
                                                                   PointOf(lParam));
            return 0;
        case AfxSig_v_up:
            (window->*As<void (CWnd::*)(UINT_PTR)>(entry.pfn))(wParam);
            return 0;
        case AfxSig_v_i_i:
            (window->*As<void (CWnd::*)(int, int)>(entry.pfn))(GET_X_LPARAM(lParam),
                                                               GET_Y_LPARAM(lParam));
            return 0;
        case AfxSig_v_u_i_i:
            (window->*As<void (CWnd::*)(UINT, int, int)>(entry.pfn))(
                static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam));
            return 0;
        case AfxSig_v_u_W_b:
            (window->*As<void (CWnd::*)(UINT, CWnd*, BOOL)>(entry.pfn))(
                LOWORD(wParam), CWnd::FromHandle(reinterpret_cast<HWND>(lParam)), HIWORD(wParam));
            return 0;
        case AfxSig_b_D:
            return (window->*As<BOOL (CWnd::*)(CDC*)>(entry.pfn))(
                CDC::FromHandle(reinterpret_cast<HDC>(wParam)));
        case AfxSig_i_c:
            return (window->*As<int (CWnd::*)(LPCREATESTRUCT)>(entry.pfn))(
                reinterpret_cast<LPCREATESTRUCT>(lParam));
        case AfxSig_l_w_l:
            return (window->*As<LRESULT (CWnd::*)(WPARAM, LPARAM)>(entry.pfn))(wParam, lParam);
    }
    return 0;
}

}  // namespace

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (!OnWndMsg(message, wParam, lParam, &result)) {
        result = DefWindowProc(message, wParam, lParam);
    }
    return result;
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message == WM_COMMAND) return OnCommand(wParam, lParam);
    if (message == WM_NOTIFY) return OnNotify(wParam, lParam, result);
    const AFX_MSGMAP_ENTRY* entry = FindMapEntry(GetMessageMap(), message, 0, 0);
    if (entry == nullptr) return FALSE;
    *result = CallHandler(this, *entry, wParam, lParam);
    return TRUE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM /*lParam*/) {
    return OnCmdMsg(LOWORD(wParam), HIWORD(wParam), nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM /*wParam*/, LPARAM /*lParam*/, LRESULT* /*result*/) {
    return FALSE;
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (m_pfnSuper == nullptr) return ::DefWindowProcW(m_hWnd, message, wParam, lParam);
    return CallWindowProcW(m_pfnSuper, m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default() {
    const MSG current = CFrameworkThread::Current().m_message;
    return DefWindowProc(current.message, current.wParam, current.lParam);
}

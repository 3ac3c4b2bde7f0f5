#include "afxwin.h"

#include "runtime/framework/framework_thread.h"

IMPLEMENT_DYNAMIC(CWnd, CCmdTarget)

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
ON_WM_NCDESTROY()
END_MESSAGE_MAP()

CWnd::~CWnd() {
    if (m_hWnd == nullptr) return;
    CWnd::DestroyWindow();
    if (m_hWnd != nullptr) UnsubclassWindow();  // The window belongs to another thread.
}

CWnd* CWnd::FromHandle(HWND window) {
    return window != nullptr ? CFrameworkThread::Current().WindowOf(window) : nullptr;
}

CWnd* CWnd::FromHandlePermanent(HWND window) {
    return CFrameworkThread::Current().Windows().FindPermanent(window);
}

void CWnd::DeleteTempMap() {
    CFrameworkThread& thread = CFrameworkThread::Current();
    if (thread.m_scopes == 0) thread.DropTemporaryWindows(0);
}

BOOL CWnd::Attach(HWND window) {
    if (window == nullptr || m_hWnd != nullptr) return FALSE;
    CFrameworkThread::Current().Windows().Enter(window, this);
    m_hWnd = window;
    return TRUE;
}

HWND CWnd::Detach() {
    const HWND window = m_hWnd;
    if (FromHandlePermanent(window) == this) CFrameworkThread::Current().Windows().TakeOut(window);
    m_hWnd = nullptr;
    return window;
}

BOOL CWnd::SubclassWindow(HWND window) {
    if (!Attach(window)) return FALSE;
    PreSubclassWindow();
    m_pfnSuper = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(AfxWndProc)));
    return TRUE;
}

HWND CWnd::UnsubclassWindow() {
    const auto own = reinterpret_cast<LONG_PTR>(AfxWndProc);
    // Whoever subclassed the window after us calls us still and isn't to be cut off.
    if (m_pfnSuper != nullptr && GetWindowLongPtrW(m_hWnd, GWLP_WNDPROC) == own) {
        SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnSuper));
    }
    m_pfnSuper = nullptr;
    return Detach();
}

void CWnd::PreSubclassWindow() {}

BOOL CWnd::DestroyWindow() {
    if (m_hWnd == nullptr) return FALSE;
    // A temporary object isn't told of its window's end, and a permanent one may delete itself.
    const bool temporary = FromHandlePermanent(m_hWnd) != this;
    ExceptionCarrier carrier;
    const BOOL destroyed = ::DestroyWindow(m_hWnd);
    if (temporary && destroyed) m_hWnd = nullptr;
    carrier.Rethrow();
    return destroyed;
}

BOOL CWnd::PreTranslateMessage(MSG* /*message*/) {
    return FALSE;
}

BOOL CWnd::WalkPreTranslateTree(HWND stop, MSG* message) {
    for (HWND at = message->hwnd; at != nullptr; at = ::GetParent(at)) {
        CWnd* window = FromHandlePermanent(at);
        if (window != nullptr && window->PreTranslateMessage(message)) return TRUE;
        if (at == stop) break;
    }
    return FALSE;
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    ExceptionCarrier carrier;
    const LRESULT result = ::SendMessage(m_hWnd, message, wParam, lParam);
    carrier.Rethrow();
    return result;
}

void CWnd::UpdateWindow() {
    ExceptionCarrier carrier;
    ::UpdateWindow(m_hWnd);
    carrier.Rethrow();
}

void CWnd::CenterWindow() {
    RECT around = {};
    const HWND owner = ::GetWindow(m_hWnd, GW_OWNER);
    if (owner == nullptr || !::IsWindowVisible(owner) || IsIconic(owner) ||
        !::GetWindowRect(owner, &around)) {
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &around, 0);
    }
    CRect own;
    GetWindowRect(own);
    const int x = (around.left + around.right - own.Width()) / 2;
    const int y = (around.top + around.bottom - own.Height()) / 2;
    SetWindowPos(nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CWnd::OnNcDestroy() {
    Default();
    UnsubclassWindow();
    PostNcDestroy();
}

void CWnd::PostNcDestroy() {}

void CWnd::DoDataExchange(CDataExchange* /*exchange*/) {}

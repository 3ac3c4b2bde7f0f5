#include "afxwin.h"

#include "runtime/framework/framework_thread.h"

IMPLEMENT_DYNAMIC(CDC, CObject)

CDC::~CDC() {
    if (m_hDC != nullptr) ::DeleteDC(Detach());
}

CDC* CDC::FromHandle(HDC context) {
    return context != nullptr ? CFrameworkThread::Current().ContextOf(context) : nullptr;
}

void CDC::DeleteTempMap() {
    CFrameworkThread& thread = CFrameworkThread::Current();
    if (thread.m_scopes == 0) thread.DropTemporaryContexts(0);
}

BOOL CDC::Attach(HDC context) {
    if (context == nullptr || m_hDC != nullptr) return FALSE;
    CFrameworkThread::Current().Contexts().Enter(context, this);
    m_hDC = context;
    return TRUE;
}

HDC CDC::Detach() {
    const HDC context = m_hDC;
    HandleMap<CDC, HDC>& contexts = CFrameworkThread::Current().Contexts();
    if (contexts.FindPermanent(context) == this) contexts.TakeOut(context);
    m_hDC = nullptr;
    return context;
}

BOOL CDC::CreateCompatibleDC(CDC* other) {
    return Attach(::CreateCompatibleDC(other != nullptr ? other->m_hDC : nullptr));
}

BOOL CDC::DeleteDC() {
    return m_hDC != nullptr ? ::DeleteDC(Detach()) : FALSE;
}

IMPLEMENT_DYNAMIC(CPaintDC, CDC)

CPaintDC::CPaintDC(CWnd* window) : m_hWnd(window->m_hWnd) {
    Attach(BeginPaint(m_hWnd, &m_ps));
}

CPaintDC::~CPaintDC() {
    Detach();
    EndPaint(m_hWnd, &m_ps);
}

IMPLEMENT_DYNAMIC(CClientDC, CDC)

CClientDC::CClientDC(CWnd* window) : m_hWnd(window->m_hWnd) {
    Attach(::GetDC(window->m_hWnd));
}

CClientDC::~CClientDC() {
    ::ReleaseDC(m_hWnd, Detach());
}

#include "runtime/framework/framework_thread.h"

#include <utility>

namespace {

void WINAPI DeleteThreadState(void* state) {
    delete static_cast<CFrameworkThread*>(state);
}

DWORD ThreadSlot() {
    static const DWORD slot = FlsAlloc(DeleteThreadState);
    return slot;
}

}  // namespace

CFrameworkThread& CFrameworkThread::Current() {
    void* state = FlsGetValue(ThreadSlot());
    if (state == nullptr) {
        state = new CFrameworkThread;
        FlsSetValue(ThreadSlot(), state);
    }
    return *static_cast<CFrameworkThread*>(state);
}

CWnd* CFrameworkThread::WindowOf(HWND window) {
    return m_windows.Find(window, [](HWND handle) {
        CWnd* temporary = new CWnd;
        temporary->m_hWnd = handle;
        return temporary;
    });
}

CDC* CFrameworkThread::ContextOf(HDC context) {
    return m_contexts.Find(context, [](HDC handle) {
        CDC* temporary = new CDC;
        temporary->m_hDC = handle;
        return temporary;
    });
}

void CFrameworkThread::DropTemporaryWindows(size_t count) {
    m_windows.DropTemporaries(count, [](CWnd* window) { window->m_hWnd = nullptr; });
}

void CFrameworkThread::DropTemporaryContexts(size_t count) {
    m_contexts.DropTemporaries(count, [](CDC* context) { context->m_hDC = nullptr; });
}

LRESULT CFrameworkThread::Dispatch(CWnd* window, const MSG& message) {
    const MSG outer = std::exchange(m_message, message);
    const LRESULT result = DispatchGuarded(window, message);
    m_message = outer;
    return result;
}

LRESULT CFrameworkThread::DispatchGuarded(CWnd* window, const MSG& message) {
    const TemporaryScope scope(*this);
    try {
        return window->WindowProc(message.message, message.wParam, message.lParam);
    } catch (...) {
        KeepException();
        return 0;
    }
}

void CFrameworkThread::KeepException() {
    if (m_carriers == 0) std::terminate();
    if (m_exception == nullptr) m_exception = std::current_exception();
}

TemporaryScope::TemporaryScope(CFrameworkThread& thread)
    : m_thread(thread),
      m_windows(thread.Windows().TemporaryCount()),
      m_contexts(thread.Contexts().TemporaryCount()) {
    ++m_thread.m_scopes;
}

TemporaryScope::~TemporaryScope() {
    --m_thread.m_scopes;
    m_thread.DropTemporaryWindows(m_windows);
    m_thread.DropTemporaryContexts(m_contexts);
}

ExceptionCarrier::ExceptionCarrier(CFrameworkThread& thread) : m_thread(thread) {
    ++m_thread.m_carriers;
}

ExceptionCarrier::~ExceptionCarrier() {
    --m_thread.m_carriers;
    // Left by another exception: that one goes on, and nobody is left to wait for the kept one.
    if (m_thread.m_carriers == 0) m_thread.m_exception = nullptr;
}

void ExceptionCarrier::Rethrow() {
    if (m_thread.m_exception == nullptr) return;
    std::rethrow_exception(std::exchange(m_thread.m_exception, nullptr));
}

LRESULT CALLBACK AfxWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    CWnd* object = CWnd::FromHandlePermanent(window);
    if (object == nullptr) return ::DefWindowProcW(window, message, wParam, lParam);
    MSG current = {};
    current.hwnd = window;
    current.message = message;
    current.wParam = wParam;
    current.lParam = lParam;
    return CFrameworkThread::Current().Dispatch(object, current);
}

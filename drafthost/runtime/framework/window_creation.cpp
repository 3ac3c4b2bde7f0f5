#include "runtime/framework/window_creation.h"

#include "runtime/framework/framework_thread.h"

WindowCreation::WindowCreation(CWnd* object)
    : m_object(object),
      m_outer(CFrameworkThread::Current().m_creation),
      m_hook(SetWindowsHookExW(WH_CBT, OnHook, nullptr, GetCurrentThreadId())) {
    CFrameworkThread::Current().m_creation = this;
}

WindowCreation::~WindowCreation() {
    CFrameworkThread::Current().m_creation = m_outer;
    UnhookWindowsHookEx(m_hook);
}

LRESULT CALLBACK WindowCreation::OnHook(int code, WPARAM wParam, LPARAM lParam) {
    WindowCreation* current = CFrameworkThread::Current().m_creation;
    if (current == nullptr) return CallNextHookEx(nullptr, code, wParam, lParam);
    if (code == HCBT_CREATEWND && current->m_object != nullptr) {
        const HWND window = reinterpret_cast<HWND>(wParam);
        // A thread's first window brings the input method's window with it.
        if ((GetClassLongPtrW(window, GCL_STYLE) & CS_IME) == 0) current->Bind(window);
    }
    return CallNextHookEx(current->m_hook, code, wParam, lParam);
}

void WindowCreation::Bind(HWND window) {
    CWnd* object = m_object;
    m_object = nullptr;
    object->SubclassWindow(window);
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT& /*create*/) {
    return TRUE;
}

BOOL CWnd::CreateEx(DWORD extendedStyle, LPCTSTR className, LPCTSTR windowName, DWORD style, int x,
                    int y, int width, int height, HWND parent, HMENU idOrMenu, LPVOID parameter) {
    CREATESTRUCT create = {};
    create.dwExStyle = extendedStyle;
    create.lpszClass = className;
    create.lpszName = windowName;
    create.style = static_cast<LONG>(style);
    create.x = x;
    create.y = y;
    create.cx = width;
    create.cy = height;
    create.hwndParent = parent;
    create.hMenu = idOrMenu;
    create.hInstance = GetModuleHandleW(nullptr);
    create.lpCreateParams = parameter;
    if (m_hWnd != nullptr || !PreCreateWindow(create)) return FALSE;

    ExceptionCarrier carrier;
    HWND window = nullptr;
    {
        const WindowCreation creation(this);
        window = CreateWindowExW(create.dwExStyle, create.lpszClass, create.lpszName,
                                 static_cast<DWORD>(create.style), create.x, create.y, create.cx,
                                 create.cy, create.hwndParent, create.hMenu, create.hInstance,
                                 create.lpCreateParams);
    }
    if (window != nullptr && carrier.Holds()) ::DestroyWindow(window);
    carrier.Rethrow();
    return window != nullptr;
}

BOOL CWnd::CreateEx(DWORD extendedStyle, LPCTSTR className, LPCTSTR windowName, DWORD style,
                    const RECT& rectangle, CWnd* parent, UINT id, LPVOID parameter) {
    return CreateEx(extendedStyle, className, windowName, style, rectangle.left, rectangle.top,
                    rectangle.right - rectangle.left, rectangle.bottom - rectangle.top,
                    parent != nullptr ? parent->m_hWnd : nullptr,
                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), parameter);
}

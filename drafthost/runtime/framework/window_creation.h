#pragma once

#include "afxwin.h"

/// Binds `object` to the next window that the thread makes, before that window's first message.
/// Stands around one creating call.
class WindowCreation {
  public:
    explicit WindowCreation(CWnd* object);
    WindowCreation(const WindowCreation&) = delete;
    WindowCreation& operator=(const WindowCreation&) = delete;
    ~WindowCreation();

  private:
    static LRESULT CALLBACK OnHook(int code, WPARAM wParam, LPARAM lParam);
    void Bind(HWND window);

    CWnd* m_object;  ///< null once it has its window
    WindowCreation* m_outer;
    HHOOK m_hook;
};

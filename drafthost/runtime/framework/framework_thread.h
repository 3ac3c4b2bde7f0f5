#pragma once

#include "afxwin.h"
#include "runtime/framework/handle_map.h"

#include <exception>
#include <vector>

class WindowCreation;

/// What the framework keeps for each thread that has windows: the handle maps, the message being
/// handled, and an exception on its way out of a window procedure. Made at first use, deleted at
/// the thread's end.
class CFrameworkThread {
  public:
    static CFrameworkThread& Current();

    CWnd* WindowOf(HWND window);
    CDC* ContextOf(HDC context);
    HandleMap<CWnd, HWND>& Windows() { return m_windows; }
    HandleMap<CDC, HDC>& Contexts() { return m_contexts; }
    void DropTemporaryWindows(size_t count);
    void DropTemporaryContexts(size_t count);

    /// The handling of a message by its window's object, with everything that surrounds it.
    LRESULT Dispatch(CWnd* window, const MSG& message);

    /// In a catch clause at the border to USER: keeps the exception for the innermost carrier. An
    /// earlier one that still waits wins. Without a carrier the process ends.
    void KeepException();

    MSG m_message = {};                    ///< the message being handled
    int m_scopes = 0;                      ///< messages and loop rounds under way
    int m_carriers = 0;                    ///< `ExceptionCarrier`s under way
    std::exception_ptr m_exception;        ///< waits for the innermost carrier
    WindowCreation* m_creation = nullptr;  ///< the innermost
    std::vector<CWnd*> m_modalDialogs;     ///< the innermost last

  private:
    LRESULT DispatchGuarded(CWnd* window, const MSG& message);

    HandleMap<CWnd, HWND> m_windows;
    HandleMap<CDC, HDC> m_contexts;
};

/// Temporary objects made during its life end with it.
class TemporaryScope {
  public:
    explicit TemporaryScope(CFrameworkThread& thread);
    TemporaryScope(const TemporaryScope&) = delete;
    TemporaryScope& operator=(const TemporaryScope&) = delete;
    ~TemporaryScope();

  private:
    CFrameworkThread& m_thread;
    size_t m_windows;
    size_t m_contexts;
};

/// Stands around a call into USER that may come back into our window procedure: `Rethrow` behind
/// the call goes on with an exception that a handler let out meanwhile.
class ExceptionCarrier {
  public:
    explicit ExceptionCarrier(CFrameworkThread& thread = CFrameworkThread::Current());
    ExceptionCarrier(const ExceptionCarrier&) = delete;
    ExceptionCarrier& operator=(const ExceptionCarrier&) = delete;
    ~ExceptionCarrier();

    bool Holds() const { return m_thread.m_exception != nullptr; }
    void Rethrow();

  private:
    CFrameworkThread& m_thread;
};

/// The window procedure of every window with an object.
LRESULT CALLBACK AfxWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

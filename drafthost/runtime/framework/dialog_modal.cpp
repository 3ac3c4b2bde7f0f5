// The run of a modal dialog.

#include "afxwin.h"

#include "runtime/framework/dialog_watch.h"
#include "runtime/framework/framework_thread.h"

namespace {

drafthost::ModalDialogWatch* g_watch = nullptr;

/// The top-level window that a modal dialog stands before; disabled until `Enable` or the end.
class DisabledOwner {
  public:
    explicit DisabledOwner(HWND window)
        : m_window(window != nullptr ? GetAncestor(window, GA_ROOT) : nullptr),
          m_disabled(m_window != nullptr && !::EnableWindow(m_window, FALSE)) {}
    DisabledOwner(const DisabledOwner&) = delete;
    DisabledOwner& operator=(const DisabledOwner&) = delete;
    ~DisabledOwner() { Enable(); }

    HWND Window() const { return m_window; }
    void Enable() {
        if (m_disabled) ::EnableWindow(m_window, TRUE);
        m_disabled = false;
    }

  private:
    HWND m_window;
    bool m_disabled;
};

/// The dialog's place among the thread's modal dialogs, and before the watch.
class ModalPlace {
  public:
    ModalPlace(CFrameworkThread& thread, CWnd* dialog) : m_thread(thread) {
        m_thread.m_modalDialogs.push_back(dialog);
        if (g_watch != nullptr) g_watch->OnOpening();
    }
    ModalPlace(const ModalPlace&) = delete;
    ModalPlace& operator=(const ModalPlace&) = delete;
    ~ModalPlace() {
        if (g_watch != nullptr) g_watch->OnClosed();
        m_thread.m_modalDialogs.pop_back();
    }

  private:
    CFrameworkThread& m_thread;
};

HWND OwnerFor(const CWnd* parent, const CFrameworkThread& thread) {
    if (parent != nullptr) return parent->m_hWnd;
    return thread.m_modalDialogs.empty() ? nullptr : thread.m_modalDialogs.back()->m_hWnd;
}

/// The owner is enabled first: a window that goes while its owner is disabled hands the activation
/// to some other program's window.
void CloseDialog(HWND dialog, DisabledOwner& owner) {
    owner.Enable();
    if (dialog != nullptr) ::DestroyWindow(dialog);
}

void ShowActive(HWND dialog) {
    ::ShowWindow(dialog, SW_SHOWNORMAL);
    // Its first control has the focus by now and has made it active while it was hidden, which can
    // leave the caption drawn as that of an inactive window.
    if (GetActiveWindow() == dialog) ::SendMessageW(dialog, WM_NCACTIVATE, TRUE, 0);
}

void HandleQueued(CFrameworkThread& thread, HWND dialog, MSG& message) {
    const TemporaryScope scope(thread);
    try {
        if (CWnd::WalkPreTranslateTree(dialog, &message)) return;
    } catch (...) {
        thread.KeepException();
        return;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

}  // namespace

namespace drafthost {

ModalDialogWatch::~ModalDialogWatch() = default;

ModalDialogWatch* SetModalDialogWatch(ModalDialogWatch* watch) {
    ModalDialogWatch* before = g_watch;
    g_watch = watch;
    return before;
}

}  // namespace drafthost

INT_PTR CDialog::DoModal() {
    if (m_hWnd != nullptr) return -1;
    CFrameworkThread& thread = CFrameworkThread::Current();
    ExceptionCarrier carrier(thread);
    DisabledOwner owner(OwnerFor(m_parent, thread));
    {
        const ModalPlace place(thread, this);
        m_modal = true;
        m_goesOn = true;
        m_result = IDABORT;
        if (CreateFrom(m_templateName, owner.Window())) {
            RunModalLoop();
        } else {
            m_result = -1;
        }
        m_modal = false;
        CloseDialog(m_hWnd, owner);
    }
    carrier.Rethrow();
    return m_result;
}

void CDialog::EndDialog(int result) {
    if (!m_modal) {
        ShowWindow(SW_HIDE);
        return;
    }
    m_result = result;
    m_goesOn = false;
    ::PostMessageW(m_hWnd, WM_NULL, 0, 0);  // The loop may be waiting for a message.
}

void CDialog::RunModalLoop() {
    CFrameworkThread& thread = CFrameworkThread::Current();
    if (m_goesOn) ShowActive(m_hWnd);
    bool painted = false;
    while (m_goesOn && m_hWnd != nullptr && thread.m_exception == nullptr) {
        MSG message = {};
        if (!painted && !PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) {
            painted = true;
            if (g_watch != nullptr) g_watch->OnPainted(m_hWnd);
            continue;
        }
        if (GetMessageW(&message, nullptr, 0, 0) == 0) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        HandleQueued(thread, m_hWnd, message);
    }
}

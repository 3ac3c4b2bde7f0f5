#pragma once

#include "afx.h"
#include "afxmsg_.h"
#include "afxwin_dc.h"
#include "atltypes.h"

#define afx_msg

class CCmdTarget;
class CDataExchange;
class CDialog;

using AFX_PMSG = void (CCmdTarget::*)();

/// A row of a message map: what it answers to, and the handler with the way to call it.
struct AFX_MSGMAP_ENTRY {
    UINT nMessage;
    UINT nCode;    ///< WM_COMMAND: the notification code
    UINT nID;      ///< WM_COMMAND: the first id
    UINT nLastID;  ///< WM_COMMAND: the last id
    UINT_PTR nSig;
    AFX_PMSG pfn;
};

/// A class's message map; ends with a row of `AfxSig_end`. Rows are tried in their order, then
/// those of the base map.
struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)();  ///< null at the root
    const AFX_MSGMAP_ENTRY* lpEntries;
};

#define DECLARE_MESSAGE_MAP()                     \
  protected:                                      \
    static const AFX_MSGMAP* GetThisMessageMap(); \
    const AFX_MSGMAP* GetMessageMap() const override;

// A handler's own type gives way to the table's; nSig remembers it.
#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                \
    const AFX_MSGMAP* theClass::GetMessageMap() const {                                       \
        return GetThisMessageMap();                                                           \
    }                                                                                         \
    _Pragma("GCC diagnostic push") _Pragma("GCC diagnostic ignored \"-Wcast-function-type\"") \
        const AFX_MSGMAP*                                                                     \
        theClass::GetThisMessageMap() {                                                       \
        using ThisClass [[maybe_unused]] = theClass;                                          \
        using TheBaseClass = baseClass;                                                       \
        static const AFX_MSGMAP_ENTRY entries[] = {
#define END_MESSAGE_MAP()                                                      \
    { 0, 0, 0, 0, AfxSig_end, nullptr }                                        \
    }                                                                          \
    ;                                                                          \
    static const AFX_MSGMAP map = {&TheBaseClass::GetThisMessageMap, entries}; \
    return &map;                                                               \
    }                                                                          \
    _Pragma("GCC diagnostic pop")

/// Whatever can handle a command.
class DRAFTHOST_API CCmdTarget : public CObject {
    DECLARE_DYNAMIC(CCmdTarget)

    /// Calls the handler of the command, from the most derived map on; FALSE when there is none.
    /// `extra` and `handlerInfo` are the published arguments and aren't read.
    virtual BOOL OnCmdMsg(UINT id, int code, void* extra, void* handlerInfo);

  protected:
    CCmdTarget() = default;

    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;
};

/// A window's object.
///
/// Belongs to the thread that made the window or attached to it. Its end destroys a window that is
/// still there. An exception that leaves a handler can't pass through the window procedure: it is
/// kept there and leaves the framework operation that is under way instead (`CDialog::DoModal`,
/// `CDialog::Create`, `CreateEx`, `DestroyWindow`, `SendMessage`, `UpdateWindow`); with none
/// under way, or only an object's end, it ends the process as an uncaught one.
class DRAFTHOST_API CWnd : public CCmdTarget {
    DECLARE_DYNAMIC(CWnd)

    CWnd() = default;
    ~CWnd() override;

    /// The window's object: the one that is attached to it, else a temporary one that lives until
    /// the message in whose handling it was made has been handled. Null gives null.
    static CWnd* FromHandle(HWND window);
    /// The attached object, or null. Other threads' objects don't count.
    static CWnd* FromHandlePermanent(HWND window);
    /// Deletes the thread's temporary objects that were made outside of any message.
    static void DeleteTempMap();

    /// Binds the object to the window, for `FromHandle`; messages still pass it by.
    BOOL Attach(HWND window);
    HWND Detach();
    /// `Attach`, and the window's messages come to this object from here on.
    BOOL SubclassWindow(HWND window);
    /// Undoes `SubclassWindow`; gives the window.
    HWND UnsubclassWindow();
    /// Called when the object is bound and messages are about to come: does nothing here.
    virtual void PreSubclassWindow();

    /// Makes a window with this object behind it from its first message on. FALSE: there is none,
    /// and the object is as before.
    BOOL CreateEx(DWORD extendedStyle, LPCTSTR className, LPCTSTR windowName, DWORD style, int x,
                  int y, int width, int height, HWND parent, HMENU idOrMenu,
                  LPVOID parameter = nullptr);
    BOOL CreateEx(DWORD extendedStyle, LPCTSTR className, LPCTSTR windowName, DWORD style,
                  const RECT& rectangle, CWnd* parent, UINT id, LPVOID parameter = nullptr);
    /// FALSE when the object has no window. The object may have deleted itself on return.
    virtual BOOL DestroyWindow();
    /// Last look at what `CreateEx` makes; FALSE cancels it.
    virtual BOOL PreCreateWindow(CREATESTRUCT& create);

    /// Binds controls and fields: see afxdd_.h. FALSE is never given: there is no validation.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);

    /// Looks at a queued message ahead of its dispatch; TRUE when that was all.
    virtual BOOL PreTranslateMessage(MSG* message);
    /// Offers the message to the object of its window and of each parent up to `stop`.
    static BOOL WalkPreTranslateTree(HWND stop, MSG* message);

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return ::PostMessage(m_hWnd, message, wParam, lParam);
    }
    void UpdateWindow();

    /// Null also for an object that is null itself.
    HWND GetSafeHwnd() const;
    operator HWND() const { return m_hWnd; }

    DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_STYLE)); }
    DWORD GetExStyle() const {
        return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE));
    }
    /// Null when there is no such child.
    CWnd* GetDlgItem(int id) const { return FromHandle(::GetDlgItem(m_hWnd, id)); }
    int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
    void SetWindowText(LPCTSTR text) { ::SetWindowText(m_hWnd, text); }
    int GetWindowTextLength() const { return ::GetWindowTextLength(m_hWnd); }
    /// Over the owner, or in the middle of the primary screen's work area.
    void CenterWindow();
    BOOL ShowWindow(int show) { return ::ShowWindow(m_hWnd, show); }
    BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
    BOOL EnableWindow(BOOL enable = TRUE) { return ::EnableWindow(m_hWnd, enable); }
    BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }

    void GetClientRect(LPRECT rectangle) const { ::GetClientRect(m_hWnd, rectangle); }
    void GetWindowRect(LPRECT rectangle) const { ::GetWindowRect(m_hWnd, rectangle); }
    void ClientToScreen(LPPOINT point) const { ::ClientToScreen(m_hWnd, point); }
    void ScreenToClient(LPRECT rectangle) const {
        ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<LPPOINT>(rectangle), 2);
    }
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE) {
        ::MoveWindow(m_hWnd, x, y, width, height, repaint);
    }
    BOOL SetWindowPos(const CWnd* insertAfter, int x, int y, int width, int height, UINT flags) {
        return ::SetWindowPos(m_hWnd, insertAfter != nullptr ? insertAfter->m_hWnd : nullptr, x, y,
                              width, height, flags);
    }
    void Invalidate(BOOL erase = TRUE) { ::InvalidateRect(m_hWnd, nullptr, erase); }

    HWND m_hWnd = nullptr;

  protected:
    friend class CDataExchange;
    friend class CFrameworkThread;

    /// Does nothing here: a class with controls names them with `DDX_Control`.
    virtual void DoDataExchange(CDataExchange* exchange);
    /// WM_COMMAND: calls the handler of the id and code; FALSE when there is none.
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    /// WM_NOTIFY: FALSE leaves it to default processing.
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);

    /// Every message of the window: `OnWndMsg`, and what that leaves to `DefWindowProc`.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// Looks the message up in the message maps; FALSE when no handler took it.
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    /// What the window did before this object, or the platform's default.
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// Default processing of the message that is being handled, with the arguments it came with.
    LRESULT Default();
    /// The last step after the window is gone; the object may delete itself here.
    virtual void PostNcDestroy();

    // Default processing each; they stand behind a class's own handlers of the same names.
    afx_msg void OnPaint() { Default(); }
    afx_msg void OnDestroy() { Default(); }
    afx_msg void OnMouseMove(UINT, CPoint) { Default(); }
    afx_msg void OnTimer(UINT_PTR) { Default(); }
    afx_msg void OnMove(int, int) { Default(); }
    afx_msg void OnSize(UINT, int, int) { Default(); }
    afx_msg void OnActivate(UINT, CWnd*, BOOL) { Default(); }
    afx_msg BOOL OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
    afx_msg int OnCreate(LPCREATESTRUCT) { return static_cast<int>(Default()); }
    /// Default processing, unbinds the object and calls `PostNcDestroy`.
    afx_msg void OnNcDestroy();

    WNDPROC m_pfnSuper = nullptr;  ///< the window procedure that this object stands before

    DECLARE_MESSAGE_MAP()
};

/// A static control's object: text or picture without interaction. Has no message map of its own.
class DRAFTHOST_API CStatic : public CWnd {
    DECLARE_DYNAMIC(CStatic)

    BOOL Create(LPCTSTR text, DWORD style, const RECT& rectangle, CWnd* parent, UINT id = 0xFFFF);
};

/// A push button's object.
class DRAFTHOST_API CButton : public CWnd {
    DECLARE_DYNAMIC(CButton)

    BOOL Create(LPCTSTR caption, DWORD style, const RECT& rectangle, CWnd* parent, UINT id);
};

/// The name of a window class with these properties, registered at the first call for them. The
/// name stays valid. Throws `CNotSupportedException*` when the class can't be registered.
DRAFTHOST_API LPCTSTR AfxRegisterWndClass(UINT classStyle, HCURSOR cursor = nullptr,
                                          HBRUSH background = nullptr, HICON icon = nullptr);

#include "afxwin_dialog.h"

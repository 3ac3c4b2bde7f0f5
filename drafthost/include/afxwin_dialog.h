#pragma once

// Dialogs; included by afxwin.h.

#include "afxext.h"

/// One pass over a dialog's controls, handed to `DoDataExchange`.
class DRAFTHOST_API CDataExchange {
  public:
    CDataExchange(CWnd* dialog, BOOL saveAndValidate);

    /// The window of the control. Throws `CNotSupportedException*` when the dialog has none of the
    /// id.
    HWND PrepareCtrl(int id);

    BOOL m_bSaveAndValidate;  ///< TRUE: from the controls; FALSE: to them
    CWnd* m_pDlgWnd;
};

/// A dialog made from a template, which is looked for as `AfxFindResourceHandle` says.
///
/// The object isn't bound to one showing: it can be run again when its window has gone.
class DRAFTHOST_API CDialog : public CWnd {
    DECLARE_DYNAMIC(CDialog)

    CDialog() = default;
    /// A top-level dialog whose template leaves its place open comes up in the middle of its owner,
    /// or of the screen.
    ///
    /// `parent` null: the innermost modal dialog that runs on the thread, else none.
    explicit CDialog(UINT templateId, CWnd* parent = nullptr);
    explicit CDialog(LPCTSTR templateName, CWnd* parent = nullptr);

    /// Makes a modeless dialog or a page, visible only if its template says so. FALSE: there is no
    /// window. Lets through what `OnInitDialog` and the handlers throw; the window is gone then.
    BOOL Create(LPCTSTR templateName, CWnd* parent = nullptr);
    BOOL Create(UINT templateId, CWnd* parent = nullptr);

    /// Shows the dialog and handles the thread's messages until `EndDialog`; the top-level window
    /// of the parent is disabled meanwhile. Gives the value of `EndDialog`; -1 when the dialog
    /// couldn't be made; IDABORT when its window went or the thread was told to quit. Lets through
    /// what any handler throws; the dialog is closed and the parent enabled by then.
    virtual INT_PTR DoModal();
    /// The modal dialog closes as soon as the message at hand has been handled. One that ends in
    /// `OnInitDialog` is never shown. A modeless dialog is only hidden.
    void EndDialog(int result);

    /// First thing that the dialog does with its controls: here `UpdateData(FALSE)`. TRUE leaves
    /// the focus to the platform.
    virtual BOOL OnInitDialog();

    /// Keys of dialogs: Tab, Enter, Escape and access keys.
    BOOL PreTranslateMessage(MSG* message) override;

  protected:
    /// `UpdateData(TRUE)`, then `EndDialog(IDOK)`. Comes by the button and by Enter.
    virtual void OnOK();
    /// `EndDialog(IDCANCEL)`. Comes by the button, by Escape and by the close box.
    virtual void OnCancel();

    DECLARE_MESSAGE_MAP()

  private:
    BOOL CreateFrom(LPCTSTR templateName, HWND parent);
    void RunModalLoop();
    static INT_PTR CALLBACK DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    LPCTSTR m_templateName = nullptr;
    CWnd* m_parent = nullptr;
    bool m_modal = false;    ///< `DoModal` is under way
    bool m_goesOn = false;   ///< and nobody has ended it
    bool m_centers = false;  ///< the template leaves the place open
    INT_PTR m_result = 0;
};

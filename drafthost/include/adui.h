#pragma once

#include "afxcmn.h"
#include "afxwin.h"

class CAdUiTabChildDialog;
class CAdUiTabMainDialog;

/// Base of the host's dialogs.
class DRAFTHOST_API CAdUiBaseDialog : public CDialog {
    DECLARE_DYNAMIC(CAdUiBaseDialog)

    /// `resources`: where the template and whatever else the dialog loads is looked for first while
    /// it runs; null: as `AfxFindResourceHandle` says.
    explicit CAdUiBaseDialog(UINT templateId, CWnd* parent = nullptr,
                             HINSTANCE resources = nullptr);

    INT_PTR DoModal() override;
    BOOL OnInitDialog() override;

  private:
    HINSTANCE m_resources;
};

class DRAFTHOST_API CAdUiDialog : public CAdUiBaseDialog {
    DECLARE_DYNAMIC(CAdUiDialog)

    explicit CAdUiDialog(UINT templateId, CWnd* parent = nullptr, HINSTANCE resources = nullptr);
};

/// The tab control of a tab dialog: each tab has a page, a child dialog of the control that fills
/// its display area. The page of the selected tab is the one that is visible. Pages aren't owned.
class DRAFTHOST_API CAdUiTab : public CTabCtrl {
    DECLARE_DYNAMIC(CAdUiTab)

    /// Creates the page from its template and inserts the tab. The index that the tab got: `index`,
    /// or the count of tabs when that is less. -1: neither tab nor page is there.
    int AddTab(int index, LPCTSTR name, UINT templateId, CAdUiTabChildDialog* page);
    /// Destroys the page's window and takes the tab out; the neighbour behind it, or else before
    /// it, is shown if it was selected. FALSE: there is no such tab.
    BOOL RemoveTab(int index);
    /// Selects the tab and shows its page. FALSE: there is no such tab, and nothing changed.
    BOOL SetActiveTab(int index);
    /// Null when there is no such tab.
    CAdUiTabChildDialog* GetTabDialog(int index) const;

  private:
    friend class CAdUiTabMainDialog;

    void ShowSelectedPage();
};

/// A dialog whose content lies on the pages of a tab control.
class DRAFTHOST_API CAdUiTabMainDialog : public CAdUiDialog {
    DECLARE_DYNAMIC(CAdUiTabMainDialog)

    explicit CAdUiTabMainDialog(UINT templateId, CWnd* parent = nullptr,
                                HINSTANCE resources = nullptr);

    /// Tells the dialog its tab control, which isn't owned.
    void SetAcadTabPointer(CAdUiTab* tab);
    /// As `CAdUiTab::AddTab`; -1 also when the dialog has no tab control.
    int AddTab(int index, LPCTSTR name, UINT templateId, CAdUiTabChildDialog* page);

  protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

  private:
    CAdUiTab* m_tab = nullptr;
};

/// A page of a tab dialog. OK and Cancel on it are the main dialog's, and so are the keys of
/// dialogs.
class DRAFTHOST_API CAdUiTabChildDialog : public CAdUiDialog {
    DECLARE_DYNAMIC(CAdUiTabChildDialog)

    explicit CAdUiTabChildDialog(CWnd* parent = nullptr, HINSTANCE resources = nullptr);

    BOOL PreTranslateMessage(MSG* message) override;

  protected:
    void OnOK() override;
    void OnCancel() override;

  private:
    HWND MainDialog() const;
};

#pragma once

#include "afxwin.h"

#include <windows.h>
// Needs windows.h ahead of it.
#include <commctrl.h>

/// A tab control's object.
class DRAFTHOST_API CTabCtrl : public CWnd {
    DECLARE_DYNAMIC(CTabCtrl)

    /// The index that the tab got, which is below `index` when there are fewer tabs; -1: failed.
    int InsertItem(int index, LPCTSTR text, LPARAM data = 0);
    BOOL DeleteItem(int index);
    int GetItemCount() const;
    /// What `InsertItem` was given; 0 when there is no such tab.
    LPARAM GetItemData(int index) const;
    /// Index of the selected tab; -1: none.
    int GetCurSel() const;
    /// The index that was selected before. Sends no notification.
    int SetCurSel(int index);
    /// TRUE: makes the control's rectangle of a display area; FALSE: the other way round.
    void AdjustRect(BOOL larger, LPRECT rectangle) const;
};

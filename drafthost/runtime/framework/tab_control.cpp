#include "afxcmn.h"

IMPLEMENT_DYNAMIC(CTabCtrl, CWnd)

int CTabCtrl::InsertItem(int index, LPCTSTR text, LPARAM data) {
    TCITEMW item = {};
    item.mask = TCIF_TEXT | TCIF_PARAM;
    item.pszText = const_cast<LPWSTR>(text);  // Only read by this message.
    item.lParam = data;
    return static_cast<int>(::SendMessageW(m_hWnd, TCM_INSERTITEMW, static_cast<WPARAM>(index),
                                           reinterpret_cast<LPARAM>(&item)));
}

BOOL CTabCtrl::DeleteItem(int index) {
    return static_cast<BOOL>(::SendMessageW(m_hWnd, TCM_DELETEITEM, static_cast<WPARAM>(index), 0));
}

int CTabCtrl::GetItemCount() const {
    return static_cast<int>(::SendMessageW(m_hWnd, TCM_GETITEMCOUNT, 0, 0));
}

LPARAM CTabCtrl::GetItemData(int index) const {
    TCITEMW item = {};
    item.mask = TCIF_PARAM;
    if (!::SendMessageW(m_hWnd, TCM_GETITEMW, static_cast<WPARAM>(index),
                        reinterpret_cast<LPARAM>(&item))) {
        return 0;
    }
    return item.lParam;
}

int CTabCtrl::GetCurSel() const {
    return static_cast<int>(::SendMessageW(m_hWnd, TCM_GETCURSEL, 0, 0));
}

int CTabCtrl::SetCurSel(int index) {
    return static_cast<int>(::SendMessageW(m_hWnd, TCM_SETCURSEL, static_cast<WPARAM>(index), 0));
}

void CTabCtrl::AdjustRect(BOOL larger, LPRECT rectangle) const {
    ::SendMessageW(m_hWnd, TCM_ADJUSTRECT, static_cast<WPARAM>(larger),
                   reinterpret_cast<LPARAM>(rectangle));
}

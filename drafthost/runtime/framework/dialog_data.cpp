#include "afxdd_.h"

CDataExchange::CDataExchange(CWnd* dialog, BOOL saveAndValidate)
    : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(dialog) {}

HWND CDataExchange::PrepareCtrl(int id) {
    const HWND control = ::GetDlgItem(m_pDlgWnd->m_hWnd, id);
    if (control == nullptr) AfxThrowNotSupportedException();
    return control;
}

BOOL CWnd::UpdateData(BOOL saveAndValidate) {
    CDataExchange exchange(this, saveAndValidate);
    DoDataExchange(&exchange);
    return TRUE;
}

void DDX_Control(CDataExchange* exchange, int id, CWnd& control) {
    if (control.m_hWnd != nullptr) return;
    control.SubclassWindow(exchange->PrepareCtrl(id));
}

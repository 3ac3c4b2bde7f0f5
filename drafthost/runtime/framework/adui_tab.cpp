#include "adui.h"

IMPLEMENT_DYNAMIC(CAdUiTab, CTabCtrl)

namespace {

/// Lets the platform look for tab stops inside the window too.
void MakeControlParent(HWND window) {
    SetWindowLongPtrW(window, GWL_EXSTYLE,
                      GetWindowLongPtrW(window, GWL_EXSTYLE) | WS_EX_CONTROLPARENT);
}

}  // namespace

int CAdUiTab::AddTab(int index, LPCTSTR name, UINT templateId, CAdUiTabChildDialog* page) {
    if (!page->Create(templateId, this)) return -1;
    const int added = InsertItem(index, name, reinterpret_cast<LPARAM>(page));
    if (added == -1) {
        page->DestroyWindow();
        return -1;
    }
    MakeControlParent(m_hWnd);
    MakeControlParent(page->m_hWnd);
    CRect area;
    GetClientRect(area);
    AdjustRect(FALSE, area);
    page->SetWindowPos(nullptr, area.left, area.top, area.Width(), area.Height(),
                       SWP_NOZORDER | SWP_NOACTIVATE);
    ShowSelectedPage();
    return added;
}

BOOL CAdUiTab::RemoveTab(int index) {
    CAdUiTabChildDialog* page = GetTabDialog(index);
    if (page == nullptr) return FALSE;
    const bool wasSelected = GetCurSel() == index;
    page->DestroyWindow();
    DeleteItem(index);
    const int count = GetItemCount();
    if (wasSelected && count > 0) SetActiveTab(index < count ? index : count - 1);
    return TRUE;
}

BOOL CAdUiTab::SetActiveTab(int index) {
    if (index < 0 || index >= GetItemCount()) return FALSE;
    SetCurSel(index);
    ShowSelectedPage();
    return TRUE;
}

CAdUiTabChildDialog* CAdUiTab::GetTabDialog(int index) const {
    return reinterpret_cast<CAdUiTabChildDialog*>(GetItemData(index));
}

void CAdUiTab::ShowSelectedPage() {
    const int selected = GetCurSel();
    const int count = GetItemCount();
    for (int index = 0; index < count; ++index) {
        GetTabDialog(index)->ShowWindow(index == selected ? SW_SHOW : SW_HIDE);
    }
}

#include "adui.h"

namespace {

/// Sets the resource handle, unless that is null, until the end.
class ResourceOverride {
  public:
    explicit ResourceOverride(HINSTANCE resources)
        : m_active(resources != nullptr), m_before(AfxGetResourceHandle()) {
        if (m_active) AfxSetResourceHandle(resources);
    }
    ResourceOverride(const ResourceOverride&) = delete;
    ResourceOverride& operator=(const ResourceOverride&) = delete;
    ~ResourceOverride() {
        if (m_active) AfxSetResourceHandle(m_before);
    }

  private:
    bool m_active;
    HINSTANCE m_before;
};

}  // namespace

IMPLEMENT_DYNAMIC(CAdUiBaseDialog, CDialog)

CAdUiBaseDialog::CAdUiBaseDialog(UINT templateId, CWnd* parent, HINSTANCE resources)
    : CDialog(templateId, parent), m_resources(resources) {}

INT_PTR CAdUiBaseDialog::DoModal() {
    const ResourceOverride resources(m_resources);
    return CDialog::DoModal();
}

BOOL CAdUiBaseDialog::OnInitDialog() {
    return CDialog::OnInitDialog();
}

IMPLEMENT_DYNAMIC(CAdUiDialog, CAdUiBaseDialog)

CAdUiDialog::CAdUiDialog(UINT templateId, CWnd* parent, HINSTANCE resources)
    : CAdUiBaseDialog(templateId, parent, resources) {}

IMPLEMENT_DYNAMIC(CAdUiTabMainDialog, CAdUiDialog)

CAdUiTabMainDialog::CAdUiTabMainDialog(UINT templateId, CWnd* parent, HINSTANCE resources)
    : CAdUiDialog(templateId, parent, resources) {}

void CAdUiTabMainDialog::SetAcadTabPointer(CAdUiTab* tab) {
    m_tab = tab;
}

int CAdUiTabMainDialog::AddTab(int index, LPCTSTR name, UINT templateId,
                               CAdUiTabChildDialog* page) {
    return m_tab != nullptr ? m_tab->AddTab(index, name, templateId, page) : -1;
}

BOOL CAdUiTabMainDialog::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const auto* header = reinterpret_cast<const NMHDR*>(lParam);
    if (m_tab != nullptr && header->hwndFrom == m_tab->m_hWnd && header->code == TCN_SELCHANGE) {
        m_tab->ShowSelectedPage();
    }
    return CAdUiDialog::OnNotify(wParam, lParam, result);
}

IMPLEMENT_DYNAMIC(CAdUiTabChildDialog, CAdUiDialog)

CAdUiTabChildDialog::CAdUiTabChildDialog(CWnd* parent, HINSTANCE resources)
    : CAdUiDialog(0, parent, resources) {}

BOOL CAdUiTabChildDialog::PreTranslateMessage(MSG* /*message*/) {
    return FALSE;  // The main dialog is asked next and takes the keys of dialogs for its pages.
}

void CAdUiTabChildDialog::OnOK() {
    ::SendMessageW(MainDialog(), WM_COMMAND, IDOK, 0);
}

void CAdUiTabChildDialog::OnCancel() {
    ::SendMessageW(MainDialog(), WM_COMMAND, IDCANCEL, 0);
}

HWND CAdUiTabChildDialog::MainDialog() const {
    return ::GetParent(::GetParent(m_hWnd));
}

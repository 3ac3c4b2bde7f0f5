#include "ui/about_dialog.h"

#include "host/module_handles.h"
#include "install/install_record.h"
#include "resources/resource_ids.h"
#include "ui/product_text.h"

#include <afxdd_.h>

IMPLEMENT_DYNAMIC(AboutPage, CAcUiTabChildDialog)

BEGIN_MESSAGE_MAP(AboutPage, CAcUiTabChildDialog)
END_MESSAGE_MAP()

AboutPage::AboutPage() : CAcUiTabChildDialog(nullptr, nullptr) {}

AboutPage::~AboutPage() = default;

void AboutPage::DoDataExchange(CDataExchange* exchange) {
    CAcUiTabChildDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_LOGO, m_logo);
}

BOOL AboutPage::OnInitDialog() {
    CAdUiBaseDialog::OnInitDialog();  // Meant: past the tab dialogs' level.
    const std::wstring text = ProductText(InstallVersion);
    GetDlgItem(IDC_PRODUCT_TEXT)->SetWindowText(text.c_str());
    m_logo.m_image.LoadFromResource(g_moduleInstance, IDB_LOGO);
    ::InvalidateRect(m_logo.m_hWnd, nullptr, TRUE);
    ::UpdateWindow(m_logo.m_hWnd);
    return TRUE;
}

IMPLEMENT_DYNAMIC(AboutDialog, CAcUiTabMainDialog)

BEGIN_MESSAGE_MAP(AboutDialog, CAcUiTabMainDialog)
END_MESSAGE_MAP()

AboutDialog::AboutDialog(int initialTab)
    : CAcUiTabMainDialog(IDD_ABOUT, nullptr, nullptr), m_initialTab(initialTab) {}

AboutDialog::~AboutDialog() = default;

void AboutDialog::DoDataExchange(CDataExchange* exchange) {
    CAcUiTabMainDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_ABOUT_TAB, m_tab);
}

BOOL AboutDialog::OnInitDialog() {
    CAdUiBaseDialog::OnInitDialog();  // Meant: past the tab dialogs' level.
    SetAcadTabPointer(&m_tab);
    const int tabCount = AddTab(0, L"关于", IDD_ABOUT_PAGE, &m_page) + 1;
    m_tab.SetActiveTab(m_initialTab % tabCount);
    return TRUE;
}

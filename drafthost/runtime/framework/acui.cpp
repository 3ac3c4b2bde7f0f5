#include "acui.h"

void InitAcUiDLL() {
    INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_TAB_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);
}

IMPLEMENT_DYNAMIC(CAcUiTabMainDialog, CAdUiTabMainDialog)

CAcUiTabMainDialog::CAcUiTabMainDialog(UINT templateId, CWnd* parent, HINSTANCE resources)
    : CAdUiTabMainDialog(templateId, parent, resources) {}

IMPLEMENT_DYNAMIC(CAcUiTabChildDialog, CAdUiTabChildDialog)

CAcUiTabChildDialog::CAcUiTabChildDialog(CWnd* parent, HINSTANCE resources)
    : CAdUiTabChildDialog(parent, resources) {}

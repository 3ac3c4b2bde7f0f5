#include "afxwin.h"

#include "runtime/framework/dialog_template.h"
#include "runtime/framework/framework_thread.h"
#include "runtime/framework/window_creation.h"

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, OnOK)
ON_COMMAND(IDCANCEL, OnCancel)
END_MESSAGE_MAP()

CDialog::CDialog(UINT templateId, CWnd* parent) : CDialog(MAKEINTRESOURCEW(templateId), parent) {}

CDialog::CDialog(LPCTSTR templateName, CWnd* parent)
    : m_templateName(templateName), m_parent(parent) {}

BOOL CDialog::Create(UINT templateId, CWnd* parent) {
    return Create(MAKEINTRESOURCEW(templateId), parent);
}

BOOL CDialog::Create(LPCTSTR templateName, CWnd* parent) {
    ExceptionCarrier carrier;
    const BOOL created = CreateFrom(templateName, parent != nullptr ? parent->m_hWnd : nullptr);
    carrier.Rethrow();
    return created;
}

BOOL CDialog::CreateFrom(LPCTSTR templateName, HWND parent) {
    if (m_hWnd != nullptr) return FALSE;
    const HINSTANCE module = AfxFindResourceHandle(templateName, RT_DIALOG);
    const HRSRC resource = FindResourceW(module, templateName, RT_DIALOG);
    if (resource == nullptr) return FALSE;
    const auto* dialogTemplate =
        static_cast<LPCDLGTEMPLATEW>(LockResource(LoadResource(module, resource)));
    m_centers = IsPlaceOpen(ReadDialogTemplateHead(dialogTemplate));
    {
        const WindowCreation creation(this);
        CreateDialogIndirectParamW(module, dialogTemplate, parent, DialogProc, 0);
    }
    if (m_hWnd != nullptr && CFrameworkThread::Current().m_exception != nullptr) {
        ::DestroyWindow(m_hWnd);
    }
    return m_hWnd != nullptr;
}

INT_PTR CALLBACK CDialog::DialogProc(HWND window, UINT message, WPARAM /*wParam*/,
                                     LPARAM /*lParam*/) {
    if (message != WM_INITDIALOG) return FALSE;
    auto* dialog = static_cast<CDialog*>(FromHandlePermanent(window));
    try {
        if (dialog->m_centers) dialog->CenterWindow();
        return dialog->OnInitDialog();
    } catch (...) {
        CFrameworkThread::Current().KeepException();
        return FALSE;
    }
}

BOOL CDialog::OnInitDialog() {
    UpdateData(FALSE);
    return TRUE;
}

BOOL CDialog::PreTranslateMessage(MSG* message) {
    if (CWnd::PreTranslateMessage(message)) return TRUE;
    if (message->message < WM_KEYFIRST || message->message > WM_KEYLAST) return FALSE;
    return ::IsDialogMessageW(m_hWnd, message);
}

void CDialog::OnOK() {
    UpdateData(TRUE);
    EndDialog(IDOK);
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

// A module whose commands show dialogs and tell what these gave.

#include "framework/framework_test_ids.h"
#include "modules/fixture_exports.h"

#include <aced.h>
#include <adui.h>

namespace {

constexpr int endedByItself = 77;

class Form : public CAdUiBaseDialog {
  public:
    Form() : CAdUiBaseDialog(IDD_FORM, nullptr, GetModuleHandleW(L"dialogs.arx")) {}
};

/// Never done with painting: leaves its window invalid. Ends by itself when nobody has ended it
/// long before.
class UnpaintedForm : public Form {
  protected:
    afx_msg void OnPaint() {
        if (GetTickCount64() - m_start > 10000) EndDialog(endedByItself);
        Sleep(10);
    }

    DECLARE_MESSAGE_MAP()

  private:
    const ULONGLONG m_start = GetTickCount64();
};

BEGIN_MESSAGE_MAP(UnpaintedForm, Form)
ON_WM_PAINT()
END_MESSAGE_MAP()

template <typename Dialog>
void Show() {
    acutPrintf(L"\nthe dialog gives %d", static_cast<int>(Dialog().DoModal()));
}

AcEdCommandStack* Commands() {
    return static_cast<AcEdCommandStack*>(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"));
}

void Start(void* packet) {
    auto* linker = static_cast<AcRxDynamicLinker*>(acrxSysRegistry()->at(L"DynamicLinker"));
    linker->unlockApplication(packet);
    linker->registerAppMDIAware(packet);
    Commands()->addCommand(L"DLG", L"Form", L"Form", ACRX_CMD_MODAL, Show<Form>);
    Commands()->addCommand(L"DLG", L"Unpainted", L"Unpainted", ACRX_CMD_MODAL, Show<UnpaintedForm>);
}

}  // namespace

AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) {
    if (message == AcRx::kInitAppMsg) Start(packet);
    if (message == AcRx::kUnloadAppMsg) Commands()->removeGroup(L"DLG");
    return AcRx::kRetOK;
}

#pragma once

#include "adui.h"

/// Readies the host's interface library; may be called any number of times.
DRAFTHOST_API void InitAcUiDLL();

/// The main dialog as the host's modules derive it.
class DRAFTHOST_API CAcUiTabMainDialog : public CAdUiTabMainDialog {
    DECLARE_DYNAMIC(CAcUiTabMainDialog)

    explicit CAcUiTabMainDialog(UINT templateId, CWnd* parent = nullptr,
                                HINSTANCE resources = nullptr);
};

/// The page as the host's modules derive it.
class DRAFTHOST_API CAcUiTabChildDialog : public CAdUiTabChildDialog {
    DECLARE_DYNAMIC(CAcUiTabChildDialog)

    explicit CAcUiTabChildDialog(CWnd* parent = nullptr, HINSTANCE resources = nullptr);
};

#pragma once

#include "ui/image_static.h"

#include <acui.h>
#include <afxwin.h>

/// The About dialog's one page: logo, product, version, maker and rights, the legal paragraph.
///
/// Its template and controls are looked for as the framework does, the logo in the module itself. A
/// logo that can't be loaded leaves its control without a picture.
class AboutPage : public CAcUiTabChildDialog {
    DECLARE_DYNAMIC(AboutPage)

    AboutPage();
    ~AboutPage() override;

    BOOL OnInitDialog() override;

  protected:
    void DoDataExchange(CDataExchange* exchange) override;

    DECLARE_MESSAGE_MAP()

  private:
    CImageStatic m_logo;
};

/// The module's About dialog, for one showing: make it on the stack, call `DoModal`, let it go.
///
/// Both templates come from whatever module the resource handle names, so the caller has to push
/// the module's handle on the document manager first and pop it when the dialog is gone. What
/// `DoModal` gives tells OK and the close box apart and is of no use. On the host's main thread
/// only.
class AboutDialog : public CAcUiTabMainDialog {
    DECLARE_DYNAMIC(AboutDialog)

    /// `initialTab`: index of the tab to show first; one beyond the last tab counts on from the
    /// first. Of a negative one the remainder is negative too unless there is one tab alone, and
    /// the tab control refuses it. Shows nothing yet.
    explicit AboutDialog(int initialTab);
    ~AboutDialog() override;

    BOOL OnInitDialog() override;

  protected:
    void DoDataExchange(CDataExchange* exchange) override;

    DECLARE_MESSAGE_MAP()

  private:
    int m_initialTab;
    CAdUiTab m_tab;
    AboutPage m_page;
};

// The About dialog through real windows, with its resources in the built module file.

#include "ui/about_dialog.h"

#include "drafthost/framework/dialog_driver.h"
#include "host/module_handles.h"
#include "install/install_record.h"
#include "support/canvas.h"
#include "ui/about_fixture.h"
#include "ui/dialog_template.h"
#include "ui/module_file.h"
#include "ui/product_text.h"

#include <commctrl.h>

#include <gtest/gtest.h>

namespace {

using AboutDialogShown = AboutFixture;

TEST_F(AboutDialogShown, HasTheTextsOfItsControls) {
    InstallVersion = L"2.1.0";
    const DialogTemplate frame = ReadDialogTemplate(ModuleFile(), 104, 2052);
    const DialogTemplate page = ReadDialogTemplate(ModuleFile(), 130, 2052);

    Show(0, [&](HWND dialog) {
        EXPECT_EQ(TextOf(dialog), frame.caption);
        EXPECT_EQ(TextOf(GetDlgItem(dialog, IDOK)), L"确定");
        EXPECT_EQ(TextOf(Descendant(dialog, 124)), ProductText(L"2.1.0"));
        EXPECT_EQ(TextOf(Descendant(dialog, -1)), page.items[0].text);
        EXPECT_EQ(TextOf(Descendant(dialog, 125)), L"logo") << "behind the picture";
    });
}

TEST_F(AboutDialogShown, HasOneTabNamedAbout) {
    Show(0, [](HWND dialog) {
        const HWND tab = GetDlgItem(dialog, 105);
        EXPECT_EQ(SendMessageW(tab, TCM_GETITEMCOUNT, 0, 0), 1);
        wchar_t name[16] = {};
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = name;
        item.cchTextMax = 16;
        EXPECT_TRUE(SendMessageW(tab, TCM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)));
        EXPECT_STREQ(name, L"关于");
    });
}

TEST_F(AboutDialogShown, EveryInitialTabShowsTheOneThereIs) {
    for (const int initialTab : {0, 1, 7, -1, -8, 2147483647, -2147483647 - 1}) {
        SCOPED_TRACE(initialTab);

        const int shown = Show(initialTab, [](HWND dialog) {
            EXPECT_EQ(SendMessageW(GetDlgItem(dialog, 105), TCM_GETCURSEL, 0, 0), 0);
            EXPECT_TRUE(IsWindowVisible(Descendant(dialog, 124)));
        });

        EXPECT_EQ(shown, 1);
    }
}

struct VersionRow {
    const char* why;
    const wchar_t* version;
};
constexpr VersionRow versions[] = {
    {"none read", L""},
    {"Chinese", L"二〇二六年版"},
    {"percent signs", L"100%s%d%n"},
};

TEST_F(AboutDialogShown, TakesAnyVersion) {
    for (const VersionRow& row : versions) {
        SCOPED_TRACE(row.why);
        InstallVersion = row.version;

        Show(0, [&](HWND dialog) {
            EXPECT_EQ(TextOf(Descendant(dialog, 124)), ProductText(row.version));
        });

        EXPECT_EQ(InstallVersion, row.version) << "only read";
    }
}

TEST_F(AboutDialogShown, ShowsTheLogoStretchedOverItsControl) {
    Show(0, [](HWND dialog) {
        const HWND logo = Descendant(dialog, 125);
        RECT client = {};
        GetClientRect(logo, &client);
        CImage picture;
        picture.LoadFromResource(ModuleFile(), 133);
        const Canvas expected(client.right, client.bottom, RGB(255, 0, 255));
        SetStretchBltMode(expected.Handle(), HALFTONE);
        picture.Draw(expected.Handle(), 0, 0, client.right, client.bottom, 0, 0, 237, 226);

        HDC logoDC = GetDC(logo);
        int different = 0;
        for (int y = 0; y < client.bottom; ++y) {
            for (int x = 0; x < client.right; ++x)
                different += GetPixel(logoDC, x, y) != expected.Pixel(x, y);
        }
        ReleaseDC(logo, logoDC);
        EXPECT_EQ(different, 0);
    });
}

TEST_F(AboutDialogShown, ALogoThatIsMissingLeavesTheRestAsEver) {
    g_moduleInstance = GetModuleHandleW(nullptr);  // The test program has no such bitmap.

    const int shown = Show(0, [](HWND dialog) {
        EXPECT_EQ(TextOf(Descendant(dialog, 124)), ProductText(InstallVersion));
        const HWND logo = Descendant(dialog, 125);
        RECT client = {};
        GetClientRect(logo, &client);
        HDC logoDC = GetDC(logo);
        EXPECT_EQ(GetPixel(logoDC, client.right - 1, client.bottom - 1), GetSysColor(COLOR_3DFACE))
            << "the default paint";
        ReleaseDC(logo, logoDC);
    });

    EXPECT_EQ(shown, 1);
}

struct EndRow {
    const char* why;
    DialogDriver::Action action;
};

TEST_F(AboutDialogShown, EndsByButtonCloseBoxAndKey) {
    const EndRow rows[] = {{"OK", ClickOk},
                           {"close box", ClickCloseBox},
                           {"Escape", PressKey(VK_ESCAPE)},
                           {"Enter", PressKey(VK_RETURN)}};
    for (const EndRow& row : rows) {
        SCOPED_TRACE(row.why);
        DialogDriver driver({row.action});
        AboutDialog dialog(0);

        dialog.DoModal();

        EXPECT_EQ(driver.m_painted, 1);
        EXPECT_EQ(driver.m_closed, 1);
        EXPECT_EQ(dialog.m_hWnd, nullptr);
    }
}

TEST_F(AboutDialogShown, FocusStartsOnTheDefaultButton) {
    Show(0, [](HWND dialog) {
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDOK));
        EXPECT_EQ(SendMessageW(dialog, DM_GETDEFID, 0, 0), MAKELRESULT(IDOK, DC_HASDEFID));
    });
}

TEST_F(AboutDialogShown, ThePageLeavesTheFocusToTheFramework) {
    Show(0, [](HWND dialog) {
        const HWND window = ::GetParent(Descendant(dialog, 125));
        auto* page = dynamic_cast<AboutPage*>(CWnd::FromHandlePermanent(window));
        ASSERT_NE(page, nullptr);
        EXPECT_EQ(page->OnInitDialog(), 1);
    });
}

TEST_F(AboutDialogShown, NothingShowsBeforeItRuns) {
    const AboutDialog dialog(0);

    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_STREQ(dialog.GetRuntimeClass()->m_lpszClassName, "AboutDialog");
    EXPECT_EQ(dialog.GetRuntimeClass()->m_pfnGetBaseClass(), RUNTIME_CLASS(CAcUiTabMainDialog));
    EXPECT_EQ(RUNTIME_CLASS(AboutPage)->m_pfnGetBaseClass(), RUNTIME_CLASS(CAcUiTabChildDialog));
}

TEST_F(AboutDialogShown, IsNotFoundInTheHost) {
    AfxSetResourceHandle(nullptr);
    DialogDriver driver({});
    AboutDialog dialog(0);

    EXPECT_EQ(dialog.DoModal(), -1);

    EXPECT_EQ(driver.m_painted, 0);
}

}  // namespace

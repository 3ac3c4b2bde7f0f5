#include "dialog_driver.h"
#include "framework_test_ids.h"

#include <acui.h>
#include <afxdd_.h>

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

namespace {

class Page : public CAcUiTabChildDialog {
  public:
    bool m_throws = false;
    bool m_initialised = false;

    BOOL OnInitDialog() override {
        if (m_throws) throw std::runtime_error("from the page");
        m_initialised = true;
        return CAdUiBaseDialog::OnInitDialog();
    }
};

/// Its test fills the tab control at the initialisation and looks at the painted dialog.
class TabDialog : public CAcUiTabMainDialog {
  public:
    TabDialog() : CAcUiTabMainDialog(IDD_TAB_MAIN) {}

    std::function<void(TabDialog&)> m_atInit;
    CAdUiTab m_tabs;
    Page m_first;
    Page m_second;

    BOOL OnInitDialog() override {
        CAdUiBaseDialog::OnInitDialog();
        SetAcadTabPointer(&m_tabs);
        m_atInit(*this);
        return TRUE;
    }

  protected:
    void DoDataExchange(CDataExchange* exchange) override {
        CAcUiTabMainDialog::DoDataExchange(exchange);
        DDX_Control(exchange, IDC_TABS, m_tabs);
    }
};

void AddBothPages(TabDialog& dialog) {
    EXPECT_EQ(dialog.AddTab(0, L"one", IDD_PAGE, &dialog.m_first), 0);
    EXPECT_EQ(dialog.AddTab(1, L"two", IDD_PAGE, &dialog.m_second), 1);
}

/// Clicks the tab as a person does, with the messages that a click is made of.
void ClickTab(CAdUiTab& tabs, int index) {
    RECT place = {};
    SendMessageW(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&place));
    const LPARAM point = MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    SendMessageW(tabs, WM_LBUTTONDOWN, MK_LBUTTON, point);
    SendMessageW(tabs, WM_LBUTTONUP, 0, point);
}

}  // namespace

TEST(TabDialog, ClassesHaveTheirPublishedBases) {
    struct Row {
        const CRuntimeClass* record;
        const char* name;
        const CRuntimeClass* base;
    };
    const Row rows[] = {
        {RUNTIME_CLASS(CAcUiTabMainDialog), "CAcUiTabMainDialog",
         RUNTIME_CLASS(CAdUiTabMainDialog)},
        {RUNTIME_CLASS(CAdUiTabMainDialog), "CAdUiTabMainDialog", RUNTIME_CLASS(CAdUiDialog)},
        {RUNTIME_CLASS(CAcUiTabChildDialog), "CAcUiTabChildDialog",
         RUNTIME_CLASS(CAdUiTabChildDialog)},
        {RUNTIME_CLASS(CAdUiTabChildDialog), "CAdUiTabChildDialog", RUNTIME_CLASS(CAdUiDialog)},
        {RUNTIME_CLASS(CAdUiDialog), "CAdUiDialog", RUNTIME_CLASS(CAdUiBaseDialog)},
        {RUNTIME_CLASS(CAdUiBaseDialog), "CAdUiBaseDialog", RUNTIME_CLASS(CDialog)},
        {RUNTIME_CLASS(CDialog), "CDialog", RUNTIME_CLASS(CWnd)},
        {RUNTIME_CLASS(CAdUiTab), "CAdUiTab", RUNTIME_CLASS(CTabCtrl)},
        {RUNTIME_CLASS(CTabCtrl), "CTabCtrl", RUNTIME_CLASS(CWnd)},
    };
    for (const Row& row : rows) {
        EXPECT_STREQ(row.record->m_lpszClassName, row.name);
        EXPECT_EQ(row.record->m_pfnGetBaseClass(), row.base) << row.name;
    }
}

TEST(TabDialog, AddTabGivesTheIndexThatTheTabGot) {
    DialogDriver driver({ClickOk});
    TabDialog dialog;
    dialog.m_atInit = [](TabDialog& self) {
        EXPECT_EQ(self.AddTab(0, L"关于", IDD_PAGE, &self.m_first), 0);
        EXPECT_EQ(self.AddTab(9, L"behind", IDD_PAGE, &self.m_second), 1);
        Page early;
        EXPECT_EQ(self.AddTab(0, L"before", IDD_PAGE, &early), 0);
        EXPECT_EQ(self.m_tabs.GetTabDialog(0), &early);
        EXPECT_EQ(self.m_tabs.GetTabDialog(1), &self.m_first);
        EXPECT_TRUE(self.m_tabs.RemoveTab(0));
    };

    EXPECT_EQ(dialog.DoModal(), IDOK);

    EXPECT_TRUE(dialog.m_first.m_initialised);
}

TEST(TabDialog, AddTabFailsWithoutALeftover) {
    DialogDriver driver({ClickOk});
    TabDialog dialog;
    dialog.m_atInit = [](TabDialog& self) {
        EXPECT_EQ(self.AddTab(0, L"no template", 4711, &self.m_first), -1);
        EXPECT_EQ(self.m_tabs.GetItemCount(), 0);
        EXPECT_EQ(self.m_first.m_hWnd, nullptr);
        self.SetAcadTabPointer(nullptr);
        EXPECT_EQ(self.AddTab(0, L"no control", IDD_PAGE, &self.m_first), -1);
    };

    EXPECT_EQ(dialog.DoModal(), IDOK);
}

TEST(TabDialog, PageOfTheSelectedTabIsTheVisibleOne) {
    TabDialog dialog;
    dialog.m_atInit = AddBothPages;
    DialogDriver driver({[&](HWND window) {
        EXPECT_TRUE(dialog.m_first.IsWindowVisible());
        EXPECT_FALSE(dialog.m_second.IsWindowVisible());
        EXPECT_TRUE(dialog.m_tabs.SetActiveTab(1));
        EXPECT_EQ(dialog.m_tabs.GetCurSel(), 1);
        EXPECT_FALSE(dialog.m_first.IsWindowVisible());
        EXPECT_TRUE(dialog.m_second.IsWindowVisible());
        ClickOk(window);
    }});

    dialog.DoModal();
}

TEST(TabDialog, SetActiveTabRefusesWhatIsNotThere) {
    TabDialog dialog;
    dialog.m_atInit = AddBothPages;
    DialogDriver driver({[&](HWND window) {
        EXPECT_FALSE(dialog.m_tabs.SetActiveTab(2));
        EXPECT_FALSE(dialog.m_tabs.SetActiveTab(-1));
        EXPECT_EQ(dialog.m_tabs.GetCurSel(), 0);
        EXPECT_TRUE(dialog.m_first.IsWindowVisible());
        ClickOk(window);
    }});

    dialog.DoModal();
}

TEST(TabDialog, ClickOnATabShowsItsPage) {
    TabDialog dialog;
    dialog.m_atInit = AddBothPages;
    DialogDriver driver({[&](HWND window) {
        ClickTab(dialog.m_tabs, 1);
        EXPECT_TRUE(dialog.m_second.IsWindowVisible());
        EXPECT_FALSE(dialog.m_first.IsWindowVisible());
        ClickTab(dialog.m_tabs, 0);
        EXPECT_TRUE(dialog.m_first.IsWindowVisible());
        ClickOk(window);
    }});

    dialog.DoModal();
}

TEST(TabDialog, PageFillsTheDisplayAreaOfTheTabControl) {
    TabDialog dialog;
    dialog.m_atInit = AddBothPages;
    DialogDriver driver({[&](HWND window) {
        CRect area;
        dialog.m_tabs.GetClientRect(area);
        dialog.m_tabs.AdjustRect(FALSE, area);
        CRect page;
        dialog.m_first.GetWindowRect(page);
        dialog.m_tabs.ScreenToClient(page);
        EXPECT_TRUE(EqualRect(page, area));
        EXPECT_EQ(GetParent(dialog.m_first), dialog.m_tabs.m_hWnd);
        ClickOk(window);
    }});

    dialog.DoModal();
}

TEST(TabDialog, RemovedTabLeavesItsPlaceToTheNextOne) {
    TabDialog dialog;
    dialog.m_atInit = AddBothPages;
    DialogDriver driver({[&](HWND window) {
        EXPECT_TRUE(dialog.m_tabs.RemoveTab(0));
        EXPECT_EQ(dialog.m_first.m_hWnd, nullptr);
        EXPECT_EQ(dialog.m_tabs.GetItemCount(), 1);
        EXPECT_TRUE(dialog.m_second.IsWindowVisible());
        EXPECT_FALSE(dialog.m_tabs.RemoveTab(1));
        EXPECT_FALSE(dialog.m_tabs.RemoveTab(-1));
        ClickOk(window);
    }});

    dialog.DoModal();
}

TEST(TabDialog, ButtonsAndKeysOfAPageAreTheMainDialogs) {
    struct Row {
        const char* why;
        std::function<void(Page&)> act;
        INT_PTR result;
    };
    const auto pressInField = [](WPARAM key) {
        return [key](Page& page) {
            const HWND field = GetDlgItem(page, IDC_PAGE_FIELD);
            SetFocus(field);
            PostMessageW(field, WM_KEYDOWN, key, 1);
        };
    };
    const Row rows[] = {
        {"OK button", [](Page& page) { ClickOk(page); }, IDOK},
        {"Cancel button", [](Page& page) { ClickCancel(page); }, IDCANCEL},
        {"Escape", pressInField(VK_ESCAPE), IDCANCEL},
        {"Enter", pressInField(VK_RETURN), IDOK},
    };
    for (const Row& row : rows) {
        TabDialog dialog;
        dialog.m_atInit = AddBothPages;
        DialogDriver driver({[&](HWND) { row.act(dialog.m_first); }});

        EXPECT_EQ(dialog.DoModal(), row.result) << row.why;
    }
}

TEST(TabDialog, TabKeyReachesTheControlsOfThePage) {
    TabDialog dialog;
    dialog.m_atInit = AddBothPages;
    DialogDriver driver({[&](HWND window) {
        const HWND next = GetNextDlgTabItem(window, GetDlgItem(window, IDOK), FALSE);
        EXPECT_EQ(next, GetDlgItem(dialog.m_first, IDC_PAGE_FIELD));
        ClickOk(window);
    }});

    dialog.DoModal();
}

TEST(TabDialog, TabKeyLeavesThePageAgain) {
    TabDialog dialog;
    dialog.m_atInit = AddBothPages;
    DialogDriver driver({[&](HWND window) {
        MSG message = {};
        message.hwnd = GetDlgItem(dialog.m_first, IDCANCEL);
        message.message = WM_KEYDOWN;
        message.wParam = VK_TAB;
        SetFocus(message.hwnd);
        EXPECT_TRUE(CWnd::WalkPreTranslateTree(window, &message));
        EXPECT_EQ(GetFocus(), GetDlgItem(window, IDOK));
        ClickOk(window);
    }});

    dialog.DoModal();
}

TEST(TabDialog, ExceptionOfAPagesInitialisationLeavesDoModal) {
    TabDialog dialog;
    dialog.m_first.m_throws = true;
    dialog.m_atInit = AddBothPages;

    EXPECT_THROW(dialog.DoModal(), std::runtime_error);

    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(dialog.m_first.m_hWnd, nullptr);
    EXPECT_EQ(dialog.m_tabs.m_hWnd, nullptr);
}

TEST(TabDialog, MayBeRunAgain) {
    TabDialog dialog;
    dialog.m_atInit = AddBothPages;
    DialogDriver driver({ClickOk, ClickCloseBox});

    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

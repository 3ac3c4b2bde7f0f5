#include "dialog_driver.h"
#include "framework_test_ids.h"
#include "test_window.h"

#include "support/child_scenario.h"

#include <afxdd_.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

/// Lets a test look into the initialisation and the exchange.
class Form : public CDialog {
  public:
    explicit Form(CWnd* parent = nullptr, UINT templateId = IDD_FORM)
        : CDialog(templateId, parent) {}

    std::function<void(Form&)> m_atInit;
    std::string m_log;
    CWnd m_field;

    BOOL OnInitDialog() override {
        m_log += "init;";
        const BOOL result = CDialog::OnInitDialog();
        if (m_atInit) m_atInit(*this);
        return result;
    }

  protected:
    void DoDataExchange(CDataExchange* exchange) override {
        CDialog::DoDataExchange(exchange);
        m_log += exchange->m_bSaveAndValidate ? "save;" : "show;";
        if (::GetDlgItem(m_hWnd, IDC_FIELD) != nullptr) DDX_Control(exchange, IDC_FIELD, m_field);
    }
};

class WithMissingControl : public CDialog {
  public:
    WithMissingControl() : CDialog(IDD_FORM) {}

  protected:
    void DoDataExchange(CDataExchange* exchange) override {
        DDX_Control(exchange, 4711, m_control);
    }

  private:
    CWnd m_control;
};

CHILD_SCENARIO(CaptionOfAFirstDialog) {
    int found = 0;
    DialogDriver driver({[&](HWND dialog) {
        const HDC context = GetWindowDC(dialog);
        for (int y = 0; y < 20; ++y)
            if (GetPixel(context, 60, y) == GetSysColor(COLOR_ACTIVECAPTION)) found = 1;
        ReleaseDC(dialog, context);
        ClickOk(dialog);
    }});
    Form().DoModal();
    return found;
}

}  // namespace

TEST(Dialog, EndsByEachOfItsWays) {
    struct Row {
        const char* way;
        DialogDriver::Action action;
        INT_PTR result;
    };
    const Row rows[] = {
        {"OK button", ClickOk, IDOK},
        {"Cancel button", ClickCancel, IDCANCEL},
        {"close box", ClickCloseBox, IDCANCEL},
        {"Escape", PressKey(VK_ESCAPE), IDCANCEL},
        {"Enter is the default button", PressKey(VK_RETURN), IDOK},
    };
    for (const Row& row : rows) {
        DialogDriver driver({row.action});
        Form form;

        EXPECT_EQ(form.DoModal(), row.result) << row.way;

        EXPECT_EQ(form.m_hWnd, nullptr) << row.way;
        EXPECT_EQ(driver.m_painted, 1) << row.way;
        EXPECT_EQ(driver.m_closed, 1) << row.way;
    }
}

TEST(Dialog, InitialisesThenExchangesAndOkExchangesBack) {
    DialogDriver driver({ClickOk, ClickCancel});
    Form accepted;
    Form cancelled;

    accepted.DoModal();
    cancelled.DoModal();

    EXPECT_EQ(accepted.m_log, "init;show;save;");
    EXPECT_EQ(cancelled.m_log, "init;show;");
}

TEST(Dialog, RunsAgainWithTheSameObject) {
    DialogDriver driver({ClickOk, ClickCancel});
    Form form;

    EXPECT_EQ(form.DoModal(), IDOK);
    EXPECT_EQ(form.DoModal(), IDCANCEL);

    EXPECT_EQ(driver.m_opened, 2);
}

TEST(Dialog, IsShownAlthoughItsTemplateIsNotVisible) {
    bool visibleAtInit = true;
    bool visible = false;
    DialogDriver driver({[&](HWND dialog) {
        visible = IsWindowVisible(dialog);
        ClickOk(dialog);
    }});
    Form form;
    form.m_atInit = [&](Form& self) { visibleAtInit = self.IsWindowVisible(); };

    form.DoModal();

    EXPECT_FALSE(visibleAtInit);
    EXPECT_TRUE(visible);
}

TEST(Dialog, HasTheCaptionOfTheActiveWindow) {
    // In a process of its own, where it is the first window.
    EXPECT_EQ(RunScenario(L"CaptionOfAFirstDialog").exitCode, 1u);
}

TEST(Dialog, EndedInItsInitialisationIsNeverShown) {
    struct Brief : Form {
        bool m_shown = false;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_SHOWWINDOW && wParam) m_shown = true;
            return Form::WindowProc(message, wParam, lParam);
        }
    } form;
    DialogDriver driver({});
    form.m_atInit = [](Form& self) { self.EndDialog(42); };

    EXPECT_EQ(form.DoModal(), 42);

    EXPECT_FALSE(form.m_shown);
    EXPECT_EQ(driver.m_opened, 1);
    EXPECT_EQ(driver.m_painted, 0);
    EXPECT_EQ(driver.m_closed, 1);
}

TEST(Dialog, UnknownTemplateGivesMinusOne) {
    Form form(nullptr, 4711);

    EXPECT_EQ(form.DoModal(), -1);
    EXPECT_FALSE(form.Create(4711));
}

TEST(Dialog, RefusesASecondRunWhileItRuns) {
    INT_PTR second = 0;
    DialogDriver driver({[](HWND dialog) { ClickOk(dialog); }});
    Form form;
    form.m_atInit = [&](Form& self) { second = self.DoModal(); };

    EXPECT_EQ(form.DoModal(), IDOK);

    EXPECT_EQ(second, -1);
}

TEST(Dialog, DisablesTheTopLevelWindowOfItsParentMeanwhile) {
    CWnd frame;
    CWnd child;
    ASSERT_TRUE(MakeTestWindow(frame, WS_POPUP | WS_VISIBLE));
    ASSERT_TRUE(child.CreateEx(0, L"STATIC", L"", WS_CHILD, CRect(0, 0, 9, 9), &frame, 1));
    bool enabledMeanwhile = true;
    DialogDriver driver({[&](HWND dialog) {
        enabledMeanwhile = frame.IsWindowEnabled();
        EXPECT_EQ(GetWindow(dialog, GW_OWNER), frame.m_hWnd);
        ClickOk(dialog);
    }});
    Form form(&child);

    form.DoModal();

    EXPECT_FALSE(enabledMeanwhile);
    EXPECT_TRUE(frame.IsWindowEnabled());
    child.DestroyWindow();
}

TEST(Dialog, LeavesAParentDisabledThatWasDisabledBefore) {
    CWnd frame;
    ASSERT_TRUE(MakeTestWindow(frame, WS_POPUP | WS_VISIBLE));
    frame.EnableWindow(FALSE);
    DialogDriver driver({ClickOk});
    Form form(&frame);

    form.DoModal();

    EXPECT_FALSE(frame.IsWindowEnabled());
}

TEST(Dialog, NestedOneStandsBeforeTheOneThatOpensIt) {
    Form inner;
    INT_PTR innerResult = 0;
    HWND outerWindow = nullptr;
    DialogDriver driver({
        [&](HWND dialog) {
            outerWindow = dialog;
            innerResult = inner.DoModal();
            EXPECT_TRUE(IsWindowEnabled(dialog));
            EXPECT_EQ(GetActiveWindow(), dialog);
            ClickOk(dialog);
        },
        [&](HWND dialog) {
            EXPECT_EQ(GetWindow(dialog, GW_OWNER), outerWindow);
            EXPECT_FALSE(IsWindowEnabled(outerWindow));
            ClickCancel(dialog);
        },
    });
    Form outer;

    EXPECT_EQ(outer.DoModal(), IDOK);

    EXPECT_EQ(innerResult, IDCANCEL);
    EXPECT_EQ(driver.m_closed, 2);
}

TEST(Dialog, AbortsWhenItsWindowGoes) {
    DialogDriver driver({[](HWND dialog) { DestroyWindow(dialog); }});
    Form form;

    EXPECT_EQ(form.DoModal(), IDABORT);
}

TEST(Dialog, AbortsWhenTheThreadIsToldToQuitAndPassesThatOn) {
    DialogDriver driver({[](HWND) { PostQuitMessage(5); }});
    Form form;

    EXPECT_EQ(form.DoModal(), IDABORT);

    MSG message = {};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 5u);
}

TEST(Dialog, OffersQueuedMessagesToPreTranslation) {
    struct Translating : Form {
        int m_seen = 0;
        BOOL PreTranslateMessage(MSG* message) override {
            if (message->message == WM_MOUSEMOVE) ++m_seen;
            return Form::PreTranslateMessage(message);
        }
    } form;
    DialogDriver driver({[](HWND dialog) {
        PostMessageW(GetDlgItem(dialog, IDC_FIELD), WM_MOUSEMOVE, 0, 0);
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    }});

    form.DoModal();

    EXPECT_GE(form.m_seen, 1);
}

TEST(Dialog, ModelessOneIsHiddenUntilShownAndHiddenAgainByOk) {
    Form form;
    ASSERT_TRUE(form.Create(IDD_FORM));
    EXPECT_FALSE(form.IsWindowVisible());
    form.ShowWindow(SW_SHOW);

    form.SendMessage(WM_COMMAND, IDOK);

    EXPECT_FALSE(form.IsWindowVisible());
    EXPECT_NE(form.m_hWnd, nullptr);
}

TEST(DialogPlace, OpenPlaceIsTheMiddleOfTheOwner) {
    CWnd frame;
    ASSERT_TRUE(frame.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP | WS_VISIBLE, 100, 50, 800,
                               600, nullptr, nullptr));
    CRect place;
    DialogDriver driver({[&](HWND dialog) {
        GetWindowRect(dialog, place);
        ClickOk(dialog);
    }});
    Form form(&frame);

    form.DoModal();

    EXPECT_NEAR((place.left + place.right) / 2, 500, 1);
    EXPECT_NEAR((place.top + place.bottom) / 2, 350, 1);
}

TEST(DialogPlace, TemplatesOwnPlaceIsKept) {
    for (const UINT templateId : {IDD_PLACED_FORM, IDD_PLAIN_FORM}) {
        Form form(nullptr, templateId);
        ASSERT_TRUE(form.Create(templateId));
        CRect units = templateId == IDD_PLACED_FORM ? CRect(30, 20, 0, 0) : CRect(40, 50, 0, 0);
        MapDialogRect(form, units);
        CPoint clientOrigin;
        form.ClientToScreen(&clientOrigin);

        EXPECT_EQ(clientOrigin, units.TopLeft()) << templateId;
    }
}

TEST(DialogControl, IsBoundBySubclassingBeforeTheInitialisationGoesOn) {
    DialogDriver driver({ClickOk});
    Form form;
    form.m_atInit = [](Form& self) {
        const HWND control = ::GetDlgItem(self.m_hWnd, IDC_FIELD);
        EXPECT_EQ(self.m_field.m_hWnd, control);
        EXPECT_EQ(self.GetDlgItem(IDC_FIELD), &self.m_field);
        self.m_field.SetWindowText(L"abc");
        EXPECT_EQ(self.m_field.GetWindowTextLength(), 3) << "it is still the edit control";
    };

    form.DoModal();

    EXPECT_EQ(form.m_field.m_hWnd, nullptr) << "its window went with the dialog";
}

TEST(DialogControl, MissingOneLeavesDoModalAsAnException) {
    WithMissingControl dialog;

    try {
        dialog.DoModal();
        FAIL() << "nothing was thrown";
    } catch (CNotSupportedException* exception) {
        exception->Delete();
    }
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(DialogControl, StaticControlShowsALoneCarriageReturnAsALineBreak) {
    Form form;
    ASSERT_TRUE(form.Create(IDD_FORM));
    form.ShowWindow(SW_SHOW);
    CWnd* note = form.GetDlgItem(IDC_NOTE);
    const auto lastInkedRow = [&](LPCWSTR text) {
        note->SetWindowText(text);
        note->UpdateWindow();
        CClientDC context(note);
        CRect client;
        note->GetClientRect(client);
        int last = -1;
        for (int y = 0; y < client.Height(); ++y) {
            for (int x = 0; x < client.Width(); ++x) {
                if (context.GetPixel(x, y) == GetSysColor(COLOR_WINDOWTEXT)) last = y;
            }
        }
        return last;
    };

    const int oneLine = lastInkedRow(L"HH");
    const int returned = lastInkedRow(L"HH\rHH");

    EXPECT_GT(oneLine, 0);
    EXPECT_GT(returned, oneLine + 5);
    EXPECT_EQ(returned, lastInkedRow(L"HH\r\nHH"));
    CWnd::DeleteTempMap();
}

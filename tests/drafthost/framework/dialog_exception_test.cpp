#include "dialog_driver.h"
#include "framework_test_ids.h"
#include "test_window.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

/// Throws at one place.
enum class Place { None, Init, Exchange, Message, PreTranslation, Paint, Destruction };

class ThrowingDialog : public CDialog {
  public:
    explicit ThrowingDialog(Place place, CWnd* parent = nullptr)
        : CDialog(IDD_FORM, parent), m_place(place) {}

    BOOL OnInitDialog() override {
        ThrowAt(Place::Init);
        return CDialog::OnInitDialog();
    }
    BOOL PreTranslateMessage(MSG* message) override {
        if (message->message == WM_APP) ThrowAt(Place::PreTranslation);
        return CDialog::PreTranslateMessage(message);
    }

  protected:
    void DoDataExchange(CDataExchange* exchange) override {
        ThrowAt(Place::Exchange);
        CDialog::DoDataExchange(exchange);
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_APP) ThrowAt(Place::Message);
        if (message == WM_PAINT) ThrowAt(Place::Paint);
        if (message == WM_DESTROY) ThrowAt(Place::Destruction);
        return CDialog::WindowProc(message, wParam, lParam);
    }

  private:
    void ThrowAt(Place place) const {
        if (m_place == place) throw std::runtime_error("from the dialog");
    }

    const Place m_place;
};

void PostOwnMessage(HWND dialog) {
    PostMessageW(dialog, WM_APP, 0, 0);
}

void PostOwnMessageThenOk(HWND dialog) {
    PostOwnMessage(dialog);
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
}

}  // namespace

TEST(DialogException, LeavesDoModalFromWhereverItWasThrown) {
    struct Row {
        const char* why;
        Place place;
        DialogDriver::Action action;
    };
    // But for the last, nothing besides the exception ends the dialog.
    const Row rows[] = {
        {"OnInitDialog, inside the creating call", Place::Init, PostOwnMessage},
        {"DoDataExchange below it", Place::Exchange, PostOwnMessage},
        {"a message handler, inside the dispatching call", Place::Message, PostOwnMessage},
        {"pre-translation, in the loop itself", Place::PreTranslation, PostOwnMessage},
        {"painting", Place::Paint, PostOwnMessage},
        {"the window's end", Place::Destruction, ClickOk},
    };
    for (const Row& row : rows) {
        CWnd frame;
        ASSERT_TRUE(MakeTestWindow(frame, WS_POPUP | WS_VISIBLE));
        DialogDriver driver({row.action});
        ThrowingDialog dialog(row.place, &frame);

        EXPECT_THROW(dialog.DoModal(), std::runtime_error) << row.why;

        EXPECT_EQ(dialog.m_hWnd, nullptr) << row.why;
        EXPECT_TRUE(frame.IsWindowEnabled()) << row.why;
        EXPECT_EQ(driver.m_closed, 1) << row.why;
    }
}

TEST(DialogException, LeavesCreateWithoutAWindow) {
    ThrowingDialog dialog(Place::Init);

    EXPECT_THROW(dialog.Create(IDD_FORM), std::runtime_error);

    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(DialogException, OfANestedDialogPassesThroughTheOuterOnesHandler) {
    struct Outer : CDialog {
        Outer() : CDialog(IDD_FORM) {}
        bool m_unwound = false;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message != WM_APP) return CDialog::WindowProc(message, wParam, lParam);
            try {
                return ThrowingDialog(Place::Message).DoModal();
            } catch (...) {
                m_unwound = true;
                throw;
            }
        }
    } outer;
    DialogDriver driver({PostOwnMessageThenOk, PostOwnMessageThenOk});

    EXPECT_THROW(outer.DoModal(), std::runtime_error);

    EXPECT_TRUE(outer.m_unwound);
    EXPECT_EQ(driver.m_closed, 2);
}

TEST(DialogException, CaughtByTheOuterDialogLeavesThatOneRunning) {
    struct Outer : CDialog {
        Outer() : CDialog(IDD_FORM) {}
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message != WM_APP) return CDialog::WindowProc(message, wParam, lParam);
            EXPECT_THROW(ThrowingDialog(Place::Init).DoModal(), std::runtime_error);
            return 0;
        }
    } outer;
    DialogDriver driver({PostOwnMessageThenOk});

    EXPECT_EQ(outer.DoModal(), IDOK);
}

TEST(DialogException, FirstOneWinsOverThoseOfTheClosing) {
    struct ThrowsTwice : CDialog {
        ThrowsTwice() : CDialog(IDD_FORM) {}
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_APP) throw std::runtime_error("first");
            if (message == WM_DESTROY) throw std::runtime_error("second");
            return CDialog::WindowProc(message, wParam, lParam);
        }
    } dialog;
    DialogDriver driver({PostOwnMessage});

    try {
        dialog.DoModal();
        FAIL() << "nothing was thrown";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "first");
    }
}

TEST(DialogException, NextDialogStartsClean) {
    DialogDriver driver({PostOwnMessageThenOk, PostOwnMessageThenOk});

    EXPECT_THROW(ThrowingDialog(Place::Message).DoModal(), std::runtime_error);

    EXPECT_EQ(ThrowingDialog(Place::None).DoModal(), IDOK);
}

#include "app/dialog_attendant.h"

#include "framework_test_ids.h"
#include "support/child_scenario.h"
#include "support/temp_folder.h"

#include <afxwin.h>

#include <initializer_list>
// GDI+ needs what the lean windows.h leaves out.
#include <objidl.h>
// Needs the two ahead of it.
#include <gdiplus.h>

#include <gtest/gtest.h>

#include <filesystem>

using drafthost::DialogAnswer;
using drafthost::DialogAttendant;
using drafthost::ExitCode;

namespace {

DialogAttendant::Settings NobodyThere() {
    DialogAttendant::Settings settings;
    settings.isPersonThere = [] { return false; };
    settings.deadline = std::chrono::seconds(20);
    return settings;
}

/// Has a red field in its middle that covers it but for a margin of 10 pixels.
class RedDialog : public CDialog {
  public:
    RedDialog() : CDialog(IDD_FORM) {}

  protected:
    afx_msg void OnPaint() {
        CPaintDC context(this);
        CRect client;
        GetClientRect(client);
        const RECT field = {10, 10, client.right - 10, client.bottom - 10};
        const HBRUSH red = CreateSolidBrush(RGB(255, 0, 0));
        ::FillRect(context, &field, red);
        ::DeleteObject(red);
    }
    BOOL OnInitDialog() override {
        for (const int id : {IDC_FIELD, IDC_NOTE, IDOK, IDCANCEL})
            ::DestroyWindow(::GetDlgItem(m_hWnd, id));
        return CDialog::OnInitDialog();
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(RedDialog, CDialog)
ON_WM_PAINT()
END_MESSAGE_MAP()

/// Never done with painting: leaves its window invalid.
class UnpaintedDialog : public CDialog {
  public:
    UnpaintedDialog() : CDialog(IDD_FORM) {}

  protected:
    afx_msg void OnPaint() {}

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(UnpaintedDialog, CDialog)
ON_WM_PAINT()
END_MESSAGE_MAP()

/// Hangs before it is ever shown.
class HangingDialog : public CDialog {
  public:
    HangingDialog() : CDialog(IDD_FORM) {}

    BOOL OnInitDialog() override {
        Sleep(INFINITE);
        return TRUE;
    }
};

class StubbornDialog : public CDialog {
  public:
    StubbornDialog() : CDialog(IDD_FORM) {}

  protected:
    void OnOK() override {}
};

template <typename Dialog>
int RunWithDeadline(std::chrono::milliseconds deadline) {
    DialogAttendant::Settings settings = NobodyThere();
    settings.deadline = deadline;
    const DialogAttendant attendant(settings);
    Dialog().DoModal();
    return 0;
}

CHILD_SCENARIO(DialogThatNeverPaints) {
    return RunWithDeadline<UnpaintedDialog>(std::chrono::milliseconds(300));
}
CHILD_SCENARIO(DialogThatHangsAhead) {
    return RunWithDeadline<HangingDialog>(std::chrono::milliseconds(300));
}
CHILD_SCENARIO(DialogThatRefusesItsAnswer) {
    // It has to paint within this, also on a busy machine.
    return RunWithDeadline<StubbornDialog>(std::chrono::seconds(3));
}

/// Width, height and the colour in the middle of the PNG file.
struct Picture {
    UINT width = 0;
    UINT height = 0;
    Gdiplus::ARGB middle = 0;
};

Picture ReadPicture(const std::wstring& path) {
    using namespace Gdiplus::DllExports;
    ULONG_PTR token = 0;
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&token, &input, nullptr);
    Gdiplus::GpBitmap* image = nullptr;
    Picture picture;
    if (GdipCreateBitmapFromFile(path.c_str(), &image) == Gdiplus::Ok) {
        GdipGetImageWidth(image, &picture.width);
        GdipGetImageHeight(image, &picture.height);
        GdipBitmapGetPixel(image, static_cast<INT>(picture.width / 2),
                           static_cast<INT>(picture.height / 2), &picture.middle);
        GdipDisposeImage(image);
    }
    Gdiplus::GdiplusShutdown(token);
    return picture;
}

}  // namespace

TEST(DialogAttendant, AnswersAsTold) {
    DialogAttendant::Settings settings = NobodyThere();
    settings.answer = DialogAnswer::Close;
    {
        const DialogAttendant attendant(settings);
        EXPECT_EQ(CDialog(IDD_FORM).DoModal(), IDCANCEL);
    }
    settings.answer = DialogAnswer::Ok;
    const DialogAttendant attendant(settings);
    EXPECT_EQ(CDialog(IDD_FORM).DoModal(), IDOK);
}

TEST(DialogAttendant, AnswersOkByItselfWhereNobodyIsThere) {
    const DialogAttendant attendant(NobodyThere());

    EXPECT_EQ(CDialog(IDD_FORM).DoModal(), IDOK);
}

TEST(DialogAttendant, LeavesTheAnswerToThePersonPastTheDeadlineToo) {
    struct LateDialog : CDialog {
        LateDialog() : CDialog(IDD_FORM) {}
        BOOL OnInitDialog() override {
            // The person takes twice as long as the deadline allows a dialog.
            ::SetTimer(m_hWnd, 1, 600, nullptr);
            return CDialog::OnInitDialog();
        }
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_TIMER) EndDialog(77);
            return CDialog::WindowProc(message, wParam, lParam);
        }
    } dialog;
    DialogAttendant::Settings settings = NobodyThere();
    settings.isPersonThere = [] { return true; };
    settings.deadline = std::chrono::milliseconds(300);
    const DialogAttendant attendant(settings);

    EXPECT_EQ(dialog.DoModal(), 77);
}

TEST(DialogAttendant, AnswersTheOuterDialogBehindANestedOne) {
    struct Outer : CDialog {
        Outer() : CDialog(IDD_FORM) {}
        INT_PTR m_inner = 0;
        void OnOK() override {
            m_inner = CDialog(IDD_PLACED_FORM).DoModal();
            CDialog::OnOK();
        }
    } outer;
    const DialogAttendant attendant(NobodyThere());

    EXPECT_EQ(outer.DoModal(), IDOK);

    EXPECT_EQ(outer.m_inner, IDOK);
}

TEST(DialogAttendant, SavesAPictureOfEachDialogWithItsFrame) {
    const TempFolder folder;
    DialogAttendant::Settings settings = NobodyThere();
    settings.pictureFolder = folder.Path();
    DialogAttendant attendant(settings);
    RedDialog dialog;

    dialog.DoModal();
    dialog.DoModal();

    EXPECT_FALSE(attendant.HasFailed());
    const Picture picture = ReadPicture(folder / L"dialog-01-form.png");
    EXPECT_EQ(picture.middle, 0xFFFF0000u);
    RECT inner = {0, 0, 120, 60};  // The client area of the template, without any frame.
    CDialog ruler(IDD_FORM);
    ASSERT_TRUE(ruler.Create(IDD_FORM));
    MapDialogRect(ruler, &inner);
    EXPECT_GT(picture.width, static_cast<UINT>(inner.right));
    EXPECT_GT(picture.height, static_cast<UINT>(inner.bottom) + 10) << "the caption is there";
    EXPECT_TRUE(std::filesystem::exists(folder / L"dialog-02-form.png"));
}

TEST(DialogAttendant, RemembersAPictureThatCantBeSaved) {
    DialogAttendant::Settings settings = NobodyThere();
    settings.pictureFolder = L"C:\\no such folder";
    const DialogAttendant attendant(settings);

    EXPECT_EQ(CDialog(IDD_FORM).DoModal(), IDOK);

    EXPECT_TRUE(attendant.HasFailed());
}

TEST(DialogAttendant, EndsTheProcessOverADialogThatGoesNoFurther) {
    struct Row {
        const wchar_t* scenario;
        const char* complaint;
    };
    const Row rows[] = {
        {L"DialogThatNeverPaints", "has not painted"},
        {L"DialogThatHangsAhead", "has not painted"},
        {L"DialogThatRefusesItsAnswer", "has not ended"},
    };
    for (const Row& row : rows) {
        const ChildResult child = RunScenario(row.scenario);

        EXPECT_FALSE(child.timedOut) << row.scenario;
        EXPECT_EQ(child.exitCode, static_cast<unsigned long>(ExitCode::DialogFailed))
            << row.scenario;
        EXPECT_NE(child.errors.find(row.complaint), std::string::npos) << child.errors;
    }
}

// The look of the whole About dialog, against a picture that a person has approved.

#include "install/install_record.h"
#include "ui/about_fixture.h"
#include "ui/approved_picture.h"

#include <gtest/gtest.h>

namespace {

class AboutPicture : public AboutFixture {
  protected:
    AboutPicture() { InstallVersion = L"2.1.0"; }

    const std::unique_ptr<Canvas> m_approved = ApprovedPicture();
    std::unique_ptr<Canvas> m_shown;
};

TEST_F(AboutPicture, IsTheApprovedOne) {
    Show(0, [&](HWND dialog) { m_shown = CaptureWindow(dialog); });

    EXPECT_TRUE(LookAlike(*m_shown, *m_approved));
    if (HasFailure()) KeepForALook(*m_shown);
}

TEST_F(AboutPicture, WithoutOneOfItsTextsItIsAnother) {
    Show(0, [&](HWND dialog) {
        ShowWindow(Descendant(dialog, 124), SW_HIDE);
        UpdateWindow(dialog);
        m_shown = CaptureWindow(dialog);
    });

    EXPECT_FALSE(LookAlike(*m_shown, *m_approved));
}

}  // namespace

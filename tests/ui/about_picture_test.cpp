// The look of the whole About dialog, against a picture that a person has approved.

#include "install/install_record.h"
#include "support/window_capture.h"
#include "ui/about_fixture.h"
#include "ui/module_file.h"
#include "ui/picture_files.h"

#include <atlimage.h>

namespace {

// Edges of letters and frames may be smoothed a little differently by other versions of Wine and of
// the font; a control that is missing, moved or cut changes many more pixels.
constexpr int channelTolerance = 48;
constexpr double allowedShare = 0.005;

/// The approved picture, on a canvas of its own size.
std::unique_ptr<Canvas> ApprovedPicture() {
    const TempFolder folder;
    CImage image;
    image.Load(WritePicture(folder, L"about.png", IDR_ABOUT).c_str());
    auto canvas = std::make_unique<Canvas>(image.GetWidth(), image.GetHeight(), RGB(0, 0, 0));
    BitBlt(canvas->Handle(), 0, 0, image.GetWidth(), image.GetHeight(), image.GetDC(), 0, 0,
           SRCCOPY);
    image.ReleaseDC();
    return canvas;
}

/// The dialog with the caption of an active window, whoever has the focus of the display.
std::unique_ptr<Canvas> CaptureActive(HWND dialog) {
    SendMessageW(dialog, WM_NCACTIVATE, TRUE, 0);
    return CaptureWindow(dialog);
}

using AboutPicture = AboutFixture;

TEST_F(AboutPicture, IsTheApprovedOne) {
    InstallVersion = L"2.1.0";
    const std::unique_ptr<Canvas> approved = ApprovedPicture();
    std::unique_ptr<Canvas> shown;

    Show(0, [&](HWND dialog) { shown = CaptureActive(dialog); });

    const double share = DifferentShare(*shown, *approved, channelTolerance);
    EXPECT_LE(share, allowedShare);
    if (share > allowedShare) {
        const std::wstring path = ProgramFolder() + L"\\about-shown.png";
        ASSERT_TRUE(SavePng(*shown, path));
        std::wcerr << L"what was shown is in " << path << std::endl;
    }
}

TEST_F(AboutPicture, TheComparisonSeesATextThatIsMissing) {
    InstallVersion = L"2.1.0";
    const std::unique_ptr<Canvas> approved = ApprovedPicture();
    std::unique_ptr<Canvas> shown;

    Show(0, [&](HWND dialog) {
        ShowWindow(Descendant(dialog, 124), SW_HIDE);
        UpdateWindow(dialog);
        shown = CaptureActive(dialog);
    });

    EXPECT_GT(DifferentShare(*shown, *approved, channelTolerance), allowedShare);
}

}  // namespace

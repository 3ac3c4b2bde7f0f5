#include "ui/approved_picture.h"

#include "support/child_process.h"
#include "ui/picture_files.h"

#include <atlimage.h>

#include <cstdio>

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

bool LookAlike(const Canvas& one, const Canvas& other) {
    return DifferentShare(one, other, 48) <= 0.005;
}

void KeepForALook(const Canvas& shown) {
    const std::wstring path = ProgramFolder() + L"\\about-shown.png";
    const bool saved = SavePng(shown, path);
    std::fprintf(stderr, saved ? "what was shown is in %ls\n" : "%ls can't be written\n",
                 path.c_str());
}

#include "support/window_capture.h"

#include <algorithm>
#include <cstdlib>
#include <initializer_list>

// gdiplus.h needs windows.h and objidl.h ahead of it.
#include <objidl.h>

#include <gdiplus.h>

using namespace Gdiplus::DllExports;

namespace {

constexpr CLSID pngEncoder = {
    0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

int ChannelDifference(COLORREF one, COLORREF other) {
    return std::max({std::abs(GetRValue(one) - GetRValue(other)),
                     std::abs(GetGValue(one) - GetGValue(other)),
                     std::abs(GetBValue(one) - GetBValue(other))});
}

}  // namespace

std::unique_ptr<Canvas> CaptureWindow(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    auto canvas = std::make_unique<Canvas>(width, height, RGB(255, 0, 255));
    HDC windowDC = GetWindowDC(window);
    BitBlt(canvas->Handle(), 0, 0, width, height, windowDC, 0, 0, SRCCOPY);
    ReleaseDC(window, windowDC);
    return canvas;
}

bool SavePng(const Canvas& canvas, const std::wstring& path) {
    ULONG_PTR token = 0;
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&token, &input, nullptr) != Gdiplus::Ok) return false;
    Gdiplus::GpBitmap* bitmap = nullptr;
    auto status = GdipCreateBitmapFromHBITMAP(canvas.Bitmap(), nullptr, &bitmap);
    if (status == Gdiplus::Ok) {
        status = GdipSaveImageToFile(bitmap, path.c_str(), &pngEncoder, nullptr);
        GdipDisposeImage(bitmap);
    }
    Gdiplus::GdiplusShutdown(token);
    return status == Gdiplus::Ok;
}

double DifferentShare(const Canvas& one, const Canvas& other, int tolerance) {
    if (one.Width() != other.Width() || one.Height() != other.Height()) return 1.0;
    int different = 0;
    for (int y = 0; y < one.Height(); ++y) {
        for (int x = 0; x < one.Width(); ++x)
            different += ChannelDifference(one.Pixel(x, y), other.Pixel(x, y)) > tolerance;
    }
    return static_cast<double>(different) / (one.Width() * one.Height());
}

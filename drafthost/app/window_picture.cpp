#include "app/window_picture.h"

#include <initializer_list>
// GDI+ needs what the lean windows.h leaves out.
#include <objidl.h>
// Needs the two ahead of it.
#include <gdiplus.h>

#include <memory>

namespace drafthost {

namespace {

using namespace Gdiplus::DllExports;

struct BitmapCloser {
    void operator()(HBITMAP bitmap) const noexcept { DeleteObject(bitmap); }
};
using OwnedBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, BitmapCloser>;

struct MemoryContextCloser {
    void operator()(HDC context) const noexcept { DeleteDC(context); }
};
using OwnedMemoryContext = std::unique_ptr<std::remove_pointer_t<HDC>, MemoryContextCloser>;

struct ImageCloser {
    void operator()(Gdiplus::GpBitmap* image) const noexcept { GdipDisposeImage(image); }
};
using OwnedImage = std::unique_ptr<Gdiplus::GpBitmap, ImageCloser>;

/// GDI+ for the life of this object.
class GdiPlusSession {
  public:
    GdiPlusSession() {
        const Gdiplus::GdiplusStartupInput input;
        m_started = Gdiplus::GdiplusStartup(&m_token, &input, nullptr) == Gdiplus::Ok;
    }
    GdiPlusSession(const GdiPlusSession&) = delete;
    GdiPlusSession& operator=(const GdiPlusSession&) = delete;
    ~GdiPlusSession() {
        if (m_started) Gdiplus::GdiplusShutdown(m_token);
    }

    bool HasStarted() const { return m_started; }

  private:
    ULONG_PTR m_token = 0;
    bool m_started = false;
};

/// A copy of the window's pixels; null when the window has none.
OwnedBitmap CopyWindow(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = place.right - place.left;
    info.bmiHeader.biHeight = place.bottom - place.top;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    void* bits = nullptr;
    OwnedBitmap copy(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (copy == nullptr) return nullptr;

    const HDC source = GetWindowDC(window);
    const OwnedMemoryContext target(CreateCompatibleDC(nullptr));
    const HGDIOBJ before = SelectObject(target.get(), copy.get());
    const BOOL copied = BitBlt(target.get(), 0, 0, info.bmiHeader.biWidth, info.bmiHeader.biHeight,
                               source, 0, 0, SRCCOPY);
    SelectObject(target.get(), before);
    ReleaseDC(window, source);
    return copied ? std::move(copy) : nullptr;
}

}  // namespace

bool SaveWindowPicture(HWND window, const std::wstring& path) {
    // The platform's PNG encoder.
    constexpr CLSID png = {
        0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

    const OwnedBitmap copy = CopyWindow(window);
    const GdiPlusSession session;
    if (copy == nullptr || !session.HasStarted()) return false;
    Gdiplus::GpBitmap* image = nullptr;
    if (GdipCreateBitmapFromHBITMAP(copy.get(), nullptr, &image) != Gdiplus::Ok) return false;
    const OwnedImage owned(image);
    return GdipSaveImageToFile(image, path.c_str(), &png, nullptr) == Gdiplus::Ok;
}

}  // namespace drafthost

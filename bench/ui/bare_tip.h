#pragma once

#include "ui/gdiplus_api.h"

#include <windows.h>

#include <string>

/// A tip's drawing by the flat GDI+ calls that it can't do without, written out: a window that is
/// its own and plain functions in a row, no class behind it. Objects are released by hand, and no
/// status is looked at.
class BareTip {
  public:
    BareTip(HINSTANCE resources, const wchar_t* text, WORD imageId);
    BareTip(const BareTip&) = delete;
    BareTip& operator=(const BareTip&) = delete;
    ~BareTip();

    HWND Window() const { return m_window; }
    int Width() const { return m_width; }
    int Height() const { return m_height; }

    void Measure();
    void Render(double level);
    void Paint(HDC dc) const;

  private:
    void DrawTipImage(Gdiplus::GpGraphics* surface) const;

    HWND m_window;
    HINSTANCE m_resources;
    std::wstring m_text;
    WORD m_imageId;
    Gdiplus::GpFontFamily* m_family = nullptr;  ///< GDI+'s own, kept
    Gdiplus::GpBitmap* m_picture = nullptr;
    int m_width = 0;
    int m_height = 0;
    UINT m_imageWidth = 0;
    UINT m_imageHeight = 0;
};

/// Makes the pixels of the locked rows transparent that are at most 10 from the key colour.
void KeyOutByHand(const Gdiplus::BitmapData& rows, int red, int green, int blue);

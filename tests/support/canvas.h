#pragma once

#include <windows.h>

/// A memory device context with a 32-bit section selected, to draw on and to read from.
class Canvas {
  public:
    Canvas(int width, int height, COLORREF background);
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas();

    HDC Handle() const { return m_memoryDC; }
    HBITMAP Bitmap() const { return m_section; }
    int Width() const { return m_width; }
    int Height() const { return m_height; }
    COLORREF Pixel(int x, int y) const { return GetPixel(m_memoryDC, x, y); }

  private:
    int m_width;
    int m_height;
    HDC m_memoryDC;
    HBITMAP m_section;
    HGDIOBJ m_before;
};

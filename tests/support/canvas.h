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
    COLORREF Pixel(int x, int y) const { return GetPixel(m_memoryDC, x, y); }

  private:
    HDC m_memoryDC;
    HBITMAP m_section;
    HGDIOBJ m_before;
};

#include "support/canvas.h"

Canvas::Canvas(int width, int height, COLORREF background)
    : m_width(width), m_height(height), m_memoryDC(CreateCompatibleDC(nullptr)) {
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    m_section = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    m_before = SelectObject(m_memoryDC, m_section);
    HBRUSH brush = CreateSolidBrush(background);
    const RECT whole = {0, 0, width, height};
    FillRect(m_memoryDC, &whole, brush);
    DeleteObject(brush);
}

Canvas::~Canvas() {
    SelectObject(m_memoryDC, m_before);
    DeleteObject(m_section);
    DeleteDC(m_memoryDC);
}

#include "atlimage.h"

#include "image_process.h"

CImage::CImage() {
    AddImageObject();
}

CImage::~CImage() {
    if (m_section != nullptr) DeleteObject(m_section);
    m_section = nullptr;
    m_bits = nullptr;
    m_width = m_height = m_bitsPerPixel = m_pitch = 0;
    m_hasAlpha = false;
    m_transparentColor = -1;
    RemoveImageObject();
}

BOOL CImage::IsNull() const {
    return m_section == nullptr;
}
CImage::operator HBITMAP() const {
    return m_section;
}

void CImage::LoadFromResource(HINSTANCE instance, LPCWSTR name) {
    HANDLE section = LoadImageW(instance, name, IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
    if (section != nullptr) TakeOver(static_cast<HBITMAP>(section), false);
}

void CImage::LoadFromResource(HINSTANCE instance, UINT id) {
    LoadFromResource(instance, MAKEINTRESOURCEW(id));
}

void CImage::TakeOver(HBITMAP section, bool hasAlpha) {
    DIBSECTION description = {};
    GetObjectW(section, sizeof description, &description);
    // Meant: the handle in hand is written over and not deleted; only the last one is.
    m_section = section;
    m_width = description.dsBmih.biWidth;
    m_height = description.dsBmih.biHeight;
    m_bitsPerPixel = description.dsBmih.biBitCount;
    // Every section here is bottom-up: it starts with the last row.
    m_pitch = -description.dsBm.bmWidthBytes;
    m_bits = static_cast<BYTE*>(description.dsBm.bmBits) -
             static_cast<ptrdiff_t>(m_pitch) * (m_height - 1);
    m_hasAlpha = hasAlpha;
    m_transparentColor = -1;
}

int CImage::GetWidth() const {
    return m_width;
}
int CImage::GetHeight() const {
    return m_height;
}
int CImage::GetBPP() const {
    return m_bitsPerPixel;
}
void* CImage::GetBits() {
    return m_bits;
}
int CImage::GetPitch() const {
    return m_pitch;
}

LONG CImage::GetTransparentColor() const {
    return m_transparentColor;
}

LONG CImage::SetTransparentColor(LONG index) {
    const LONG before = m_transparentColor;
    m_transparentColor = index;
    return before;
}

HDC CImage::GetDC() const {
    if (m_memoryDCUsers++ == 0) {
        m_memoryDC = TakeMemoryDC();
        m_deselected = SelectObject(m_memoryDC, m_section);
    }
    return m_memoryDC;
}

void CImage::ReleaseDC() const {
    if (--m_memoryDCUsers > 0) return;
    SelectObject(m_memoryDC, m_deselected);
    GiveMemoryDC(m_memoryDC);
    m_memoryDC = nullptr;
}

BOOL CImage::IsTransparencySupported() {
    constexpr BYTE firstMajorVersion = 5;
    return LOBYTE(LOWORD(GetVersion())) >= firstMajorVersion;
}

BOOL CImage::Draw(HDC destination, int xDest, int yDest, int destWidth, int destHeight, int xSrc,
                  int ySrc, int srcWidth, int srcHeight) const {
    if (IsNull()) return FALSE;
    const bool transparencySupported = IsTransparencySupported() != FALSE;
    HDC source = GetDC();
    BOOL drawn = FALSE;
    if (m_transparentColor >= 0 && transparencySupported) {
        RGBQUAD color = {};
        GetDIBColorTable(source, m_transparentColor, 1, &color);
        drawn =
            TransparentBlt(destination, xDest, yDest, destWidth, destHeight, source, xSrc, ySrc,
                           srcWidth, srcHeight, RGB(color.rgbRed, color.rgbGreen, color.rgbBlue));
    } else if (m_hasAlpha && transparencySupported) {
        // Meant: AlphaBlend expects premultiplied pixels and gets them as the file had them.
        const BLENDFUNCTION blend = {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
        drawn = AlphaBlend(destination, xDest, yDest, destWidth, destHeight, source, xSrc, ySrc,
                           srcWidth, srcHeight, blend);
    } else {
        drawn = StretchBlt(destination, xDest, yDest, destWidth, destHeight, source, xSrc, ySrc,
                           srcWidth, srcHeight, SRCCOPY);
    }
    ReleaseDC();
    return drawn;
}

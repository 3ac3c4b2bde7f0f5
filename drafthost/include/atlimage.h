#pragma once

#include "drafthost_api.h"

#include <windows.h>

/// A picture in memory, held as a device-independent section.
///
/// Owns the section of its last load; loads replace the handle and leave the earlier section to
/// whoever has it. Pixels with alpha stay as the file gave them: nothing is premultiplied. GDI+
/// runs from the first `Load` in the process until its last image object is gone. One thread at a
/// time may use an image; different images may be used on different threads. Only as wide as its
/// users need.
class DRAFTHOST_API CImage {
  public:
    CImage();
    CImage(const CImage&) = delete;
    CImage& operator=(const CImage&) = delete;
    /// Deletes the section; its handle must not be selected anywhere.
    virtual ~CImage();

    /// Whether there is no picture.
    BOOL IsNull() const;
    /// The section, still the image's; null without a picture.
    operator HBITMAP() const;

    /// Loads a bitmap resource. A resource that can't be found leaves the image as it was. GDI+
    /// isn't needed.
    void LoadFromResource(HINSTANCE instance, LPCWSTR name);
    void LoadFromResource(HINSTANCE instance, UINT id);

    /// Loads a picture file of any kind that GDI+ decodes; the file is free again on return.
    ///
    /// E_FAIL when GDI+ doesn't start, the file can't be opened or decoded or the section can't be
    /// made; E_OUTOFMEMORY without storage for the palette or when the rows can't be locked. A
    /// failure leaves the image as it was.
    HRESULT Load(LPCWSTR fileName);

    /// Copies the source rectangle to the destination rectangle, stretched by the destination's
    /// mode. The transparent colour is left out if there is one; else alpha, if the picture has
    /// it, is blended over the destination. FALSE without a picture and when GDI refuses.
    BOOL Draw(HDC destination, int xDest, int yDest, int destWidth, int destHeight, int xSrc,
              int ySrc, int srcWidth, int srcHeight) const;

    // Pixels and bits a pixel; 0 without a picture.
    int GetWidth() const;
    int GetHeight() const;
    int GetBPP() const;

    /// The first byte of the top row; null without a picture.
    void* GetBits();
    /// Bytes from a row to the one below it, negative: sections are bottom-up, as bitmap resources
    /// are.
    int GetPitch() const;

    /// Index into the section's colour table, or -1 for none, as after every load.
    LONG GetTransparentColor() const;
    /// Gives the index that was set before.
    LONG SetTransparentColor(LONG index);

    /// A memory device context with the picture selected, until `ReleaseDC`. Pairs nest.
    HDC GetDC() const;
    void ReleaseDC() const;

    /// Whether the platform draws transparent colours and alpha.
    static BOOL IsTransparencySupported();

  private:
    void TakeOver(HBITMAP section, bool hasAlpha);

    HBITMAP m_section = nullptr;
    void* m_bits = nullptr;  ///< of the top row
    int m_width = 0;
    int m_height = 0;
    int m_bitsPerPixel = 0;
    int m_pitch = 0;
    bool m_hasAlpha = false;
    LONG m_transparentColor = -1;

    mutable HDC m_memoryDC = nullptr;  ///< while there is a `GetDC` without its `ReleaseDC`
    mutable int m_memoryDCUsers = 0;
    mutable HGDIOBJ m_deselected = nullptr;  ///< what the picture took the place of in `m_memoryDC`
};

#pragma once

#include "ui/custom_tool_tip.h"
#include "ui/gdiplus_api.h"

#include <atlstr.h>

/// The content of an entry of CustomToolTipPlus: a text and a bitmap resource, shown left of it.
class TipDataPlus : public TipData {
  public:
    /// The text is copied and may be empty. Only the low 16 bits of the id count; an id without a
    /// bitmap gives a tip of text alone.
    TipDataPlus(const CStringW& text, DWORD imageId);

    CStringW m_text;
    DWORD m_imageId;
};

/// A tool tip with a text and a bitmap on a gradient. Its fade changes the colours of the picture
/// at each step; nothing of it is transparent.
///
/// Every entry's content must be a TipDataPlus: it is taken for one untested. The text wraps at
/// `m_maxTextWidth`. The bitmap's background, pixels near red 254, green 253, blue 206, isn't
/// drawn.
///
/// GDI+ must run while the tip exists; this class doesn't start it. Without it, or when the picture
/// can't be made, the tip just isn't shown. Once a tip has been drawn GDI+ must not be stopped and
/// started again for a later one: the font family is fetched once for the process and kept.
class CustomToolTipPlus : public CustomToolTip {
  public:
    /// As CustomToolTip with the fade on. Bitmaps come from `resources`.
    CustomToolTipPlus(HWND owner, HINSTANCE resources);
    ~CustomToolTipPlus() override;

  protected:
    void PostNcDestroy() override;
    void MeasureTip(int index) override;
    void RenderTip(int index, double level) override;
    void PaintTip(CDC* dc) override;

    Gdiplus::GpBitmap* m_backBuffer = nullptr;  ///< the finished picture; owned
    int m_imageWidth;   ///< of the entry's bitmap in pixels, 0 without one; set by MeasureTip
    int m_imageHeight;  ///< as the width
    HINSTANCE m_resources;

  private:
    const TipDataPlus& EntryContent(int index) const;
    void DeleteBackBuffer();
    void DrawPicture(const TipDataPlus& content, const CStringW& text, double level,
                     const Gdiplus::GpFont* font, const Gdiplus::GpStringFormat* format,
                     const Gdiplus::GpBrush* black);
    void DrawTipImage(Gdiplus::GpGraphics* target, double level, DWORD imageId);
    static void MakeColorTransparent(Gdiplus::GpBitmap* bitmap, Gdiplus::ARGB color, int tolerance);
};

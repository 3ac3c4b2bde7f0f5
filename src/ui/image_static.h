#pragma once

#include <afxwin.h>
#include <atlimage.h>

/// A static control that shows one picture, stretched over its whole client area.
///
/// The owner binds it to a static item of its dialog with `DDX_Control`, loads `m_image`, from a
/// bitmap resource or a picture file, and then asks for a repaint with `InvalidateRect` (erasing)
/// and `UpdateWindow`: a load alone changes nothing on the screen. The aspect ratio isn't kept.
/// Without a picture the control shows its default paint. Used on the dialog's thread only.
class CImageStatic : public CStatic {
    DECLARE_DYNAMIC(CImageStatic)

    CImageStatic() = default;
    ~CImageStatic() override;

    /// The picture; empty until the owner loads one. A second load leaves the first bitmap to
    /// itself.
    CImage m_image;

  protected:
    afx_msg void OnPaint();

    DECLARE_MESSAGE_MAP()
};

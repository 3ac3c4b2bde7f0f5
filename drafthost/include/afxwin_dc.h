#pragma once

// Device contexts; included by afxwin.h.

#include "afx.h"
#include "atltypes.h"

class CWnd;

/// A device context's object. One that was made by the caller deletes its context at its end; one
/// that comes from `FromHandle` owns nothing.
class DRAFTHOST_API CDC : public CObject {
    DECLARE_DYNAMIC(CDC)

    CDC() = default;
    ~CDC() override;

    /// The object of the context: the one that is attached to it, else a temporary one that lives
    /// until the message in whose handling it was made has been handled. Null gives null.
    static CDC* FromHandle(HDC context);
    /// Deletes the thread's temporary objects that were made outside of any message.
    static void DeleteTempMap();

    /// Takes the context over; FALSE for null or when this object has one already.
    BOOL Attach(HDC context);
    /// Gives the context up without deleting it.
    HDC Detach();
    BOOL CreateCompatibleDC(CDC* other);
    BOOL DeleteDC();

    /// Null also for an object that is null itself.
    HDC GetSafeHdc() const;
    operator HDC() const { return m_hDC; }

    int SetStretchBltMode(int mode) { return ::SetStretchBltMode(m_hDC, mode); }
    CPoint SetBrushOrg(int x, int y) {
        CPoint previous;
        ::SetBrushOrgEx(m_hDC, x, y, &previous);
        return previous;
    }
    COLORREF GetPixel(int x, int y) const { return ::GetPixel(m_hDC, x, y); }

    HDC m_hDC = nullptr;
};

/// Painting of a window: begins at construction, ends at destruction. Only in the handling of
/// WM_PAINT.
class DRAFTHOST_API CPaintDC : public CDC {
    DECLARE_DYNAMIC(CPaintDC)

    explicit CPaintDC(CWnd* window);
    ~CPaintDC() override;

    PAINTSTRUCT m_ps;

  protected:
    HWND m_hWnd;
};

/// A window's client area outside of painting, for the life of the object.
class DRAFTHOST_API CClientDC : public CDC {
    DECLARE_DYNAMIC(CClientDC)

    explicit CClientDC(CWnd* window);
    ~CClientDC() override;

  protected:
    HWND m_hWnd;
};

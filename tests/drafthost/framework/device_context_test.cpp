#include "test_window.h"

#include <gtest/gtest.h>

namespace {

/// Paints by the book and writes down what the paint context is.
class Painter : public CWnd {
  public:
    int m_paints = 0;
    bool m_attached = false;
    CRect m_area;

  protected:
    afx_msg void OnPaint() {
        CPaintDC context(this);
        ++m_paints;
        m_attached = CDC::FromHandle(context.m_hDC) == &context;
        m_area = context.m_ps.rcPaint;
        RECT client;
        GetClientRect(&client);
        ::FillRect(context, &client, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Painter, CWnd)
ON_WM_PAINT()
END_MESSAGE_MAP()

}  // namespace

TEST(DeviceContext, PaintContextBeginsAndEndsThePainting) {
    Painter window;
    ASSERT_TRUE(MakeTestWindow(window, WS_POPUP | WS_VISIBLE));

    window.UpdateWindow();

    EXPECT_EQ(window.m_paints, 1);
    EXPECT_TRUE(window.m_attached);
    EXPECT_EQ(window.m_area.Width(), 200);
    EXPECT_EQ(window.m_area.Height(), 100);
    EXPECT_FALSE(GetUpdateRect(window, nullptr, FALSE)) << "the painting has validated the window";
    CClientDC screen(&window);
    EXPECT_EQ(screen.GetPixel(100, 50), RGB(255, 255, 255));
}

TEST(DeviceContext, TheSafeHandleOfNoContextIsNull) {
    CWnd window;
    ASSERT_TRUE(MakeTestWindow(window, WS_POPUP | WS_VISIBLE));
    const CClientDC context(&window);
    const CDC* volatile nothing = nullptr;  // The compiler must not see that it is null.

    EXPECT_EQ(context.GetSafeHdc(), context.m_hDC);
    EXPECT_EQ(nothing->GetSafeHdc(), nullptr);
}

TEST(DeviceContext, ClientContextReleasesItsContext) {
    CWnd window;
    ASSERT_TRUE(MakeTestWindow(window, WS_POPUP | WS_VISIBLE));
    HDC handle = nullptr;

    {
        CClientDC context(&window);
        handle = context.m_hDC;
        EXPECT_EQ(WindowFromDC(handle), window.m_hWnd);
    }

    EXPECT_NE(WindowFromDC(handle), window.m_hWnd);
}

TEST(DeviceContext, WrapsAHandleWithoutOwningIt) {
    const HDC handle = CreateCompatibleDC(nullptr);

    CDC* wrapped = CDC::FromHandle(handle);
    ASSERT_NE(wrapped, nullptr);
    EXPECT_EQ(wrapped->SetStretchBltMode(HALFTONE), BLACKONWHITE);
    wrapped->SetBrushOrg(3, 4);
    const CPoint previous = wrapped->SetBrushOrg(0, 0);
    CDC::DeleteTempMap();

    EXPECT_EQ(previous, (POINT{3, 4}));
    EXPECT_EQ(GetStretchBltMode(handle), HALFTONE);
    EXPECT_TRUE(DeleteDC(handle)) << "the object's end has left the context alone";
}

TEST(DeviceContext, OwnContextIsDeletedAtTheObjectsEnd) {
    HDC handle = nullptr;
    {
        CDC context;
        ASSERT_TRUE(context.CreateCompatibleDC(nullptr));
        EXPECT_FALSE(context.Attach(handle)) << "it has a context already";
        handle = context.m_hDC;
    }
    EXPECT_FALSE(DeleteDC(handle));
}

TEST(DeviceContext, DetachedContextStays) {
    HDC handle = nullptr;
    {
        CDC context;
        ASSERT_TRUE(context.CreateCompatibleDC(nullptr));
        handle = context.Detach();
    }
    EXPECT_TRUE(DeleteDC(handle));
}

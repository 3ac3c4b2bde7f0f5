#include "dialog_driver.h"
#include "framework_test_ids.h"
#include "support/leak_rounds.h"
#include "test_window.h"

#include <acui.h>
#include <afxdd_.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

// Nothing may stay behind, however often: windows, objects, contexts, kept exceptions.

namespace {

/// Paints, and asks for temporary objects while it handles messages.
class BusyWindow : public CWnd {
  protected:
    afx_msg void OnPaint() {
        CPaintDC context(this);
        CDC::FromHandle(context.m_hDC)->SetBrushOrg(0, 0);
        FromHandle(::GetDesktopWindow());
    }
    afx_msg BOOL OnEraseBkgnd(CDC* context) {
        context->SetStretchBltMode(HALFTONE);
        return TRUE;
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(BusyWindow, CWnd)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

class LeakTabDialog : public CAcUiTabMainDialog {
  public:
    explicit LeakTabDialog(CWnd& parent) : CAcUiTabMainDialog(IDD_BARE_TABS, &parent) {}

    bool m_throws = false;

    BOOL OnInitDialog() override {
        CAdUiBaseDialog::OnInitDialog();
        SetAcadTabPointer(&m_tabs);
        AddTab(0, L"one", IDD_BARE_PAGE, &m_page);
        if (m_throws) throw std::runtime_error("from the initialisation");
        return TRUE;
    }

  protected:
    void DoDataExchange(CDataExchange* exchange) override {
        CAcUiTabMainDialog::DoDataExchange(exchange);
        DDX_Control(exchange, IDC_TABS, m_tabs);
    }

  private:
    CAdUiTab m_tabs;
    CAcUiTabChildDialog m_page;
};

/// A round's window is a child of this one: a window of its own on the screen would take most of
/// the time, and what it leaves behind would be the platform's.
class ShownParent : public CWnd {
  public:
    ShownParent() { MakeTestWindow(*this, WS_POPUP | WS_VISIBLE); }
    ~ShownParent() override { DestroyWindow(); }
};

void WindowRound(CWnd& parent) {
    BusyWindow window;
    ASSERT_TRUE(window.CreateEx(0, AfxRegisterWndClass(0), L"", WS_CHILD | WS_VISIBLE, 10, 10, 100,
                                50, parent, nullptr));
    window.UpdateWindow();
    CClientDC context(&window);
    CDC memory;
    memory.CreateCompatibleDC(&context);
}

}  // namespace

TEST(FrameworkLeaks, NoneFromWindowsAndTheirContexts) {
    ShownParent parent;

    ExpectNoGrowth(50, [&] { WindowRound(parent); });
}

TEST(FrameworkLeaks, NoneFromTemporaryObjectsOutsideOfMessages) {
    ExpectNoGrowth(50, [] {
        CWnd::FromHandle(::GetDesktopWindow());
        const HDC context = ::CreateCompatibleDC(nullptr);
        CDC::FromHandle(context);
        CWnd::DeleteTempMap();
        CDC::DeleteTempMap();
        ::DeleteDC(context);
    });
}

TEST(FrameworkLeaks, NoneFromTemporaryObjectsOfAMessage) {
    constexpr int many = 50;
    struct Asker : CWnd {
        std::vector<HWND> m_windows;
        std::vector<HDC> m_contexts;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message != WM_APP) return CWnd::WindowProc(message, wParam, lParam);
            for (int i = 0; i < many; ++i) {
                FromHandle(m_windows[wParam * many + i]);
                CDC::FromHandle(m_contexts[wParam * many + i]);
            }
            return 0;
        }
    } asker;
    ASSERT_TRUE(MakeTestWindow(asker));
    for (int i = 0; i < 2 * many; ++i) {
        asker.m_windows.push_back(::CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 1, 1, asker,
                                                    nullptr, nullptr, nullptr));
        asker.m_contexts.push_back(::CreateCompatibleDC(nullptr));
    }
    for (int round = 0; round < 100; ++round)
        asker.SendMessage(WM_APP, 0);
    CountResources();
    const ResourceCounts before = CountResources();

    // Once, and for handles that no message has asked for yet: objects that stay are found again.
    asker.SendMessage(WM_APP, 1);

    EXPECT_EQ(CountResources(), before);
    for (const HDC context : asker.m_contexts)
        ::DeleteDC(context);
}

TEST(FrameworkLeaks, NoneFromTabDialogs) {
    ShownParent parent;

    ExpectNoGrowth(20, [&] {
        DialogDriver driver({ChooseOk});
        LeakTabDialog(parent).DoModal();
        ASSERT_EQ(driver.m_painted, 1);
    });
}

TEST(FrameworkLeaks, NoneFromExceptionsOutOfDialogs) {
    ShownParent parent;

    ExpectNoGrowth(20, [&] {
        LeakTabDialog dialog(parent);
        dialog.m_throws = true;
        EXPECT_THROW(dialog.DoModal(), std::runtime_error);
    });
}

TEST(FrameworkLeaks, NoneFromThreadsThatHadWindows) {
    ExpectNoGrowth(20, [] {
        std::thread([] {
            CWnd window;
            // No child of the desktop, which would cost a connection to the display.
            window.CreateEx(0, AfxRegisterWndClass(0), L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr);
            CWnd::FromHandle(::GetDesktopWindow());
        }).join();
    });
}

// The check itself: each kind of leak must be seen.

TEST(FrameworkLeakCheck, SeesTemporaryObjectsThatStay) {
    const ResourceCounts growth =
        GrowthOver(20, [] { CDC::FromHandle(::CreateCompatibleDC(nullptr)); });

    EXPECT_GE(growth.heapBlocks, 20);
    CDC::DeleteTempMap();
}

TEST(FrameworkLeakCheck, SeesWindowsThatStay) {
    std::vector<HWND> left;
    const ResourceCounts growth = GrowthOver(20, [&] {
        CWnd window;
        MakeTestWindow(window);
        left.push_back(window.UnsubclassWindow());
    });

    EXPECT_GE(growth.userObjects, 20);
    for (const HWND window : left)
        ::DestroyWindow(window);
}

TEST(FrameworkLeakCheck, SeesBitmapsThatStay) {
    ShownParent parent;
    std::vector<HBITMAP> left;
    const ResourceCounts growth = GrowthOver(20, [&] {
        WindowRound(parent);
        left.push_back(::CreateBitmap(4, 4, 1, 1, nullptr));
    });

    EXPECT_EQ(growth.gdiObjects, 20);
    for (const HBITMAP bitmap : left)
        ::DeleteObject(bitmap);
}

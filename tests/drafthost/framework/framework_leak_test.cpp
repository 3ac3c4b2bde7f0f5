#include "dialog_driver.h"
#include "framework_test_ids.h"
#include "support/resource_counters.h"
#include "test_window.h"

#include <acui.h>
#include <afxdd_.h>

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <thread>

// Nothing may stay behind, however often: windows, objects, contexts, kept exceptions.

namespace {

struct Growth {
    ResourceCounts before;
    ResourceCounts after;
};

/// What `rounds` rounds add, after as many rounds as the platform's own caches need to fill.
/// Counted up to three times: the table of USER objects serves all processes, and another one may
/// make or drop one in between; what the rounds add is there each time.
Growth GrowthOver(int warmUp, int rounds, const std::function<void()>& round) {
    for (int i = 0; i < warmUp; ++i)
        round();
    CountResources();  // The first count makes room of its own.
    Growth growth;
    growth.after = CountResources();
    for (int attempt = 0; attempt < 3; ++attempt) {
        growth.before = growth.after;
        for (int i = 0; i < rounds; ++i)
            round();
        growth.after = CountResources();
        if (growth.after == growth.before) break;
    }
    return growth;
}

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
    LeakTabDialog() : CAcUiTabMainDialog(IDD_TAB_MAIN) {}

    bool m_throws = false;

    BOOL OnInitDialog() override {
        CAdUiBaseDialog::OnInitDialog();
        SetAcadTabPointer(&m_tabs);
        AddTab(0, L"one", IDD_PAGE, &m_page);
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

void WindowRound() {
    BusyWindow window;
    ASSERT_TRUE(MakeTestWindow(window, WS_POPUP | WS_VISIBLE));
    window.UpdateWindow();
    CClientDC context(&window);
    CDC memory;
    memory.CreateCompatibleDC(&context);
}

}  // namespace

TEST(FrameworkLeaks, NoneFromWindowsAndTheirContexts) {
    const Growth growth = GrowthOver(100, 200, WindowRound);

    EXPECT_EQ(growth.after, growth.before);
}

TEST(FrameworkLeaks, NoneFromTemporaryObjectsOutsideOfMessages) {
    const Growth growth = GrowthOver(100, 200, [] {
        CWnd::FromHandle(::GetDesktopWindow());
        const HDC context = ::CreateCompatibleDC(nullptr);
        CDC::FromHandle(context);
        CWnd::DeleteTempMap();
        CDC::DeleteTempMap();
        ::DeleteDC(context);
    });

    EXPECT_EQ(growth.after, growth.before);
}

TEST(FrameworkLeaks, NoneFromTemporaryObjectsOfAMessage) {
    constexpr int many = 50;
    struct Asker : CWnd {
        std::vector<HWND> m_windows;
        std::vector<HDC> m_contexts;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message != WM_APP) return CWnd::WindowProc(message, wParam, lParam);
            // Every second round asks for handles that the one before didn't know.
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
    asker.SendMessage(WM_APP, 0);
    CountResources();
    const ResourceCounts before = CountResources();

    asker.SendMessage(WM_APP, 1);

    EXPECT_EQ(CountResources(), before);
    for (const HDC context : asker.m_contexts)
        ::DeleteDC(context);
}

TEST(FrameworkLeaks, NoneFromTabDialogs) {
    const Growth growth = GrowthOver(40, 40, [] {
        DialogDriver driver({ClickOk});
        LeakTabDialog().DoModal();
    });

    EXPECT_EQ(growth.after, growth.before);
}

TEST(FrameworkLeaks, NoneFromExceptionsOutOfDialogs) {
    const Growth growth = GrowthOver(40, 40, [] {
        LeakTabDialog dialog;
        dialog.m_throws = true;
        EXPECT_THROW(dialog.DoModal(), std::runtime_error);
    });

    EXPECT_EQ(growth.after, growth.before);
}

TEST(FrameworkLeaks, NoneFromThreadsThatHadWindows) {
    const Growth growth = GrowthOver(20, 20, [] {
        std::thread([] {
            CWnd window;
            MakeTestWindow(window);
            CWnd::FromHandle(::GetDesktopWindow());
        }).join();
    });

    EXPECT_EQ(growth.after.heapBlocks, growth.before.heapBlocks);
    EXPECT_EQ(growth.after.userObjects, growth.before.userObjects);
}

// The check itself: each kind of leak must be seen.

TEST(FrameworkLeakCheck, SeesTemporaryObjectsThatStay) {
    const Growth growth =
        GrowthOver(10, 20, [] { CDC::FromHandle(::CreateCompatibleDC(nullptr)); });

    EXPECT_GE(growth.after.heapBlocks, growth.before.heapBlocks + 20);
    CDC::DeleteTempMap();
}

TEST(FrameworkLeakCheck, SeesWindowsThatStay) {
    std::vector<HWND> left;
    const Growth growth = GrowthOver(10, 20, [&] {
        CWnd window;
        MakeTestWindow(window);
        left.push_back(window.UnsubclassWindow());
    });

    EXPECT_GE(growth.after.userObjects, growth.before.userObjects + 20);
    for (const HWND window : left)
        ::DestroyWindow(window);
}

TEST(FrameworkLeakCheck, SeesBitmapsThatStay) {
    std::vector<HBITMAP> left;
    const Growth growth = GrowthOver(10, 20, [&] {
        WindowRound();
        left.push_back(::CreateBitmap(4, 4, 1, 1, nullptr));
    });

    EXPECT_EQ(growth.after.gdiObjects, growth.before.gdiObjects + 20);
    for (const HBITMAP bitmap : left)
        ::DeleteObject(bitmap);
}

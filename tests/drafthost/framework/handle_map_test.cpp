#include "test_window.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

/// Asks for a bare window's object while it handles a message, and again while nested in that.
class Asker : public CWnd {
  public:
    HWND m_asked = nullptr;
    CWnd* m_first = nullptr;
    CWnd* m_second = nullptr;
    bool m_stillThere = false;

  protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_APP) {
            m_first = FromHandle(m_asked);
            ::SendMessageW(m_hWnd, WM_APP + 1, 0, 0);
            m_stillThere = m_first->m_hWnd == m_asked;
        } else if (message == WM_APP + 1) {
            m_second = FromHandle(m_asked);
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

/// A window that the framework knows nothing of; destroyed at the end.
class BareWindow {
  public:
    BareWindow() = default;
    BareWindow(const BareWindow&) = delete;
    BareWindow& operator=(const BareWindow&) = delete;
    ~BareWindow() { DestroyWindow(m_hWnd); }

    const HWND m_hWnd = CreateWindowExW(0, L"STATIC", L"bare", WS_POPUP, 0, 0, 10, 10, nullptr,
                                        nullptr, nullptr, nullptr);
};

}  // namespace

TEST(HandleMap, NullHandleHasNoObject) {
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(nullptr), nullptr);
    EXPECT_EQ(CDC::FromHandle(nullptr), nullptr);
}

TEST(HandleMap, WindowMadeByItsObjectIsFoundAsThatObject) {
    CWnd window;
    ASSERT_TRUE(MakeTestWindow(window));

    EXPECT_EQ(CWnd::FromHandle(window.m_hWnd), &window);
    EXPECT_EQ(CWnd::FromHandlePermanent(window.m_hWnd), &window);
}

TEST(HandleMap, OtherWindowGetsATemporaryObjectOnly) {
    const BareWindow bare;

    CWnd* temporary = CWnd::FromHandle(bare.m_hWnd);

    ASSERT_NE(temporary, nullptr);
    EXPECT_EQ(temporary->m_hWnd, bare.m_hWnd);
    EXPECT_EQ(CWnd::FromHandle(bare.m_hWnd), temporary);
    EXPECT_EQ(CWnd::FromHandlePermanent(bare.m_hWnd), nullptr);
    CWnd::DeleteTempMap();
    EXPECT_TRUE(IsWindow(bare.m_hWnd)) << "a temporary object owns no window";
}

TEST(HandleMap, AttachedObjectTakesTheTemporarysPlaceUntilDetached) {
    const BareWindow bare;
    CWnd* temporary = CWnd::FromHandle(bare.m_hWnd);
    CWnd window;

    ASSERT_TRUE(window.Attach(bare.m_hWnd));
    EXPECT_EQ(CWnd::FromHandle(bare.m_hWnd), &window);
    EXPECT_EQ(window.Detach(), bare.m_hWnd);

    EXPECT_EQ(window.m_hWnd, nullptr);
    EXPECT_EQ(CWnd::FromHandle(bare.m_hWnd), temporary);
    CWnd::DeleteTempMap();
}

TEST(HandleMap, AttachRefusesNullAndASecondWindow) {
    const BareWindow bare;
    const BareWindow other;
    CWnd window;

    EXPECT_FALSE(window.Attach(nullptr));
    EXPECT_TRUE(window.Attach(bare.m_hWnd));
    EXPECT_FALSE(window.Attach(other.m_hWnd));

    EXPECT_EQ(window.Detach(), bare.m_hWnd);
}

TEST(HandleMap, TemporaryObjectLivesThroughNestedMessages) {
    const BareWindow bare;
    Asker window;
    ASSERT_TRUE(MakeTestWindow(window));
    window.m_asked = bare.m_hWnd;

    SendMessageW(window, WM_APP, 0, 0);

    EXPECT_EQ(window.m_first, window.m_second);
    EXPECT_TRUE(window.m_stillThere);
}

TEST(HandleMap, TemporaryObjectForgetsAWindowThatItDestroys) {
    const BareWindow bare;
    CWnd* temporary = CWnd::FromHandle(bare.m_hWnd);
    ASSERT_NE(temporary, nullptr);

    EXPECT_TRUE(temporary->DestroyWindow());

    EXPECT_EQ(temporary->m_hWnd, nullptr);
    EXPECT_FALSE(IsWindow(bare.m_hWnd));
    CWnd::DeleteTempMap();
}

TEST(HandleMap, ObjectsOfOneThreadAreUnknownToAnother) {
    CWnd window;
    ASSERT_TRUE(MakeTestWindow(window));
    CWnd* found = &window;

    std::thread([&] { found = CWnd::FromHandlePermanent(window.m_hWnd); }).join();

    EXPECT_EQ(found, nullptr);
}

#include "test_window.h"

#include "support/child_scenario.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

class Thrower : public CWnd {
  public:
    UINT m_at = WM_APP;

  protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == m_at) throw std::runtime_error("from a handler");
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

CHILD_SCENARIO(ExceptionWithNobodyToCarryIt) {
    std::set_terminate([] { ExitProcess(77); });
    Thrower window;
    if (!MakeTestWindow(window)) return 1;
    ::SendMessageW(window, WM_APP, 0, 0);
    ExitProcess(2);  // Ahead of the window's end, which would meet the exception too.
}

CHILD_SCENARIO(ExceptionOfAChildInTheParentsDestructor) {
    std::set_terminate([] { ExitProcess(77); });
    Thrower child;
    child.m_at = WM_DESTROY;
    {
        CWnd parent;
        if (!MakeTestWindow(parent)) return 1;
        if (!child.CreateEx(0, AfxRegisterWndClass(0), L"", WS_CHILD, 0, 0, 10, 10, parent,
                            nullptr)) {
            return 1;
        }
    }
    ExitProcess(2);
}

}  // namespace

TEST(WindowException, LeavesSendMessageByTheCallersSide) {
    Thrower window;
    ASSERT_TRUE(MakeTestWindow(window));

    EXPECT_THROW(window.SendMessage(WM_APP), std::runtime_error);

    EXPECT_EQ(window.SendMessage(WM_NULL), 0) << "nothing is left over";
}

TEST(WindowException, LeavesCreateExWithoutAWindow) {
    Thrower window;
    window.m_at = WM_CREATE;

    EXPECT_THROW(MakeTestWindow(window), std::runtime_error);

    EXPECT_EQ(window.m_hWnd, nullptr);
}

TEST(WindowException, LeavesDestroyWindowWhenTheWindowIsGone) {
    Thrower window;
    ASSERT_TRUE(MakeTestWindow(window));
    window.m_at = WM_DESTROY;

    EXPECT_THROW(window.DestroyWindow(), std::runtime_error);

    EXPECT_EQ(window.m_hWnd, nullptr);
}

TEST(WindowException, LeavesUpdateWindow) {
    Thrower window;
    ASSERT_TRUE(MakeTestWindow(window, WS_POPUP | WS_VISIBLE));
    window.m_at = WM_PAINT;

    EXPECT_THROW(window.UpdateWindow(), std::runtime_error);
}

TEST(WindowException, EndsTheProcessWhenNoOperationIsUnderWay) {
    const ChildResult child = RunScenario(L"ExceptionWithNobodyToCarryIt");

    EXPECT_FALSE(child.timedOut);
    EXPECT_EQ(child.exitCode, 77u);
}

TEST(WindowException, EndsTheProcessWhenItMeetsADestructor) {
    const ChildResult child = RunScenario(L"ExceptionOfAChildInTheParentsDestructor");

    EXPECT_FALSE(child.timedOut);
    EXPECT_EQ(child.exitCode, 77u);
}

// No test runs before the desktop does. The first window of a session starts it; a program whose
// first window comes too early gets none, then or later, and every test of it fails or crashes.

#include "support/child_scenario.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace {

bool CanMakeAWindow() {
    const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                        nullptr, nullptr);
    return window != nullptr && DestroyWindow(window);
}

class DesktopCheck : public testing::Environment {
    void SetUp() override {
        // Children try it, as a failure would stay with this process.
        const ULONGLONG start = GetTickCount64();
        constexpr ULONGLONG deadline = 60000;
        while (RunScenario(L"MakesAWindow").exitCode != 0) {
            ASSERT_LT(GetTickCount64() - start, deadline) << "no window can be made: no desktop";
        }
        ASSERT_TRUE(CanMakeAWindow());
    }
};

testing::Environment* const g_check = testing::AddGlobalTestEnvironment(new DesktopCheck);

}  // namespace

CHILD_SCENARIO(MakesAWindow) {
    return CanMakeAWindow() ? 0 : 1;
}

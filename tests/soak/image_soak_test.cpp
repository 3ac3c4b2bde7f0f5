// The image control, which is wanted to leave something behind at each paint and each reload.

#include "soak/soak.h"

#include "support/import_hook.h"
#include "support/leak_rounds.h"
#include "ui/image_static.h"
#include "ui/tip_bitmaps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

decltype(&GetDC) g_getDC = nullptr;
decltype(&ReleaseDC) g_releaseDC = nullptr;
std::vector<HDC> g_held;  ///< contexts that were got and not released

HDC WINAPI NoteGetDC(HWND window) {
    const HDC context = g_getDC(window);
    if (context != nullptr) g_held.push_back(context);
    return context;
}

int WINAPI NoteReleaseDC(HWND window, HDC context) {
    const auto held = std::find(g_held.begin(), g_held.end(), context);
    if (held != g_held.end()) g_held.erase(held);
    return g_releaseDC(window, context);
}

class ImageSoak : public testing::Test {
  protected:
    ImageSoak() {
        m_parent = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 40, 40, 100, 100,
                                   nullptr, nullptr, nullptr, nullptr);
        m_control.SubclassWindow(CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 10, 10,
                                                 60, 40, m_parent, nullptr, nullptr, nullptr));
        Reload();
        UpdateWindow(m_parent);
    }
    ~ImageSoak() override { DestroyWindow(m_parent); }

    void Reload() {
        m_control.m_image.LoadFromResource(GetModuleHandleW(nullptr), IDB_TALL);
        ASSERT_FALSE(m_control.m_image.IsNull());
    }

    HWND m_parent = nullptr;
    CImageStatic m_control;
};

// Meant: the context that a paint draws in stays unreleased. What the platform keeps for such a
// context until its window goes is measured by contexts of this test's own.
TEST_F(ImageSoak, APaintLeavesADeviceContext) {
    const ResourceCounts ofAContext = GrowthOver(1, [this] { GetDC(m_control.m_hWnd); });
    const ImportHook<decltype(&GetDC)> get("USER32.dll", "GetDC", &NoteGetDC);
    const ImportHook<decltype(&ReleaseDC)> release("USER32.dll", "ReleaseDC", &NoteReleaseDC);
    g_getDC = get.Original();
    g_releaseDC = release.Original();
    g_held.reserve(10000);
    size_t paints = 0;

    Soak(
        "paints of an image", SoakRounds(1000),
        [&] {
            InvalidateRect(m_control.m_hWnd, nullptr, TRUE);
            UpdateWindow(m_control.m_hWnd);
            ASSERT_EQ(g_held.size(), ++paints);
        },
        ofAContext);
}

// Meant: a second load leaves the first bitmap to itself.
TEST_F(ImageSoak, AReloadLosesABitmap) {
    ResourceCounts lost;
    lost.gdiObjects = 1;

    Soak(
        "reloads of an image", SoakRounds(1000), [this] { Reload(); }, lost);
}

}  // namespace

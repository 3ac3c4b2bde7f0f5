#include "ui/tip_scene.h"

#include "support/call_journal.h"
#include "support/canvas.h"
#include "support/import_hook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cwchar>
#include <iterator>
#include <string>

// What a tool tip is when it has been made, its window's messages, and its end.

namespace {

using testing::ElementsAre;

CREATESTRUCTW g_made;

HWND WINAPI NoteCreation(DWORD extendedStyle, LPCWSTR className, LPCWSTR windowName, DWORD style,
                         int x, int y, int width, int height, HWND parent, HMENU menu,
                         HINSTANCE instance, LPVOID parameter);

/// Notes what windows are made of, and makes none if it is to fail.
class CreationHook {
  public:
    explicit CreationHook(bool fails = false)
        : m_hook(GetModuleHandleW(L"drafthost17.dll"), "USER32.dll", "CreateWindowExW",
                 NoteCreation) {
        g_made = {};
        g_original = m_hook.Original();
        g_fails = fails;
    }
    static inline decltype(&CreateWindowExW) g_original = nullptr;
    static inline bool g_fails = false;

  private:
    ImportHook<decltype(&CreateWindowExW)> m_hook;
};

HWND WINAPI NoteCreation(DWORD extendedStyle, LPCWSTR className, LPCWSTR windowName, DWORD style,
                         int x, int y, int width, int height, HWND parent, HMENU menu,
                         HINSTANCE instance, LPVOID parameter) {
    g_made = {
        parameter,  instance,  menu,         parent, height, width, y, x, static_cast<LONG>(style),
        windowName, className, extendedStyle};
    if (CreationHook::g_fails) return nullptr;
    return CreationHook::g_original(extendedStyle, className, windowName, style, x, y, width,
                                    height, parent, menu, instance, parameter);
}

constexpr COLORREF marker = RGB(12, 34, 56);

/// Whether nothing has been drawn on a canvas of the marker's colour.
bool IsUntouched(const Canvas& canvas) {
    for (int y = 0; y < canvas.Height(); ++y) {
        for (int x = 0; x < canvas.Width(); ++x) {
            if (canvas.Pixel(x, y) != marker) return false;
        }
    }
    return true;
}

using CustomToolTipTest = TipSceneTest;

}  // namespace

TEST_F(CustomToolTipTest, FieldsStartAsDocumented) {
    RecordingTip fresh(owner);

    EXPECT_TRUE(fresh.m_firstRelay);
    EXPECT_FALSE(fresh.m_showing);
    EXPECT_EQ(fresh.m_leaveCount, 0);
    EXPECT_EQ(fresh.m_lastPoint.x, 0);
    EXPECT_EQ(fresh.m_lastPoint.y, 0);
    EXPECT_EQ(fresh.m_idlePeriod, 0u);
    EXPECT_FALSE(fresh.m_idleDismissed);
    EXPECT_EQ(fresh.m_idlePoint.x, 0);
    EXPECT_EQ(fresh.m_idlePoint.y, 0);
    EXPECT_FALSE(fresh.m_anchorToItem);
    EXPECT_EQ(fresh.m_fadePeriod, 55);
    EXPECT_EQ(fresh.m_fadeSteps, 10);
    EXPECT_EQ(fresh.m_fadeStep, 0.1);
    EXPECT_EQ(fresh.m_owner, owner.m_hWnd);
    EXPECT_EQ(fresh.m_width, 300);
    EXPECT_EQ(fresh.m_height, 100);
    EXPECT_EQ(fresh.m_maxTextWidth, 300);
    EXPECT_EQ(fresh.m_tips.size() + fresh.m_controls.size() + fresh.m_rects.size(), 0u);
    EXPECT_EQ(fresh.m_fadeLevel, 1.0);
    EXPECT_EQ(fresh.m_current, -1);
    EXPECT_TRUE(fresh.m_fadeEnabled);
    EXPECT_FALSE(RecordingTip(owner, false).m_fadeEnabled);
}

TEST_F(CustomToolTipTest, FieldsLieInTheirOrder) {
    const auto at = [this](const auto& field) {
        return reinterpret_cast<const char*>(&field) - reinterpret_cast<const char*>(tip);
    };
    const ptrdiff_t offsets[] = {
        at(tip->m_firstRelay), at(tip->m_showing),      at(tip->m_leaveCount),
        at(tip->m_lastPoint),  at(tip->m_idlePeriod),   at(tip->m_idleDismissed),
        at(tip->m_idlePoint),  at(tip->m_anchorToItem), at(tip->m_fadePeriod),
        at(tip->m_fadeSteps),  at(tip->m_fadeStep),     at(tip->m_owner),
        at(tip->m_width),      at(tip->m_height),       at(tip->m_maxTextWidth),
        at(tip->m_tips),       at(tip->m_controls),     at(tip->m_rects),
        at(tip->m_fadeLevel),  at(tip->m_current),      at(tip->m_fadeEnabled)};

    for (size_t i = 1; i < std::size(offsets); ++i) {
        EXPECT_LT(offsets[i - 1], offsets[i]) << "field " << i;
    }
}

TEST_F(CustomToolTipTest, WindowIsMadeAsABorderedPopupWithoutParentAndClassExtras) {
    const CreationHook hook;

    RecordingTip fresh(owner);

    EXPECT_EQ(g_made.dwExStyle, 0x88u);
    EXPECT_EQ(static_cast<DWORD>(g_made.style), 0x80800000u);
    EXPECT_STREQ(g_made.lpszName, L"");
    EXPECT_TRUE(g_made.x == 0 && g_made.y == 0 && g_made.cx == 1 && g_made.cy == 1);
    EXPECT_EQ(g_made.hwndParent, nullptr);
    EXPECT_EQ(g_made.hMenu, nullptr);
    EXPECT_EQ(g_made.lpCreateParams, nullptr);
    EXPECT_EQ(GetClassLongPtrW(fresh.m_hWnd, GCL_STYLE), 0u);
    EXPECT_EQ(GetClassLongPtrW(fresh.m_hWnd, GCLP_HCURSOR), 0u);
    EXPECT_EQ(GetClassLongPtrW(fresh.m_hWnd, GCLP_HBRBACKGROUND), 0u);
    EXPECT_EQ(GetClassLongPtrW(fresh.m_hWnd, GCLP_HICON), 0u);
}

TEST_F(CustomToolTipTest, WindowIsNeitherVisibleNorLayeredNorShaped) {
    const HRGN region = CreateRectRgn(0, 0, 0, 0);

    EXPECT_FALSE(tip->IsWindowVisible());
    EXPECT_EQ(tip->GetExStyle() & WS_EX_LAYERED, 0u);
    EXPECT_EQ(GetWindowRgn(tip->m_hWnd, region), ERROR);
    EXPECT_EQ(State(), L"New");
    DeleteObject(region);
}

TEST_F(CustomToolTipTest, ClassHasNoRuntimeRecordOfItsOwn) {
    EXPECT_EQ(tip->GetRuntimeClass(), RUNTIME_CLASS(CWnd));
}

TEST_F(CustomToolTipTest, MessageMapHasSixRowsInTheirOrderOverThatOfCWnd) {
    struct MapReader : CustomToolTip {
        using CustomToolTip::GetThisMessageMap;
    };
    struct BaseMapReader : CWnd {
        using CWnd::GetThisMessageMap;
    };
    const AFX_MSGMAP* map = MapReader::GetThisMessageMap();
    std::vector<UINT> messages;

    for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->nSig != AfxSig_end; ++entry) {
        messages.push_back(entry->nMessage);
    }

    EXPECT_THAT(messages,
                ElementsAre(WM_PAINT, WM_MOUSEMOVE, WM_TIMER, WM_ERASEBKGND, WM_MOVE, WM_ACTIVATE));
    EXPECT_EQ(map->pfnGetBaseMap(), BaseMapReader::GetThisMessageMap());
}

TEST_F(CustomToolTipTest, EraseIsAnsweredWithOneAndNothingIsDrawn) {
    const Canvas canvas(8, 8, marker);

    EXPECT_EQ(tip->SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(canvas.Handle())), 1);

    EXPECT_TRUE(IsUntouched(canvas));
    EXPECT_THAT(Calls(), ElementsAre());
}

TEST_F(CustomToolTipTest, PaintGoesToPaintTipOnAPaintContext) {
    RestAt(inFirst);
    Calls();

    tip->Invalidate();
    tip->UpdateWindow();

    EXPECT_THAT(Calls(), ElementsAre(L"PaintTip"));
    EXPECT_FALSE(GetUpdateRect(tip->m_hWnd, nullptr, FALSE));
}

TEST_F(CustomToolTipTest, MoveGoesToDefaultProcessing) {
    const NotedDefault noted;

    tip->SendMessage(WM_MOVE, 0, MAKELPARAM(3, 4));

    EXPECT_THAT(Calls(), ElementsAre(L"Default"));
}

TEST_F(CustomToolTipTest, ActivationGoesBackToTheOwnerWhetherGainedOrLost) {
    const NotedDefault noted;
    platform.tip = owner.m_hWnd;  // The window that the calls are to be about.

    for (const WPARAM state : {WA_ACTIVE, WA_CLICKACTIVE, WA_INACTIVE}) {
        CallJournal::Clear();
        tip->SendMessage(WM_ACTIVATE, state);
        EXPECT_THAT(CallJournal::Calls(), ElementsAre(L"Default", L"SetActiveWindow")) << state;
    }
}

TEST_F(CustomToolTipTest, DestroyedWindowEndsTheObjectOnce) {
    const HWND window = tip->m_hWnd;

    tip->DestroyWindow();
    tip = nullptr;

    EXPECT_EQ(RecordingTip::deletions, 1);
    EXPECT_EQ(contentDeletions, 2);
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(CustomToolTipTest, OwnersDeletionTakesTheWindowAlongAndHappensOnce) {
    RestAt(inFirst);
    const HWND window = tip->m_hWnd;
    Calls();

    CustomToolTip* const base = tip;
    delete base;
    tip = nullptr;

    EXPECT_EQ(RecordingTip::deletions, 1);
    EXPECT_EQ(contentDeletions, 2);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_THAT(Calls(), ElementsAre());
}

TEST_F(CustomToolTipTest, FailedCreationGivesAnObjectThatItsOwnerDeletesOnce) {
    const CreationHook hook(true);

    CustomToolTip* const windowless = new RecordingTip(owner);

    EXPECT_EQ(g_made.dwExStyle, 0x88u);
    EXPECT_EQ(windowless->m_hWnd, nullptr);
    EXPECT_TRUE(windowless->AddTip(&first, new CountedContent(contentDeletions)));
    EXPECT_EQ(RecordingTip::deletions, 0);
    delete windowless;
    EXPECT_EQ(RecordingTip::deletions, 1);
    EXPECT_EQ(contentDeletions, 1);
}

TEST_F(CustomToolTipTest, OwnersEndLeavesTheTipsWindow) {
    RestAt(inFirst);

    owner.DestroyWindow();

    EXPECT_TRUE(IsWindow(tip->m_hWnd));
    EXPECT_EQ(GetWindow(tip->m_hWnd, GW_OWNER), nullptr);
    EXPECT_EQ(GetParent(tip->m_hWnd), nullptr);
}

TEST_F(CustomToolTipTest, BaseClassPlacesItsDefaultSizeAndDrawsNothing) {
    struct PlainTip : CustomToolTip {
        using CustomToolTip::CustomToolTip;
        using CustomToolTip::FadeTimer;
        using CustomToolTip::HoverTimer;
        using CustomToolTip::m_current;
        using CustomToolTip::m_fadeLevel;
        using CustomToolTip::PaintTip;
    };
    auto* plain = new PlainTip(owner, true);
    plain->AddTip(&first, new CountedContent(contentDeletions));
    platform.cursor = inFirst;
    plain->RelayMouseMove();

    plain->SendMessage(WM_TIMER, PlainTip::HoverTimer);
    plain->SendMessage(WM_TIMER, PlainTip::FadeTimer);
    const Canvas canvas(300, 100, marker);
    plain->PaintTip(CDC::FromHandle(canvas.Handle()));

    EXPECT_TRUE(IsUntouched(canvas));
    EXPECT_EQ(plain->m_fadeLevel, 0.1);
    RECT rect = {};
    GetWindowRect(plain->m_hWnd, &rect);
    const RECT expected = {165, 145, 465, 245};
    EXPECT_TRUE(EqualRect(&rect, &expected));
    EXPECT_EQ(plain->m_current, 0);
    plain->DestroyWindow();
}

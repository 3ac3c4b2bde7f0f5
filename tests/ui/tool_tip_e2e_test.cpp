#include "ui/plus_scene.h"

#include "ui/message_pump.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <vector>

// A tool tip on the screen, under the pointer that this test moves, driven by real messages alone.

namespace {

/// An owner as a dialog would be one: makes the tip at the first mouse move and relays each.
class TipOwner : public CWnd {
  public:
    BOOL PreTranslateMessage(MSG* message) override {
        if (message->message == WM_MOUSEMOVE) {
            ++relays;
            if (tip == nullptr) MakeTip();
            tip->RelayMouseMove();
        }
        return CWnd::PreTranslateMessage(message);
    }

    CButton control;
    OpenTipPlus* tip = nullptr;
    int relays = 0;

  private:
    void MakeTip() {
        tip = new OpenTipPlus(m_hWnd, GetModuleHandleW(nullptr));
        tip->AddTip(&control, new TipDataPlus(L"A tip with a picture: 提示文字", IDB_TALL));
    }
};

/// All tests share the owner and its tip, and neither is destroyed: the platform waits two seconds
/// for a window manager, which isn't there, at the end of each window that was shown. The process's
/// end needs no such wait.
TipOwner& SharedOwner() {
    static TipOwner* const owner = [] {
        KeepGdiplusRunning();
        auto* const made = new TipOwner;
        made->CreateEx(0, AfxRegisterWndClass(0, LoadCursorW(nullptr, IDC_ARROW)), L"", WS_POPUP,
                       500, 300, 400, 300, nullptr, nullptr);
        made->control.Create(L"control", WS_CHILD | WS_VISIBLE, CRect(50, 50, 200, 100), made, 1);
        made->ShowWindow(SW_SHOW);
        made->UpdateWindow();
        return made;
    }();
    return *owner;
}

class ToolTipOnScreen : public testing::Test {
  protected:
    ToolTipOnScreen() { SetCursorPos(50, 900); }
    /// Leaves no tip up: a pointer that is elsewhere dismisses it at once.
    ~ToolTipOnScreen() override {
        SetCursorPos(50, 900);
        if (owner.tip == nullptr) return;
        owner.tip->SendMessage(WM_MOUSEMOVE, 0, 0);
        owner.tip->m_idlePeriod = 0;
    }

    /// As PumpUntil; the owner sees each message first.
    bool DispatchUntil(const std::function<bool()>& condition) {
        return PumpUntil(condition, [this](MSG& message) {
            if (CWnd::WalkPreTranslateTree(owner, &message)) return;
            const bool isHoverTick = message.message == WM_TIMER && message.wParam == 996;
            DispatchMessageW(&message);
            if (isHoverTick) ++hoverTicks;
        });
    }

    /// Moves the pointer and waits until the owner has seen it there.
    bool MovePointer(int x, int y) {
        const int before = owner.relays;
        SetCursorPos(x, y);
        return DispatchUntil([&] { return owner.relays > before; });
    }

    RECT TipRect() const {
        RECT rect = {};
        GetWindowRect(owner.tip->m_hWnd, &rect);
        return rect;
    }
    bool IsParked() const {
        const RECT parked = {0, 10, 1, 11};
        const RECT rect = TipRect();
        return EqualRect(&rect, &parked) != FALSE;
    }
    bool IsUp() const { return owner.tip != nullptr && owner.tip->m_current == 0; }
    bool FadeIsOver() const { return owner.tip->m_fadeLevel > 1.0; }

    TipOwner& owner = SharedOwner();
    int hoverTicks = 0;
};

bool Near(COLORREF left, COLORREF right) {
    return std::abs(GetRValue(left) - GetRValue(right)) <= 2 &&
           std::abs(GetGValue(left) - GetGValue(right)) <= 2 &&
           std::abs(GetBValue(left) - GetBValue(right)) <= 2;
}

}  // namespace

TEST_F(ToolTipOnScreen, ComesFadesAndLeaves) {
    ASSERT_TRUE(MovePointer(600, 370));
    ASSERT_TRUE(DispatchUntil([this] { return IsUp(); }));
    const RECT rect = TipRect();
    EXPECT_EQ(rect.left, 615);
    EXPECT_EQ(rect.top, 385);
    EXPECT_EQ(rect.right - rect.left, owner.tip->m_width);
    EXPECT_EQ(rect.bottom - rect.top, owner.tip->m_height);

    std::vector<int> blues;  // Of the left edge: the fade takes it from white to a pale yellow.
    ASSERT_TRUE(DispatchUntil([&] {
        const int blue = GetBValue(CClientDC(owner.tip).GetPixel(0, 1));
        if (blues.empty() || blues.back() != blue) blues.push_back(blue);
        return FadeIsOver();
    }));

    EXPECT_GE(blues.front(), 250);
    EXPECT_TRUE(std::is_sorted(blues.rbegin(), blues.rend()));
    EXPECT_GE(blues.size(), 4u);
    EXPECT_TRUE(Near(CClientDC(owner.tip).GetPixel(0, 1), RGB(235, 235, 200)));

    SetCursorPos(50, 900);
    EXPECT_TRUE(DispatchUntil([this] { return IsParked(); }));
    EXPECT_TRUE(owner.tip->IsWindowVisible());
    EXPECT_NE(owner.tip->m_backBuffer, nullptr);  // The picture stays for a later paint.
}

TEST_F(ToolTipOnScreen, ShowsThePictureButForTwoColumnsAndRowsUnderItsBorder) {
    ASSERT_TRUE(MovePointer(600, 370));
    ASSERT_TRUE(DispatchUntil([this] { return IsUp() && FadeIsOver(); }));
    RECT client = {};
    owner.tip->GetClientRect(&client);
    CClientDC dc(owner.tip);

    EXPECT_EQ(client.right, owner.tip->m_width - 2);
    EXPECT_EQ(client.bottom, owner.tip->m_height - 2);
    int different = 0;
    for (int y = 0; y < client.bottom; ++y) {
        for (int x = 0; x < client.right; ++x) {
            Gdiplus::ARGB drawn = 0;
            Gdiplus::DllExports::GdipBitmapGetPixel(owner.tip->m_backBuffer, x, y, &drawn);
            const COLORREF color = RGB(drawn >> 16 & 0xFF, drawn >> 8 & 0xFF, drawn & 0xFF);
            if (!Near(dc.GetPixel(x, y), color)) ++different;
        }
    }
    EXPECT_EQ(different, 0);
    EXPECT_EQ(dc.GetPixel(2, 2), RGB(0, 128, 0));
}

TEST_F(ToolTipOnScreen, StaysAwayAfterTheIdleRuleUntilThePointerMoves) {
    ASSERT_TRUE(MovePointer(590, 370));
    owner.tip->m_idlePeriod = 300;
    ASSERT_TRUE(MovePointer(600, 370));
    ASSERT_TRUE(DispatchUntil([this] { return IsUp(); }));
    ASSERT_TRUE(DispatchUntil([this] { return IsParked(); }));

    // A mouse message at the same point, as windows get when others move under the pointer.
    const int ticks = hoverTicks;
    owner.control.PostMessage(WM_MOUSEMOVE, 0, MAKELPARAM(50, 20));
    ASSERT_TRUE(DispatchUntil([&] { return hoverTicks > ticks; }));
    EXPECT_TRUE(IsParked());
    EXPECT_FALSE(IsUp());

    ASSERT_TRUE(MovePointer(601, 370));
    EXPECT_TRUE(DispatchUntil([this] { return IsUp(); }));
}

TEST_F(ToolTipOnScreen, GivesWayToAPointerThatMeetsItOutsideOfItsEntry) {
    ASSERT_TRUE(MovePointer(690, 395));  // Near the control's corner: the tip reaches beyond it.
    ASSERT_TRUE(DispatchUntil([this] { return IsUp(); }));
    const RECT rect = TipRect();

    SetCursorPos(rect.left + 20, rect.top + 20);

    EXPECT_TRUE(DispatchUntil([this] { return IsParked(); }));
}

TEST_F(ToolTipOnScreen, DoesntStayTheActiveWindow) {
    ASSERT_TRUE(MovePointer(600, 370));
    ASSERT_TRUE(DispatchUntil([this] { return IsUp(); }));

    EXPECT_NE(GetActiveWindow(), owner.tip->m_hWnd);
}

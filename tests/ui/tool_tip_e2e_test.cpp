#include "ui/plus_scene.h"

#include "support/window_capture.h"
#include "ui/message_pump.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <memory>
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
    /// How much lighter the tip is up and left of its black text than down and right of it, by the
    /// shadows that stand out there.
    int LightFromTheUpperLeft() const {
        const std::unique_ptr<Canvas> shown = CaptureWindow(owner.tip->m_hWnd);
        const auto light = [&](int x, int y) {
            const COLORREF color = shown->Pixel(x, y);
            return GetRValue(color) + GetGValue(color) + GetBValue(color);
        };
        int difference = 0;
        for (int y = 1; y < shown->Height() - 1; ++y) {
            for (int x = 20; x < shown->Width() - 1; ++x) {  // Past the bitmap.
                if (light(x, y) < 150) difference += light(x - 1, y - 1) - light(x + 1, y + 1);
            }
        }
        return difference;
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

void AddIfNew(std::vector<int>& values, int value) {
    if (values.empty() || values.back() != value) values.push_back(value);
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

    // Nothing has been dispatched since the show: this is its first picture.
    EXPECT_LT(LightFromTheUpperLeft(), 0);
    RECT client = {};
    owner.tip->GetClientRect(&client);
    std::vector<int> left;   // Of the left edge: the fade takes it from white to a pale yellow.
    std::vector<int> right;  // Of the right edge: from tan to white.
    ASSERT_TRUE(DispatchUntil([&] {
        CClientDC dc(owner.tip);
        AddIfNew(left, GetBValue(dc.GetPixel(0, 1)));
        AddIfNew(right, GetBValue(dc.GetPixel(client.right - 1, 1)));
        return FadeIsOver();
    }));

    EXPECT_GE(left.front(), 250);
    EXPECT_TRUE(std::is_sorted(left.rbegin(), left.rend()));
    EXPECT_GE(left.size(), 4u);
    EXPECT_TRUE(Near(CClientDC(owner.tip).GetPixel(0, 1), RGB(235, 235, 200)));
    EXPECT_LE(right.front(), 150);
    EXPECT_TRUE(std::is_sorted(right.begin(), right.end()));
    EXPECT_GE(right.size(), 4u);
    EXPECT_TRUE(Near(CClientDC(owner.tip).GetPixel(client.right - 1, 1), RGB(255, 255, 255)));
    EXPECT_GT(LightFromTheUpperLeft(), 0);

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
    EXPECT_EQ(owner.tip->m_leaveCount, 0);  // It wasn't the leave timer that parked it.
}

TEST_F(ToolTipOnScreen, DoesntStayTheActiveWindow) {
    ASSERT_TRUE(MovePointer(600, 370));
    ASSERT_TRUE(DispatchUntil([this] { return IsUp(); }));

    SetActiveWindow(owner.tip->m_hWnd);

    EXPECT_EQ(GetActiveWindow(), owner.m_hWnd);
}

#include "test_window.h"

#include <gtest/gtest.h>

#include <string>

namespace {

/// Writes down which handler got which arguments.
class Recorder : public CWnd {
  public:
    std::string m_log;

    void Note(const std::string& line) { m_log += line + ";"; }

  protected:
    afx_msg void OnMouseMove(UINT keys, CPoint point) {
        Note("move " + std::to_string(keys) + " " + std::to_string(point.x) + " " +
             std::to_string(point.y));
    }
    afx_msg void OnTimer(UINT_PTR id) { Note("timer " + std::to_string(id)); }
    afx_msg void OnMove(int x, int y) {
        Note("moved " + std::to_string(x) + " " + std::to_string(y));
    }
    afx_msg void OnSize(UINT type, int width, int height) {
        Note("sized " + std::to_string(type) + " " + std::to_string(width) + " " +
             std::to_string(height));
    }
    afx_msg void OnActivate(UINT state, CWnd* other, BOOL minimized) {
        Note("activate " + std::to_string(state) + (other == this ? " self " : " other ") +
             std::to_string(minimized));
    }
    afx_msg BOOL OnEraseBkgnd(CDC* context) {
        Note(context->m_hDC == m_context ? "erase" : "erase elsewhere");
        return 7;
    }
    afx_msg LRESULT OnOwn(WPARAM wParam, LPARAM lParam) {
        Note("own");
        return static_cast<LRESULT>(wParam) * 10 + lParam;
    }
    afx_msg void OnAccept() { Note("accept"); }
    afx_msg void OnDoubleClicked() { Note("double"); }

    DECLARE_MESSAGE_MAP()

  public:
    HDC m_context = nullptr;
};

constexpr UINT ownMessage = WM_APP + 3;

BEGIN_MESSAGE_MAP(Recorder, CWnd)
ON_WM_MOUSEMOVE()
ON_WM_TIMER()
ON_WM_MOVE()
ON_WM_SIZE()
ON_WM_ACTIVATE()
ON_WM_ERASEBKGND()
ON_MESSAGE(ownMessage, OnOwn)
ON_COMMAND(40, OnAccept)
ON_CONTROL(BN_DBLCLK, 41, OnDoubleClicked)
END_MESSAGE_MAP()

/// Answers one message itself and leaves the rest to its base.
class Derived : public Recorder {
  protected:
    afx_msg void OnTimer(UINT_PTR) { Note("derived timer"); }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Derived, Recorder)
ON_WM_TIMER()
END_MESSAGE_MAP()

class OfStatic : public CStatic {
  public:
    const AFX_MSGMAP* Map() const { return GetMessageMap(); }

  protected:
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(OfStatic, CStatic)
ON_WM_PAINT()
ON_WM_MOVE()
END_MESSAGE_MAP()

struct WindowMap : CWnd {
    static const AFX_MSGMAP* Map() { return GetThisMessageMap(); }
};

}  // namespace

TEST(MessageMap, HandlersGetTheMessagesArguments) {
    Recorder window;
    ASSERT_TRUE(MakeTestWindow(window));
    const HWND handle = window.m_hWnd;
    window.m_context = GetDC(handle);
    window.m_log.clear();

    SendMessageW(handle, WM_MOUSEMOVE, MK_SHIFT, MAKELPARAM(-3, 7));
    SendMessageW(handle, WM_TIMER, 994, 0);
    SendMessageW(handle, WM_MOVE, 0, MAKELPARAM(-5, 6));
    SendMessageW(handle, WM_SIZE, SIZE_MAXIMIZED, MAKELPARAM(40000, 2));
    SendMessageW(handle, WM_ACTIVATE, MAKEWPARAM(WA_CLICKACTIVE, 1),
                 reinterpret_cast<LPARAM>(handle));
    const LRESULT erased =
        SendMessageW(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(window.m_context), 0);
    const LRESULT own = SendMessageW(handle, ownMessage, 4, 2);

    EXPECT_EQ(window.m_log,
              "move 4 -3 7;timer 994;moved -5 6;sized 2 40000 2;activate 2 self 1;erase;own;");
    EXPECT_EQ(erased, 7);
    EXPECT_EQ(own, 42);
    ReleaseDC(handle, window.m_context);
}

TEST(MessageMap, CommandsGoByIdAndNotificationCode) {
    Recorder window;
    ASSERT_TRUE(MakeTestWindow(window));
    window.m_log.clear();

    SendMessageW(window, WM_COMMAND, MAKEWPARAM(40, 0), 0);
    SendMessageW(window, WM_COMMAND, MAKEWPARAM(41, BN_DBLCLK), 0);
    SendMessageW(window, WM_COMMAND, MAKEWPARAM(41, BN_CLICKED), 0);
    SendMessageW(window, WM_COMMAND, MAKEWPARAM(39, 0), 0);

    EXPECT_EQ(window.m_log, "accept;double;");
}

TEST(MessageMap, DerivedClassComesBeforeItsBase) {
    Derived window;
    ASSERT_TRUE(MakeTestWindow(window));
    window.m_log.clear();

    SendMessageW(window, WM_TIMER, 1, 0);
    SendMessageW(window, WM_MOUSEMOVE, 0, 0);

    EXPECT_EQ(window.m_log, "derived timer;move 0 0 0;");
}

TEST(MessageMap, RowsStandInTheOrderOfTheirMacrosWithAnEndRow) {
    const AFX_MSGMAP_ENTRY* rows = OfStatic().Map()->lpEntries;

    EXPECT_EQ(rows[0].nMessage, static_cast<UINT>(WM_PAINT));
    EXPECT_EQ(rows[1].nMessage, static_cast<UINT>(WM_MOVE));
    EXPECT_EQ(rows[2].nSig, static_cast<UINT_PTR>(AfxSig_end));
}

TEST(MessageMap, StaticControlHasNoMapSoThatTheWindowsStandsBehindItsHeirs) {
    EXPECT_EQ(OfStatic().Map()->pfnGetBaseMap(), WindowMap::Map());
}

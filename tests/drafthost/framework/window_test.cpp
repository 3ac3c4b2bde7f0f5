#include "test_window.h"

#include "support/import_hook.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

/// Counts what comes at its window's end; `m_deletesItself` makes it a window-owned object.
class Mortal : public CWnd {
  public:
    explicit Mortal(int* ends = nullptr, int* destructions = nullptr)
        : m_ends(ends), m_destructions(destructions) {}
    ~Mortal() override {
        if (m_destructions != nullptr) ++*m_destructions;
    }

    bool m_deletesItself = false;

  protected:
    void PostNcDestroy() override {
        CWnd::PostNcDestroy();
        EXPECT_EQ(m_hWnd, nullptr);
        ++*m_ends;
        if (m_deletesItself) delete this;
    }

  private:
    int* m_ends;
    int* m_destructions;
};

/// The messages that reach the object, in their order.
class Listener : public CWnd {
  public:
    std::vector<UINT> m_messages;

  protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        m_messages.push_back(message);
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

/// Its handlers ask for the default processing.
class Defaulting : public CWnd {
  public:
    LRESULT m_default = -1;

  protected:
    afx_msg LRESULT OnGetTextLength(WPARAM, LPARAM) { return m_default = Default(); }
    afx_msg LRESULT OnOuter(WPARAM, LPARAM) {
        ::SendMessageW(m_hWnd, WM_APP, 0, 0);  // The current message is another one meanwhile.
        return Default();
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Defaulting, CWnd)
ON_MESSAGE(WM_GETTEXTLENGTH, OnGetTextLength)
ON_MESSAGE(WM_GETDLGCODE, OnOuter)
END_MESSAGE_MAP()

class Refusing : public CWnd {
  public:
    int m_ends = 0;

  protected:
    afx_msg int OnCreate(LPCREATESTRUCT) { return -1; }
    void PostNcDestroy() override { ++m_ends; }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Refusing, CWnd)
ON_WM_CREATE()
END_MESSAGE_MAP()

HWND g_inputMethodWindow = nullptr;
decltype(&CreateWindowExW) g_createWindow = nullptr;

/// As where a thread's first window brings the input method's window with it.
HWND WINAPI CreateInputMethodWindowFirst(DWORD extendedStyle, LPCWSTR className, LPCWSTR name,
                                         DWORD style, int x, int y, int width, int height,
                                         HWND parent, HMENU menu, HINSTANCE instance,
                                         LPVOID parameter) {
    WNDCLASSW inputMethod = {};
    inputMethod.style = CS_IME;
    inputMethod.lpfnWndProc = ::DefWindowProcW;
    inputMethod.lpszClassName = L"framework test input method";
    RegisterClassW(&inputMethod);
    g_inputMethodWindow = g_createWindow(0, inputMethod.lpszClassName, L"", WS_POPUP, 0, 0, 1, 1,
                                         nullptr, nullptr, nullptr, nullptr);
    return g_createWindow(extendedStyle, className, name, style, x, y, width, height, parent, menu,
                          instance, parameter);
}

HWND MakeBareEdit() {
    return CreateWindowExW(0, L"EDIT", L"abc", WS_POPUP, 0, 0, 50, 20, nullptr, nullptr, nullptr,
                           nullptr);
}

}  // namespace

TEST(Window, CreateExMakesItAsTold) {
    CWnd window;
    const LPCTSTR windowClass = AfxRegisterWndClass(0);

    ASSERT_TRUE(window.CreateEx(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, windowClass, L"",
                                WS_POPUP | WS_BORDER, 0, 0, 1, 1, nullptr, nullptr));

    EXPECT_EQ(window.GetStyle() & ~static_cast<DWORD>(WS_CLIPSIBLINGS),
              static_cast<DWORD>(WS_POPUP | WS_BORDER));
    EXPECT_EQ(window.GetExStyle(), static_cast<DWORD>(WS_EX_TOPMOST | WS_EX_TOOLWINDOW));
    CRect rectangle;
    window.GetWindowRect(rectangle);
    EXPECT_EQ(rectangle.Width(), 1);
    EXPECT_EQ(rectangle.Height(), 1);
    EXPECT_FALSE(window.IsWindowVisible());
    wchar_t name[100] = {};
    GetClassNameW(window, name, 100);
    EXPECT_STREQ(name, windowClass);
}

TEST(Window, ObjectGetsTheCreationMessagesToo) {
    Listener window;

    ASSERT_TRUE(MakeTestWindow(window));

    ASSERT_FALSE(window.m_messages.empty());
    EXPECT_EQ(window.m_messages.front(), static_cast<UINT>(WM_NCCREATE));
}

TEST(Window, ControlOfThePlatformGetsItsObjectFromTheFirstMessageOn) {
    Listener window;

    ASSERT_TRUE(window.CreateEx(0, L"EDIT", L"x", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr));

    EXPECT_EQ(window.m_messages.front(), static_cast<UINT>(WM_NCCREATE));
    EXPECT_EQ(window.GetWindowTextLength(), 1) << "the control's own processing stands behind it";
}

TEST(Window, InputMethodsWindowIsNotTakenForTheOneBeingMade) {
    CWnd window;
    {
        ImportHook<decltype(&CreateWindowExW)> hook(GetModuleHandleW(L"drafthost17.dll"),
                                                    "USER32.dll", "CreateWindowExW",
                                                    &CreateInputMethodWindowFirst);
        g_createWindow = hook.Original();
        ASSERT_TRUE(MakeTestWindow(window));
    }

    EXPECT_EQ(CWnd::FromHandlePermanent(g_inputMethodWindow), nullptr);
    EXPECT_NE(window.m_hWnd, g_inputMethodWindow);
    ::DestroyWindow(g_inputMethodWindow);
}

TEST(Window, UnknownClassMakesNoWindowAndLeavesTheObjectAsItWas) {
    int ends = 0;
    Mortal window(&ends);

    EXPECT_FALSE(window.CreateEx(0, L"no such class", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr));

    EXPECT_EQ(window.m_hWnd, nullptr);
    EXPECT_EQ(ends, 0);
    EXPECT_TRUE(MakeTestWindow(window));
}

TEST(Window, CreationRefusedByTheObjectEndsTheWindow) {
    Refusing window;

    EXPECT_FALSE(MakeTestWindow(window));

    EXPECT_EQ(window.m_hWnd, nullptr);
    EXPECT_EQ(window.m_ends, 1);
}

TEST(Window, DestroyWindowReachesPostNcDestroyOnce) {
    int ends = 0;
    Mortal window(&ends);
    ASSERT_TRUE(MakeTestWindow(window));
    const HWND handle = window.m_hWnd;

    EXPECT_TRUE(window.DestroyWindow());

    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(IsWindow(handle));
    EXPECT_EQ(CWnd::FromHandlePermanent(handle), nullptr);
    EXPECT_FALSE(window.DestroyWindow()) << "there is none any more";
}

TEST(Window, ObjectMayDeleteItselfInPostNcDestroy) {
    int ends = 0;
    int destructions = 0;
    Mortal* window = new Mortal(&ends, &destructions);
    window->m_deletesItself = true;
    ASSERT_TRUE(MakeTestWindow(*window));

    ::DestroyWindow(window->m_hWnd);

    EXPECT_EQ(ends, 1);
    EXPECT_EQ(destructions, 1);
}

TEST(Window, DestructorDestroysTheWindowAndReachesTheBaseLevelOnly) {
    int ends = 0;
    int destructions = 0;
    HWND handle = nullptr;
    {
        Mortal window(&ends, &destructions);
        window.m_deletesItself = true;
        ASSERT_TRUE(MakeTestWindow(window));
        handle = window.m_hWnd;
    }
    EXPECT_FALSE(IsWindow(handle));
    EXPECT_EQ(ends, 0);
    EXPECT_EQ(destructions, 1);
}

TEST(Window, TheSafeHandleOfNoWindowIsNull) {
    CWnd window;
    EXPECT_EQ(window.GetSafeHwnd(), nullptr);
    ASSERT_TRUE(MakeTestWindow(window));
    const CWnd* volatile nothing = nullptr;  // The compiler must not see that it is null.

    EXPECT_EQ(window.GetSafeHwnd(), window.m_hWnd);
    EXPECT_EQ(nothing->GetSafeHwnd(), nullptr);
}

TEST(Window, DefaultGivesTheResultOfTheMessage) {
    Defaulting window;
    const HWND edit = MakeBareEdit();
    ASSERT_TRUE(window.SubclassWindow(edit));

    EXPECT_EQ(SendMessageW(edit, WM_GETTEXTLENGTH, 0, 0), 3);

    EXPECT_EQ(window.m_default, 3);
}

TEST(Window, DefaultIsForTheMessageAtHandAlsoBehindANestedOne) {
    Defaulting window;
    const HWND edit = MakeBareEdit();
    const LRESULT before = SendMessageW(edit, WM_GETDLGCODE, 0, 0);
    ASSERT_TRUE(window.SubclassWindow(edit));

    EXPECT_EQ(SendMessageW(edit, WM_GETDLGCODE, 0, 0), before);
    EXPECT_NE(before, 0);
}

TEST(Window, SubclassingBindsAWindowThatIsThereAndUnsubclassingGivesItBack) {
    const HWND edit = MakeBareEdit();
    const LONG_PTR procedure = GetWindowLongPtrW(edit, GWLP_WNDPROC);
    Listener window;

    ASSERT_TRUE(window.SubclassWindow(edit));
    SendMessageW(edit, WM_APP, 0, 0);
    EXPECT_EQ(window.m_messages, std::vector<UINT>{WM_APP});
    EXPECT_EQ(window.UnsubclassWindow(), edit);
    SendMessageW(edit, WM_APP, 0, 0);

    EXPECT_EQ(window.m_messages.size(), 1u);
    EXPECT_EQ(GetWindowLongPtrW(edit, GWLP_WNDPROC), procedure);
    DestroyWindow(edit);
}

TEST(Window, UnsubclassingLeavesALaterSubclassingAlone) {
    const HWND edit = MakeBareEdit();
    CWnd window;
    ASSERT_TRUE(window.SubclassWindow(edit));
    static WNDPROC before = nullptr;
    const WNDPROC later = [](HWND handle, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (message == WM_APP) return 5;
        return CallWindowProcW(before, handle, message, wParam, lParam);
    };
    before = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(later)));

    window.UnsubclassWindow();

    EXPECT_EQ(SendMessageW(edit, WM_APP, 0, 0), 5);
    DestroyWindow(edit);
}

TEST(Window, PreTranslationGoesFromTheWindowUpToTheStop) {
    struct Translator : CWnd {
        int m_seen = 0;
        BOOL m_answer = FALSE;
        BOOL PreTranslateMessage(MSG*) override {
            ++m_seen;
            return m_answer;
        }
    };
    Translator outside;
    Translator top;
    Translator child;
    ASSERT_TRUE(MakeTestWindow(outside));
    ASSERT_TRUE(
        top.CreateEx(0, AfxRegisterWndClass(0), L"", WS_CHILD, CRect(0, 0, 9, 9), &outside, 1));
    ASSERT_TRUE(
        child.CreateEx(0, AfxRegisterWndClass(0), L"", WS_CHILD, CRect(0, 0, 9, 9), &top, 1));
    MSG message = {};
    message.hwnd = child;

    EXPECT_FALSE(CWnd::WalkPreTranslateTree(top, &message));
    child.m_answer = TRUE;
    EXPECT_TRUE(CWnd::WalkPreTranslateTree(top, &message));

    EXPECT_EQ(child.m_seen, 2);
    EXPECT_EQ(top.m_seen, 1);
    EXPECT_EQ(outside.m_seen, 0);
    child.DestroyWindow();
    top.DestroyWindow();
}

TEST(WindowClass, OneNameForOneSetOfProperties) {
    const LPCTSTR plain = AfxRegisterWndClass(0);

    EXPECT_EQ(AfxRegisterWndClass(0), plain);
    EXPECT_STRNE(AfxRegisterWndClass(CS_DBLCLKS), plain);
    WNDCLASSW found = {};
    ASSERT_TRUE(GetClassInfoW(GetModuleHandleW(nullptr), plain, &found));
    EXPECT_EQ(found.style, 0u);
    EXPECT_EQ(found.hCursor, nullptr);
    EXPECT_EQ(found.hbrBackground, nullptr);
}

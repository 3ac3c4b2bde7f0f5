#include "ui/image_static.h"

#include "support/call_journal.h"
#include "support/import_hook.h"
#include "ui/image_hooks.h"
#include "ui/picture_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

constexpr COLORREF red = RGB(255, 0, 0);
constexpr COLORREF green = RGB(0, 255, 0);
constexpr COLORREF blue = RGB(0, 0, 255);
constexpr COLORREF white = RGB(255, 255, 255);

constexpr COLORREF ground = RGB(64, 64, 64);

/// Answers with the ground on which static controls paint themselves.
LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    static const HBRUSH brush = CreateSolidBrush(ground);
    if (message != WM_CTLCOLORSTATIC) return DefWindowProcW(window, message, wParam, lParam);
    SetBkColor(reinterpret_cast<HDC>(wParam), ground);
    return reinterpret_cast<LRESULT>(brush);
}

const wchar_t* OwnerClass() {
    static const ATOM atom = [] {
        WNDCLASSW windowClass = {};
        windowClass.lpfnWndProc = OwnerProcedure;
        windowClass.lpszClassName = L"ImageOwner";
        return RegisterClassW(&windowClass);
    }();
    return MAKEINTATOM(atom);
}

/// A window on the screen with a static item in it that the control is bound to.
class ImageStatic : public testing::Test {
  protected:
    void Show(int width, int height) {
        m_parent = CreateWindowExW(WS_EX_TOPMOST, OwnerClass(), L"owner", WS_POPUP | WS_VISIBLE, 40,
                                   40, width + 40, height + 40, nullptr, nullptr, nullptr, nullptr);
        const HWND item = CreateWindowExW(0, L"STATIC", L"MMMMMMMM", WS_CHILD | WS_VISIBLE, 20, 20,
                                          width, height, m_parent, nullptr, nullptr, nullptr);
        ASSERT_TRUE(m_control.SubclassWindow(item));
        UpdateWindow(m_parent);
        Repaint();
    }
    void TearDown() override { DestroyWindow(m_parent); }

    void LoadResource() {
        m_control.m_image.LoadFromResource(GetModuleHandleW(nullptr), IDB_PLAIN);
    }
    HRESULT LoadFile(int resource) {
        return m_control.m_image.Load(WritePicture(m_folder, L"picture", resource).c_str());
    }
    /// What every owner does after a load.
    void Repaint() {
        InvalidateRect(m_control.m_hWnd, nullptr, TRUE);
        UpdateWindow(m_control.m_hWnd);
    }
    COLORREF Pixel(int x, int y) const { return PixelOf(m_control.m_hWnd, x, y); }
    static COLORREF PixelOf(HWND window, int x, int y) {
        HDC windowDC = GetDC(window);
        const COLORREF pixel = GetPixel(windowDC, x, y);
        ReleaseDC(window, windowDC);
        return pixel;
    }
    /// All of the control's pixels.
    std::vector<COLORREF> Pixels(int width, int height) const {
        std::vector<COLORREF> pixels;
        HDC windowDC = GetDC(m_control.m_hWnd);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x)
                pixels.push_back(GetPixel(windowDC, x, y));
        }
        ReleaseDC(m_control.m_hWnd, windowDC);
        return pixels;
    }

    const TempFolder m_folder;
    HWND m_parent = nullptr;
    CImageStatic m_control;
};

TEST_F(ImageStatic, KnowsItsClass) {
    const CRuntimeClass* record = m_control.GetRuntimeClass();

    EXPECT_STREQ(record->m_lpszClassName, "CImageStatic");
    EXPECT_EQ(record->m_wSchema, 0xFFFFu);
    EXPECT_EQ(record->m_pfnCreateObject, nullptr);
    EXPECT_EQ(record->m_pfnGetBaseClass(), RUNTIME_CLASS(CStatic));
    EXPECT_TRUE(m_control.m_image.IsNull());
}

/// Reads what the class keeps to itself.
class OpenImageStatic : public CImageStatic {
  public:
    static const AFX_MSGMAP* Map() { return GetThisMessageMap(); }
    static const AFX_MSGMAP* WindowMap() { return CWnd::GetThisMessageMap(); }
};

TEST(ImageStaticClass, HandlesThePaintMessageAlone) {
    const AFX_MSGMAP* map = OpenImageStatic::Map();

    EXPECT_EQ(map->lpEntries[0].nMessage, static_cast<UINT>(WM_PAINT));
    EXPECT_EQ(map->lpEntries[1].nSig, static_cast<UINT_PTR>(AfxSig_end));
    EXPECT_EQ(map->pfnGetBaseMap(), OpenImageStatic::WindowMap());
}

TEST_F(ImageStatic, FillsTheClientAreaFromEdgeToEdge) {
    Show(100, 60);

    LoadResource();
    Repaint();

    EXPECT_EQ(Pixel(0, 0), red);
    EXPECT_EQ(Pixel(99, 0), green);
    EXPECT_EQ(Pixel(0, 59), blue);
    EXPECT_EQ(Pixel(99, 59), white);
    EXPECT_EQ(Pixel(25, 15), red) << "the control's text is out of sight";
    EXPECT_NE(PixelOf(m_parent, 19, 20), red) << "outside of the control";
    EXPECT_NE(PixelOf(m_parent, 120, 20), green) << "outside of the control";
}

struct SizeRow {
    const char* why;
    int width;
    int height;
};
constexpr SizeRow sizes[] = {
    {"enlarged", 160, 80},   {"squeezed to its side", 20, 80}, {"squeezed from above", 160, 6},
    {"made smaller", 16, 8}, {"its own size", 32, 16},
};

TEST_F(ImageStatic, IsDistortedToAnySize) {
    for (const SizeRow& size : sizes) {
        SCOPED_TRACE(size.why);
        Show(size.width, size.height);
        LoadResource();
        Repaint();

        EXPECT_EQ(Pixel(size.width / 4, size.height / 4), red);
        EXPECT_EQ(Pixel(size.width * 3 / 4, size.height / 4), green);
        EXPECT_EQ(Pixel(size.width / 4, size.height * 3 / 4), blue);
        EXPECT_EQ(Pixel(size.width * 3 / 4, size.height * 3 / 4), white);
        DestroyWindow(m_parent);
    }
}

TEST_F(ImageStatic, ALoadAloneChangesNothingOnTheScreen) {
    Show(60, 40);
    const std::vector<COLORREF> before = Pixels(60, 40);

    LoadResource();
    EXPECT_EQ(Pixels(60, 40), before);
    EXPECT_FALSE(GetUpdateRect(m_control.m_hWnd, nullptr, FALSE));

    Repaint();
    EXPECT_EQ(Pixel(5, 5), red);
}

TEST_F(ImageStatic, FilesOfEveryKindAreShown) {
    Show(64, 32);
    for (const int resource : {IDR_PNG, IDR_GIF, IDR_JPEG, IDR_BMP}) {
        SCOPED_TRACE(resource);
        ASSERT_EQ(LoadFile(resource), S_OK);
        Repaint();

        const COLORREF corner = Pixel(16, 8);
        EXPECT_NEAR(GetRValue(corner), 255, 8);
        EXPECT_NEAR(GetGValue(corner), 0, 8);
        EXPECT_NEAR(GetBValue(Pixel(16, 24)), 255, 8);
    }
}

TEST_F(ImageStatic, AlphaIsBlendedOverTheDefaultPaint) {
    Show(120, 120);
    ASSERT_EQ(Pixel(90, 45), ground);

    ASSERT_EQ(LoadFile(IDR_PNG_ALPHA), S_OK);
    Repaint();

    EXPECT_EQ(Pixel(30, 45), RGB(200, 0, 0)) << "opaque";
    EXPECT_NEAR(GetRValue(Pixel(90, 45)), 32, 1) << "half of the ground";
    EXPECT_NEAR(GetGValue(Pixel(90, 45)), 132, 1) << "and all of the green";
    EXPECT_EQ(Pixel(30, 90), RGB(64, 64, 124)) << "all of the ground and all of the blue";
    EXPECT_EQ(Pixel(90, 90), white);
}

TEST_F(ImageStatic, APictureReplacesTheOneBefore) {
    Show(64, 32);
    ASSERT_EQ(LoadFile(IDR_PNG), S_OK);
    Repaint();
    EXPECT_EQ(Pixel(16, 8), red);

    ASSERT_EQ(LoadFile(IDR_PNG_ALPHA), S_OK);
    Repaint();

    EXPECT_EQ(Pixel(16, 8), RGB(200, 0, 0));
}

TEST_F(ImageStatic, WithoutAPictureTheDefaultPaintIsSeen) {
    Show(90, 40);

    const std::vector<COLORREF> pixels = Pixels(90, 40);

    EXPECT_EQ(pixels.back(), ground);
    EXPECT_NE(std::count(pixels.begin(), pixels.end(), RGB(0, 0, 0)), 0) << "the text";
}

TEST_F(ImageStatic, AFailedLoadLeavesTheDefaultPaint) {
    Show(90, 40);
    const std::vector<COLORREF> before = Pixels(90, 40);
    WriteFileBytes(m_folder / L"text.png", "no picture");

    EXPECT_EQ(m_control.m_image.Load((m_folder / L"none.png").c_str()), E_FAIL);
    EXPECT_EQ(m_control.m_image.Load((m_folder / L"text.png").c_str()), E_FAIL);
    m_control.m_image.LoadFromResource(GetModuleHandleW(nullptr), 999);
    Repaint();

    EXPECT_EQ(Pixels(90, 40), before);
}

// The steps of a paint.

HDC g_paintDC = nullptr;
HDC g_drawingDC = nullptr;

decltype(&CallWindowProcW) g_callWindowProc = nullptr;
decltype(&BeginPaint) g_beginPaint = nullptr;
decltype(&EndPaint) g_endPaint = nullptr;
decltype(&GetDC) g_getDC = nullptr;
decltype(&ReleaseDC) g_releaseDC = nullptr;
decltype(&GetClientRect) g_getClientRect = nullptr;

/// Tells the two contexts of a paint apart.
std::wstring Which(HDC context) {
    if (context == nullptr) return L"no context";
    if (context == g_paintDC) return L"paint context";
    return context == g_drawingDC ? L"drawing context" : L"another context";
}

LRESULT WINAPI NoteDefaultPaint(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                                LPARAM lParam) {
    if (message == WM_PAINT) CallJournal::Add(L"default paint");
    return g_callWindowProc(procedure, window, message, wParam, lParam);
}
HDC WINAPI NoteBeginPaint(HWND window, PAINTSTRUCT* paint) {
    CallJournal::Add(L"BeginPaint");
    return g_paintDC = g_beginPaint(window, paint);
}
BOOL WINAPI NoteEndPaint(HWND window, const PAINTSTRUCT* paint) {
    CallJournal::Add(L"EndPaint");
    return g_endPaint(window, paint);
}
HDC WINAPI NoteGetDC(HWND window) {
    CallJournal::Add(L"GetDC");
    return g_drawingDC = g_getDC(window);
}
int WINAPI NoteReleaseDC(HWND window, HDC context) {
    CallJournal::Add(L"ReleaseDC " + Which(context));
    return g_releaseDC(window, context);
}
BOOL WINAPI NoteGetClientRect(HWND window, RECT* rectangle) {
    CallJournal::Add(L"GetClientRect");
    return g_getClientRect(window, rectangle);
}
int WINAPI NoteSetStretchBltMode(HDC context, int mode) {
    CallJournal::Add(L"SetStretchBltMode " + Which(context) + L" " + std::to_wstring(mode));
    return 1;
}
BOOL WINAPI NoteSetBrushOrgEx(HDC context, int x, int y, POINT* previous) {
    CallJournal::Add(L"SetBrushOrgEx " + Which(context) + L" " + std::to_wstring(x) + L" " +
                     std::to_wstring(y) + (previous == nullptr ? L"" : L" with the previous one"));
    return TRUE;
}
BOOL WINAPI NoteStretchBlt(HDC context, int x, int y, int width, int height, HDC, int sourceX,
                           int sourceY, int sourceWidth, int sourceHeight, DWORD) {
    std::wstring call = L"StretchBlt " + Which(context);
    for (const int number : {x, y, width, height, sourceX, sourceY, sourceWidth, sourceHeight}) {
        call += L" " + std::to_wstring(number);
    }
    CallJournal::Add(call);
    return TRUE;
}

class ImageStaticPaint : public ImageStatic {
  protected:
    void SetUp() override {
        Show(100, 60);
        CallJournal::Clear();
    }

    /// Paints once under hooks on all that a paint calls.
    void PaintWatched() {
        const ImportHook<decltype(&CallWindowProcW)> defaultPaint(
            RuntimeDll(), nullptr, "CallWindowProcW", &NoteDefaultPaint);
        const ImportHook<decltype(&BeginPaint)> begin(RuntimeDll(), nullptr, "BeginPaint",
                                                      &NoteBeginPaint);
        const ImportHook<decltype(&EndPaint)> end(RuntimeDll(), nullptr, "EndPaint", &NoteEndPaint);
        const ImportHook<decltype(&StretchBlt)> stretch(RuntimeDll(), nullptr, "StretchBlt",
                                                        &NoteStretchBlt);
        const ImportHook<decltype(&GetDC)> get(nullptr, "GetDC", &NoteGetDC);
        const ImportHook<decltype(&ReleaseDC)> release(nullptr, "ReleaseDC", &NoteReleaseDC);
        const ImportHook<decltype(&GetClientRect)> client(nullptr, "GetClientRect",
                                                          &NoteGetClientRect);
        const ImportHook<decltype(&SetStretchBltMode)> mode(nullptr, "SetStretchBltMode",
                                                            &NoteSetStretchBltMode);
        const ImportHook<decltype(&SetBrushOrgEx)> origin(nullptr, "SetBrushOrgEx",
                                                          &NoteSetBrushOrgEx);
        g_callWindowProc = defaultPaint.Original();
        g_beginPaint = begin.Original();
        g_endPaint = end.Original();
        g_getDC = get.Original();
        g_releaseDC = release.Original();
        g_getClientRect = client.Original();
        g_paintDC = g_drawingDC = nullptr;
        Repaint();
    }
};

TEST_F(ImageStaticPaint, TakesItsStepsInOrder) {
    LoadResource();

    PaintWatched();

    const std::vector<std::wstring> steps = {L"default paint",
                                             L"BeginPaint",
                                             L"GetDC",
                                             L"GetClientRect",
                                             L"SetStretchBltMode drawing context 4",
                                             L"SetBrushOrgEx drawing context 0 0",
                                             L"StretchBlt drawing context 0 0 100 60 0 0 32 16",
                                             L"ReleaseDC paint context",
                                             L"EndPaint"};
    EXPECT_EQ(CallJournal::Calls(), steps);
    EXPECT_NE(g_paintDC, g_drawingDC);
}

TEST_F(ImageStaticPaint, TakesTheSameStepsWithoutAPicture) {
    PaintWatched();

    const std::vector<std::wstring> steps = {L"default paint",
                                             L"BeginPaint",
                                             L"GetDC",
                                             L"GetClientRect",
                                             L"SetStretchBltMode drawing context 4",
                                             L"SetBrushOrgEx drawing context 0 0",
                                             L"ReleaseDC paint context",
                                             L"EndPaint"};
    EXPECT_EQ(CallJournal::Calls(), steps);
}

TEST_F(ImageStaticPaint, LeavesOneContextUnreleasedEachTime) {
    LoadResource();
    int unreleased = 0;
    for (int paint = 0; paint < 5; ++paint) {
        CallJournal::Clear();
        PaintWatched();
        unreleased +=
            CallJournal::Count(L"GetDC") - CallJournal::Count(L"ReleaseDC drawing context");
    }

    EXPECT_EQ(unreleased, 5);
}

HDC WINAPI GiveNoContext(HWND) {
    return nullptr;
}

TEST_F(ImageStaticPaint, TakesTheSameStepsWithoutADrawingContext) {
    const std::vector<COLORREF> before = Pixels(100, 60);
    LoadResource();

    {
        const ImportHook<decltype(&GetDC)> none(nullptr, "GetDC", &GiveNoContext);
        PaintWatched();
    }

    const std::vector<std::wstring> steps = {L"default paint",
                                             L"BeginPaint",
                                             L"GetDC",
                                             L"GetClientRect",
                                             L"SetStretchBltMode no context 4",
                                             L"SetBrushOrgEx no context 0 0",
                                             L"StretchBlt no context 0 0 100 60 0 0 32 16",
                                             L"ReleaseDC paint context",
                                             L"EndPaint"};
    EXPECT_EQ(CallJournal::Calls(), steps);
    EXPECT_EQ(Pixels(100, 60), before) << "the default paint is seen";
}

}  // namespace

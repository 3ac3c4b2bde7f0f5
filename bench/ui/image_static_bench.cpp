// A paint of the image control beside the calls that a paint is made of.

#include "support/paired_benchmark.h"

#include "ui/bench_bitmaps.h"
#include "ui/image_static.h"

#include <windows.h>

namespace {

/// A window on the screen, above all others; lives as long as the program, since it takes a window
/// of its own long to come up.
HWND OwnerWindow() {
    static const HWND window = [] {
        HWND made = CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, L"STATIC", L"", WS_POPUP, 40,
                                    40, 520, 500, nullptr, nullptr, nullptr, nullptr);
        ShowWindow(made, SW_SHOWNOACTIVATE);
        UpdateWindow(made);
        return made;
    }();
    return window;
}

/// A static item of the given size in it. Its end also gives back the contexts that paints have
/// left unreleased.
class Item {
  public:
    Item(int width, int height)
        : m_window(CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 20, 20, width, height,
                                   OwnerWindow(), nullptr, nullptr, nullptr)) {}
    Item(const Item&) = delete;
    Item& operator=(const Item&) = delete;
    ~Item() { DestroyWindow(m_window); }

    HWND Window() const { return m_window; }

  private:
    HWND m_window;
};

void Repaint(HWND window) {
    InvalidateRect(window, nullptr, TRUE);
    UpdateWindow(window);
}

void TimePaints(benchmark::State& state, HWND window) {
    Repaint(window);  // The first one also shows the item.
    for (auto _ : state)
        Repaint(window);
}

template <int Width, int Height>
void OurPaint(benchmark::State& state) {
    const Item item(Width, Height);
    CImageStatic control;
    control.m_image.LoadFromResource(GetModuleHandleW(nullptr), IDB_PICTURE);
    control.SubclassWindow(item.Window());
    TimePaints(state, item.Window());
}

WNDPROC g_defaultProcedure = nullptr;
HANDLE g_picture = nullptr;
HDC g_memoryDC = nullptr;

constexpr int pictureWidth = 237;
constexpr int pictureHeight = 226;

LRESULT CALLBACK PaintByHand(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = CallWindowProcW(g_defaultProcedure, window, message, wParam, lParam);
    if (message != WM_PAINT) return result;

    PAINTSTRUCT paint;
    HDC paintDC = BeginPaint(window, &paint);
    // As the control must: a second context that the paint context's release leaves behind.
    HDC drawingDC = GetDC(window);
    RECT client;
    GetClientRect(window, &client);
    SetStretchBltMode(drawingDC, HALFTONE);
    SetBrushOrgEx(drawingDC, 0, 0, nullptr);
    // As an image must: its memory context is one of a pool, and holds the picture for the copy
    // only.
    HGDIOBJ deselected = SelectObject(g_memoryDC, g_picture);
    StretchBlt(drawingDC, 0, 0, client.right, client.bottom, g_memoryDC, 0, 0, pictureWidth,
               pictureHeight, SRCCOPY);
    SelectObject(g_memoryDC, deselected);
    ReleaseDC(window, paintDC);
    EndPaint(window, &paint);
    return result;
}

template <int Width, int Height>
void BarePaint(benchmark::State& state) {
    const Item item(Width, Height);
    g_picture = LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDB_PICTURE), IMAGE_BITMAP,
                           0, 0, LR_CREATEDIBSECTION);
    g_memoryDC = CreateCompatibleDC(nullptr);
    g_defaultProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(item.Window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&PaintByHand)));
    TimePaints(state, item.Window());
    DeleteDC(g_memoryDC);
    DeleteObject(g_picture);
}

constexpr char paintCalls[] =
    "the default paint, BeginPaint, a second GetDC, SelectObject, StretchBlt in halftone, "
    "ReleaseDC, EndPaint";
// Each paint leaves a context behind: few paints, and as many by either side.
constexpr int paints = 8;

const PairedBenchmarkEntry entries[] = {
    PairedBenchmarkEntry({"image/paint at its size, 237 by 226",
                          OurPaint<237, 226>,
                          BarePaint<237, 226>,
                          1.05,
                          paintCalls,
                          {},
                          paints}),
    PairedBenchmarkEntry({"image/paint at half, 118 by 113",
                          OurPaint<118, 113>,
                          BarePaint<118, 113>,
                          1.05,
                          paintCalls,
                          {},
                          paints}),
    PairedBenchmarkEntry({"image/paint at double, 474 by 452",
                          OurPaint<474, 452>,
                          BarePaint<474, 452>,
                          1.05,
                          paintCalls,
                          {},
                          paints}),
    PairedBenchmarkEntry({"image/paint distorted, 400 by 100",
                          OurPaint<400, 100>,
                          BarePaint<400, 100>,
                          1.05,
                          paintCalls,
                          {},
                          paints}),
};

}  // namespace

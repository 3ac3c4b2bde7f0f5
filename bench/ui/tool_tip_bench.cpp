// The drawn tool tip beside the same flat GDI+ calls: its steps, and a whole fade on the screen.

#include "support/paired_benchmark.h"

#include "ui/bare_fade.h"
#include "ui/bare_tip.h"
#include "ui/bench_bitmaps.h"
#include "ui/custom_tool_tip_plus.h"

#include "gallery/gdiplus_session.h"

#include <chrono>

namespace {

constexpr wchar_t shortText[] = L"按当前样式标注所选的直线";
/// Wraps to nine lines.
constexpr wchar_t longText[] =
    L"按当前样式标注所选的直线，尺寸放在单独的图层上；标注之间的距离按样式中的基线间距计算，"
    L"与已有尺寸重叠时自动移开。\n"
    L"Dimensions the lines that are selected, in the style that is current and on a layer of their "
    L"own. Where two of them would overlap the later one is moved.";

/// What a benchmark may call of the tip.
class OpenTip : public CustomToolTipPlus {
  public:
    using CustomToolTipPlus::CustomToolTipPlus;

    using CustomToolTipPlus::FadeTimer;
    using CustomToolTipPlus::HoverTimer;
    using CustomToolTipPlus::LeaveTimer;

    using CustomToolTipPlus::MeasureTip;
    using CustomToolTipPlus::RenderTip;

    using CustomToolTipPlus::m_current;
    using CustomToolTipPlus::m_fadeLevel;
};

constexpr RECT entry = {0, 0, 400, 300};
constexpr POINT overEntry = {300, 300};
constexpr POINT besideEntry = {800, 600};

/// An owner window at 200, 200 of the screen with one entry, its tip and the bare one.
struct Scene {
    explicit Scene(const wchar_t* text) : bare(GetModuleHandleW(nullptr), text, IDB_SIGN) {
        owner.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP, 200, 200, 400, 300, nullptr,
                       nullptr);
        owner.ShowWindow(SW_SHOWNOACTIVATE);
        tip = new OpenTip(owner.m_hWnd, GetModuleHandleW(nullptr));
        tip->AddTip(entry, new TipDataPlus(text, IDB_SIGN));
        tip->MeasureTip(0);
        bare.Measure();
    }

    const GdiplusSession session;
    CWnd owner;
    OpenTip* tip;  ///< its window's
    BareTip bare;
};

/// Lives as long as the program: without a window manager the end of a window takes its time.
template <const wchar_t* Text>
Scene& SceneOf() {
    static auto* const scene = new Scene(Text);
    return *scene;
}

void OurMeasure(benchmark::State& state) {
    OpenTip& tip = *SceneOf<shortText>().tip;
    for (auto _ : state)
        tip.MeasureTip(0);
}

void BareMeasure(benchmark::State& state) {
    BareTip& tip = SceneOf<shortText>().bare;
    for (auto _ : state)
        tip.Measure();
}

constexpr double someLevel = 0.4;

void OurRender(benchmark::State& state) {
    OpenTip& tip = *SceneOf<shortText>().tip;
    for (auto _ : state)
        tip.RenderTip(0, someLevel);
}

void BareRender(benchmark::State& state) {
    BareTip& tip = SceneOf<shortText>().bare;
    for (auto _ : state)
        tip.Render(someLevel);
}

constexpr int fadeTicks = 12;  // The last one finds the fade at its end.
constexpr int leaveTicks = 3;

/// One fade from the relay of a mouse move to the parked window, the ticks sent one after the other
/// instead of by the clock. False when the tip didn't come or go.
bool FadeOnce(OpenTip& tip) {
    const auto tick = [&tip](UINT_PTR timer, int times) {
        for (int i = 0; i < times; ++i)
            SendMessageW(tip.m_hWnd, WM_TIMER, timer, 0);
    };
    SetCursorPos(overEntry.x, overEntry.y);
    tip.RelayMouseMove();
    tick(OpenTip::HoverTimer, 1);
    const bool shown = tip.m_current == 0;
    tick(OpenTip::FadeTimer, fadeTicks);
    const bool faded = tip.m_fadeLevel > 1.0;
    SetCursorPos(besideEntry.x, besideEntry.y);
    tick(OpenTip::LeaveTimer, leaveTicks);
    return shown && faded && tip.m_current == -1;
}

/// Lets the platform's messages take their way; no timer runs any more by then.
void DispatchMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
}

constexpr char fadeFigure[] = "ms for a whole fade";
constexpr double fivePercentOfFade = 0.05 * 605;

template <const wchar_t* Text>
void OurFade(benchmark::State& state) {
    OpenTip& tip = *SceneOf<Text>().tip;
    const auto start = std::chrono::steady_clock::now();
    for (auto _ : state) {
        if (!FadeOnce(tip)) {
            state.SkipWithError("the tip didn't come and go");
            break;
        }
    }
    const std::chrono::duration<double, std::milli> passed =
        std::chrono::steady_clock::now() - start;
    state.counters[fadeFigure] = passed.count() / static_cast<double>(state.iterations());
    DispatchMessages();
}

template <const wchar_t* Text>
void BareFadeOf(benchmark::State& state) {
    Scene& scene = SceneOf<Text>();
    static BareFade fade(scene.bare, scene.owner.m_hWnd, entry);
    for (auto _ : state) {
        SetCursorPos(overEntry.x, overEntry.y);
        fade.Arm();
        fade.Show();
        for (int tick = 0; tick < fadeTicks; ++tick)
            fade.Step();
        SetCursorPos(besideEntry.x, besideEntry.y);
        fade.Leave();
    }
    DispatchMessages();
}

constexpr char fadeCalls[] = "cursor, timers, window positions, the same drawing 12 times";

const PairedBenchmarkEntry entries[] = {
    PairedBenchmarkEntry({"tip/MeasureTip, 12 characters", OurMeasure, BareMeasure, 1.05,
                          "surface, font, GdipMeasureString, the bitmap's size"}),
    PairedBenchmarkEntry({"tip/RenderTip, 12 characters", OurRender, BareRender, 1.05,
                          "surfaces, font, brushes, gradient, keyed bitmap, GdipDrawString three "
                          "times"}),
    PairedBenchmarkEntry({"tip/whole fade, 12 characters",
                          OurFade<shortText>,
                          BareFadeOf<shortText>,
                          1.05,
                          fadeCalls,
                          {{fadeFigure, fivePercentOfFade}}}),
    PairedBenchmarkEntry({"tip/whole fade, 210 characters",
                          OurFade<longText>,
                          BareFadeOf<longText>,
                          1.05,
                          fadeCalls,
                          {{fadeFigure}}}),
};

}  // namespace

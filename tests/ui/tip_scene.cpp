#include "ui/tip_scene.h"

#include "support/call_journal.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

RecordingTip::RecordingTip(HWND owner, bool fadeEnabled) : CustomToolTip(owner, fadeEnabled) {}

RecordingTip::~RecordingTip() {
    ++deletions;
}

void RecordingTip::MeasureTip(int index) {
    CallJournal::Add(L"MeasureTip " + std::to_wstring(index));
    m_width = measured.cx;
    m_height = measured.cy;
}

void RecordingTip::RenderTip(int index, double level) {
    wchar_t text[64];
    swprintf(text, std::size(text), L"RenderTip %d %.17g", index, level);
    CallJournal::Add(text);
    if (whenRendered) whenRendered();
}

void RecordingTip::PaintTip(CDC* dc) {
    CallJournal::Add(dc != nullptr && dc->m_hDC != nullptr ? L"PaintTip" : L"PaintTip on nothing");
}

NotedDefault::NotedDefault()
    : m_hook("drafthost17.dll", "_ZN4CWnd7DefaultEv", [](CWnd*) -> LRESULT {
          CallJournal::Add(L"Default");
          return 0;
      }) {}

bool Same(POINT left, POINT right) {
    return left.x == right.x && left.y == right.y;
}

TipSceneTest::TipSceneTest(TipPlatform::Timers mode) : platform(mode) {
    owner.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP, 100, 100, 600, 400, nullptr, nullptr);
    first.Create(L"", WS_CHILD, CRect(20, 20, 120, 50), &owner, 1);
    second.Create(L"", WS_CHILD, CRect(200, 20, 300, 50), &owner, 2);
    third.Create(L"", WS_CHILD, CRect(20, 200, 120, 230), &owner, 3);
    tip = new RecordingTip(owner);
    platform.tip = tip->m_hWnd;
    tip->AddTip(&first, new CountedContent(contentDeletions));
    tip->AddTip(&second, new CountedContent(contentDeletions));
    RecordingTip::deletions = 0;
    CallJournal::Clear();
}

TipSceneTest::~TipSceneTest() {
    if (tip != nullptr) tip->DestroyWindow();
}

void TipSceneTest::RelayAt(POINT point) {
    platform.cursor = point;
    tip->RelayMouseMove();
}

void TipSceneTest::RestAt(POINT point) {
    RelayAt(point);
    Tick(RecordingTip::HoverTimer);
}

void TipSceneTest::Tick(UINT_PTR timer, int times) {
    for (int i = 0; i < times; ++i) {
        EXPECT_EQ(platform.timers.count(timer), 1u) << "no timer " << timer << " runs";
        tip->SendMessage(WM_TIMER, timer);
    }
}

RECT TipSceneTest::WindowRect() const {
    RECT rect = {};
    GetWindowRect(tip->m_hWnd, &rect);
    return rect;
}

bool TipSceneTest::IsParked() const {
    const RECT parked = {0, 10, 1, 11};
    const RECT rect = WindowRect();
    return EqualRect(&rect, &parked) && tip->IsWindowVisible();
}

std::wstring TipSceneTest::State() const {
    const auto runs = [this](UINT_PTR timer) { return platform.timers.count(timer) != 0; };
    const bool leave = runs(RecordingTip::LeaveTimer);
    const bool fade = runs(RecordingTip::FadeTimer);
    const bool idle = runs(RecordingTip::IdleTimer);
    const RECT rect = WindowRect();

    std::wstring name = L"?";
    if (tip->m_firstRelay) {
        const RECT made = {0, 0, 1, 1};
        const bool untouched = EqualRect(&rect, &made) && !tip->IsWindowVisible();
        if (untouched && tip->m_current == -1 && platform.timers.empty()) name = L"New";
    } else if (tip->m_current == -1 && IsParked() && !fade && !idle) {
        if (!leave) name = L"Parked";
        if (leave && tip->m_leaveCount == 2) name = L"Closing";
    } else if (tip->m_current >= 0 && leave && idle == (tip->m_idlePeriod != 0)) {
        const bool atItsSize = rect.right - rect.left == 200 && rect.bottom - rect.top == 50;
        if (atItsSize && tip->IsWindowVisible()) name = fade ? L"Fading" : L"Steady";
    }
    return name + (runs(RecordingTip::HoverTimer) ? L", armed" : L"");
}

std::vector<std::wstring> TipSceneTest::Calls() {
    std::vector<std::wstring> calls = CallJournal::Calls();
    CallJournal::Clear();
    const auto leftOut = [](const std::wstring& call) {
        return call.rfind(L"SetActiveWindow", 0) == 0 || call.find(L"DC of another") != call.npos;
    };
    calls.erase(std::remove_if(calls.begin(), calls.end(), leftOut), calls.end());
    return calls;
}

#include "ui/plus_scene.h"

#include "support/call_journal.h"
#include "support/child_scenario.h"
#include "support/import_hook.h"
#include "support/invalid_parameter_scope.h"
#include "support/resource_counters.h"
#include "ui/gdiplus_watch.h"
#include "ui/tip_platform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

// GDI+ calls that fail, in the drawing and around it.

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class CustomToolTipPlusFailures : public PlusSceneTest {
  protected:
    /// All that a show and a step draw.
    static void Draw(OpenTipPlus& drawn) {
        CClientDC dc(&drawn);
        drawn.MeasureTip(0);
        drawn.RenderTip(0, 0.0);
        drawn.PaintTip(&dc);
    }

  private:
    InvalidParameterScope m_scope;
};

using Calls = std::vector<std::wstring>;

bool Begins(const std::wstring& call, const wchar_t* name) {
    return call.rfind(name, 0) == 0;
}

std::wstring NameOf(const std::wstring& call) {
    return call.substr(0, call.find(L' '));
}

/// Which calls of an undisturbed drawing aren't made when the one at `failed` fails.
std::set<size_t> CallsThatDependOn(const Calls& undisturbed, size_t failed) {
    const std::wstring& call = undisturbed[failed];
    std::set<size_t> dependent;
    const auto add = [&](size_t from, size_t end) {
        for (; from < end; ++from)
            dependent.insert(from);
    };
    const auto next = [&](const wchar_t* name) {
        size_t at = failed + 1;
        while (!Begins(undisturbed.at(at), name))
            ++at;
        return at;
    };

    const size_t arrow = call.find(L" -> ");
    if (Begins(call, L"GdipAlloc") || Begins(call, L"GdipCreateBitmapFromResource")) {
        add(failed + 1, next(L"GdipFree") + 1);
    } else if (Begins(call, L"GdipBitmapLockBits")) {
        add(next(L"GdipBitmapUnlockBits"), next(L"GdipBitmapUnlockBits") + 1);
    } else if (Begins(call, L"GdipCreateBitmapFromGraphics")) {
        add(failed + 1, next(L"GdipDeleteStringFormat"));
        add(next(L"GdipCreateFromHDC"), undisturbed.size());  // The painting, which comes last.
    } else if (arrow != call.npos) {
        const std::wstring made = L" " + call.substr(arrow + 4);
        for (size_t at = failed + 1; at < undisturbed.size(); ++at) {
            const std::wstring& later = undisturbed[at];
            const bool isRelease = Begins(later, L"GdipDelete") || Begins(later, L"GdipDispose");
            if (isRelease && later == NameOf(later) + made) dependent.insert(at);
        }
    }
    return dependent;
}

/// Expects all calls of the undisturbed drawing but those that depend on one that failed.
void ExpectAllButDependentCalls(const Calls& undisturbed, const Calls& calls) {
    std::set<size_t> dependent;
    size_t made = 0;
    for (size_t at = 0; at < undisturbed.size(); ++at) {
        if (dependent.count(at) != 0) continue;
        ASSERT_LT(made, calls.size());
        ASSERT_EQ(NameOf(calls[made]), NameOf(undisturbed[at])) << made;
        if (calls[made].find(L"-> failed") != calls[made].npos) {
            dependent.merge(CallsThatDependOn(undisturbed, at));
        }
        ++made;
    }
    EXPECT_EQ(made, calls.size());
}

}  // namespace

TEST_F(CustomToolTipPlusFailures, EveryCallMayFailAndOnlyTheWantedStorageIsLost) {
    const int enough = 1000;
    Calls undisturbed;
    int failing = 0;  // The drawing that comes first is whole.
    for (; failing < enough; ++failing) {
        GdiplusWatch watch;
        watch.failingCall = failing;
        {
            OpenTipPlus drawn(nullptr, GetModuleHandleW(nullptr));
            drawn.AddTip(RECT{}, new TipDataPlus(L"text", IDB_KEYED));
            drawn.m_current = 0;
            if (failing == 0) drawn.MeasureTip(0);  // The font family is fetched in it.
            CallJournal::Clear();
            Draw(drawn);
            if (watch.calls < failing) break;

            const Calls calls = CallJournal::Take();
            if (failing == 0) undisturbed = calls;
            std::wstring failed;  // The last one, which the others may have led to.
            for (const std::wstring& call : calls) {
                if (call.find(L"-> failed") != call.npos) failed = call;
            }
            SCOPED_TRACE(testing::Message() << "call " << failing << ": " << failed.c_str());
            ASSERT_EQ(failed.empty(), failing == 0);
            ExpectAllButDependentCalls(undisturbed, calls);
            const bool noPicture = Begins(failed, L"GdipCreateBitmapFromGraphics");
            EXPECT_EQ(drawn.m_backBuffer == nullptr, noPicture);
            EXPECT_EQ(drawn.m_current, noPicture ? -1 : 0);
            EXPECT_EQ(watch.allocations, Begins(failed, L"GdipCreateBitmapFromResource") ? 1 : 0);
        }
        EXPECT_THAT(watch.alive, IsEmpty()) << failing;
    }

    EXPECT_GT(failing, 60);
    EXPECT_LT(failing, enough);
}

TEST_F(CustomToolTipPlusFailures, FailedLockLeavesThePictureUnkeyedAndUnlocksNothing) {
    const int index = AddEntry(L"", IDB_KEYED);
    tip->MeasureTip(index);
    GdiplusWatch watch;
    watch.failingFunction = "GdipBitmapLockBits";

    tip->RenderTip(index, 0.0);

    EXPECT_EQ(Pixel(2, 2), 0xFFFEFDCEu);
    EXPECT_TRUE(std::none_of(
        CallJournal::Calls().begin(), CallJournal::Calls().end(),
        [](const std::wstring& call) { return Begins(call, L"GdipBitmapUnlockBits"); }));
}

TEST_F(CustomToolTipPlusFailures, WithoutGdiplusTheTipMeasuresItsBareMinimumAndHasNoPicture) {
    AddEntry(L"text", IDB_KEYED);
    tip->m_current = 0;
    GdiplusWatch watch;
    watch.failEveryCall = true;
    watch.failure = Gdiplus::GdiplusNotInitialized;

    Draw(*tip);

    EXPECT_EQ(tip->m_width, 4);
    EXPECT_EQ(tip->m_height, 6);
    EXPECT_EQ(tip->m_imageWidth, 0);
    EXPECT_EQ(tip->m_backBuffer, nullptr);
    EXPECT_EQ(tip->m_current, -1);
}

namespace {

int g_startups = 0;

Gdiplus::Status WINAPI CountStartup(ULONG_PTR*, const Gdiplus::GdiplusStartupInput*,
                                    Gdiplus::GdiplusStartupOutput*) {
    ++g_startups;
    return Gdiplus::GenericError;
}

/// An owner with an entry in either half of the screen.
struct TipOfTwoHalves {
    TipOfTwoHalves() {
        owner.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP, 0, 0, 1920, 1080, nullptr,
                       nullptr);
        tip = new OpenTipPlus(owner, GetModuleHandleW(nullptr));
        tip->AddTip(RECT{0, 0, 960, 1080}, new TipDataPlus(L"left", IDB_KEYED));
        tip->AddTip(RECT{960, 0, 1920, 1080}, new TipDataPlus(L"right", IDB_KEYED));
    }
    ~TipOfTwoHalves() { tip->DestroyWindow(); }

    void RestAt(POINT point) {
        platform.cursor = point;
        tip->RelayMouseMove();
        tip->SendMessage(WM_TIMER, OpenTipPlus::HoverTimer);
    }

    bool IsParked() const {
        RECT rect = {};
        GetWindowRect(tip->m_hWnd, &rect);
        const RECT parked = {0, 10, 1, 11};
        return EqualRect(&rect, &parked) != FALSE;
    }

    TipPlatform platform;
    CWnd owner;
    OpenTipPlus* tip;
};

// In a process in which nobody starts GDI+. Its calls fail by hand: Wine's work all the same. Each
// digit of the exit code is a fault.
CHILD_SCENARIO(ShowsATipWithoutGdiplus) {
    const ImportHook<decltype(&Gdiplus::GdiplusStartup)> hook("gdiplus.dll", "GdiplusStartup",
                                                              CountStartup);
    TipOfTwoHalves scene;
    GdiplusWatch watch;
    watch.failEveryCall = true;
    watch.failure = Gdiplus::GdiplusNotInitialized;

    scene.RestAt({100, 100});

    int faults = 0;
    if (scene.tip->m_width != 4 || scene.tip->m_height != 6) faults += 1;
    if (scene.tip->m_backBuffer != nullptr) faults += 10;
    if (!scene.IsParked()) faults += 100;
    if (g_startups != 0) faults += 1000;
    return faults;
}

}  // namespace

TEST_F(CustomToolTipPlusFailures, TipNeverStartsGdiplusAndIsntShownWithoutIt) {
    EXPECT_EQ(RunScenario(L"ShowsATipWithoutGdiplus").exitCode, 0u);
}

TEST_F(CustomToolTipPlusFailures, PictureThatCantBeMadeParksTheTipAtTheShow) {
    TipOfTwoHalves scene;
    scene.tip->m_idlePeriod = 500;
    scene.RestAt({100, 100});
    ASSERT_EQ(scene.tip->m_current, 0);
    ASSERT_FALSE(scene.IsParked());
    scene.platform.timers.clear();  // Those of the first show.

    GdiplusWatch watch;
    watch.failingFunction = "GdipCreateBitmapFromGraphics";
    scene.RestAt({1000, 100});

    EXPECT_TRUE(scene.IsParked());
    EXPECT_EQ(scene.tip->m_current, -1);
    EXPECT_THAT(scene.platform.timers,
                ElementsAre(Pair(OpenTipPlus::LeaveTimer, 1100u), Pair(OpenTipPlus::FadeTimer, 55u),
                            Pair(OpenTipPlus::IdleTimer, 500u)));
}

TEST_F(CustomToolTipPlusFailures, BadIndexDropsThePictureAndEndsInTheInvalidParameterHandler) {
    const int index = AddEntry(L"text", IDB_KEYED);
    GdiplusWatch watch;
    tip->RenderTip(index, 0.0);
    ASSERT_NE(tip->m_backBuffer, nullptr);

    EXPECT_THROW(tip->RenderTip(-1, 0.1), LeftByHandler);

    EXPECT_EQ(tip->m_backBuffer, nullptr);
    EXPECT_THROW(tip->MeasureTip(1), LeftByHandler);
    EXPECT_THAT(watch.alive, IsEmpty());
}

TEST_F(CustomToolTipPlusFailures, MissingResourceLosesOneAllocationInEachOfItsTwoPlaces) {
    const int index = AddEntry(L"text", ID_NO_BITMAP);
    const GdiplusWatch watch;

    tip->MeasureTip(index);
    EXPECT_EQ(watch.allocations, 1);
    tip->RenderTip(index, 0.0);

    EXPECT_EQ(watch.allocations, 2);
}

TEST_F(CustomToolTipPlusFailures, RoundsOfDrawingLeaveNothingBehind) {
    AddEntry(L"some text", IDB_KEYED);
    for (int round = 0; round < 100; ++round)
        Draw(*tip);
    const ResourceCounts before = CountResources();

    for (int round = 0; round < 100; ++round)
        Draw(*tip);

    const ResourceCounts after = CountResources();
    EXPECT_EQ(after.heapBlocks, before.heapBlocks);
    EXPECT_EQ(after.gdiObjects, before.gdiObjects);
    EXPECT_EQ(after.kernelHandles, before.kernelHandles);
}

TEST_F(CustomToolTipPlusFailures, RoundsWithAMissingResourceLeaveJustTheWantedBlocks) {
    AddEntry(L"some text", ID_NO_BITMAP);
    for (int round = 0; round < 100; ++round)
        Draw(*tip);
    const ResourceCounts before = CountResources();

    for (int round = 0; round < 100; ++round)
        Draw(*tip);

    EXPECT_EQ(CountResources().heapBlocks, before.heapBlocks + 200);
    EXPECT_EQ(CountResources().gdiObjects, before.gdiObjects);
}

#include "ui/tip_scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

// Where the tip's window goes: what is read, and that one call places it.

namespace {

using testing::ElementsAre;

class CustomToolTipPlace : public TipSceneTest {
  protected:
    CustomToolTipPlace() {
        RelayAt(inFirst);
        tip->m_current = 0;
        tip->m_width = 200;
        tip->m_height = 50;
        Calls();
    }

    /// The calls noted since the last time but for those that ask for the screen's size.
    std::vector<std::wstring> Placements() {
        std::vector<std::wstring> calls = Calls();
        const auto asks = [](const std::wstring& call) {
            return call.rfind(L"GetSystemMetrics", 0) == 0;
        };
        calls.erase(std::remove_if(calls.begin(), calls.end(), asks), calls.end());
        return calls;
    }
};

}  // namespace

TEST_F(CustomToolTipPlace, FollowsTheRelayedPointAndNotTheCursor) {
    tip->m_lastPoint = {1800, 1000};
    platform.cursor = {5, 5};

    tip->PlaceTip();

    EXPECT_THAT(Placements(), ElementsAre(L"SetWindowPos 1585,1015 200x50 20"));
}

TEST_F(CustomToolTipPlace, ReadsTheScreensSizeAfresh) {
    tip->m_lastPoint = {500, 1050};
    tip->PlaceTip();
    platform.screen = {600, 2000};
    tip->PlaceTip();

    EXPECT_THAT(Calls(), ElementsAre(L"GetSystemMetrics 0", L"GetSystemMetrics 1",
                                     L"SetWindowPos 515,985 200x50 20", L"GetSystemMetrics 0",
                                     L"GetSystemMetrics 1", L"SetWindowPos 285,1065 200x50 20"));
}

TEST_F(CustomToolTipPlace, KeepsToTheControlWhenAnchored) {
    tip->m_anchorToItem = true;
    tip->PlaceTip();
    platform.screen = {300, 200};
    tip->PlaceTip();

    EXPECT_THAT(Placements(),
                ElementsAre(L"SetWindowPos 140,152 200x50 20", L"SetWindowPos 0,68 200x50 20"));
}

TEST_F(CustomToolTipPlace, KeepsToTheRectangleWhenAnchored) {
    tip->m_anchorToItem = true;
    tip->AddTip(RECT{400, 200, 450, 220}, new CountedContent(contentDeletions));
    tip->m_current = 2;

    tip->PlaceTip();

    EXPECT_THAT(Placements(), ElementsAre(L"SetWindowPos 520,322 200x50 20"));
}

TEST_F(CustomToolTipPlace, CanRunPastBothSidesOfASmallScreenAsTheClampRunsOnce) {
    platform.screen = {150, 1080};
    tip->PlaceTip();
    tip->m_lastPoint = {2500, 100};
    tip->PlaceTip();

    EXPECT_THAT(Placements(),
                ElementsAre(L"SetWindowPos 0,145 200x50 20", L"SetWindowPos -50,115 200x50 20"));
}

TEST_F(CustomToolTipPlace, ParksOnlyWithoutAnEntryOrWithoutBothExtents) {
    struct Row {
        const char* why;
        int current, width, height;
        const wchar_t* expected;
    };
    constexpr Row rows[] = {
        {"no entry", -1, 200, 50, L"SetWindowPos 0,10 1x1 20"},
        {"no extent at all", 0, 0, 0, L"SetWindowPos 0,10 1x1 20"},
        {"negative extents", 0, -3, -4, L"SetWindowPos 0,10 1x1 20"},
        {"no width alone", 0, 0, 50, L"SetWindowPos 165,145 0x50 20"},
        {"no height alone", 0, 200, 0, L"SetWindowPos 165,145 200x0 20"},
        {"one by one", 0, 1, 1, L"SetWindowPos 165,145 1x1 20"},
    };

    for (const Row& row : rows) {
        tip->m_current = row.current;
        tip->m_width = row.width;
        tip->m_height = row.height;
        tip->PlaceTip();
        EXPECT_THAT(Placements(), ElementsAre(row.expected)) << row.why;
    }
}

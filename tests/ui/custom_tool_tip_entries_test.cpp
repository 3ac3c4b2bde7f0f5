#include "ui/tip_scene.h"

#include "support/import_hook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

// Adding and removing entries, and which entry a point belongs to.

namespace {

using testing::ElementsAre;

int g_allocationsBeforeFailure = 0;
void* (*g_realNew)(size_t) = nullptr;

void* AllocateOrThrow(size_t size) {
    if (g_allocationsBeforeFailure == 0) return g_realNew(size);
    if (--g_allocationsBeforeFailure > 0) return g_realNew(size);
    throw 7;  // Whatever is thrown counts.
}

/// Makes the n-th allocation of the test program throw.
class FailingAllocation {
  public:
    explicit FailingAllocation(int n) : m_hook("libstdc++-6.dll", "_Znwy", AllocateOrThrow) {
        g_realNew = m_hook.Original();
        g_allocationsBeforeFailure = n;
    }
    ~FailingAllocation() { g_allocationsBeforeFailure = 0; }

  private:
    ImportHook<void* (*)(size_t)> m_hook;
};

class CustomToolTipEntries : public TipSceneTest {
  protected:
    CustomToolTipEntries() {
        EXPECT_EQ(tip->m_tips.size(), 2u);
        oldContent[0] = tip->m_tips[0];
        oldContent[1] = tip->m_tips[1];
    }

    bool AddWithFailure(RecordingTip* bare, TipData* content, int allocation) {
        const FailingAllocation failure(allocation);
        return bare->AddTip(&third, content);
    }

    void ExpectLengths(size_t length) {
        EXPECT_EQ(tip->m_tips.size(), length);
        EXPECT_EQ(tip->m_controls.size(), length);
        EXPECT_EQ(tip->m_rects.size(), length);
    }

    TipData* oldContent[2] = {};
};

}  // namespace

TEST_F(CustomToolTipEntries, AddWithANullPointerGivesTrueAndDoesNothing) {
    CountedContent content(contentDeletions);

    EXPECT_TRUE(tip->AddTip(nullptr, &content));
    EXPECT_TRUE(tip->AddTip(&first, nullptr));
    EXPECT_TRUE(tip->AddTip(RECT{0, 0, 10, 10}, nullptr));

    ExpectLengths(2);
    EXPECT_EQ(contentDeletions, 0);
}

TEST_F(CustomToolTipEntries, AddAppendsAnEntryWithAnEmptyRectangle) {
    auto* content = new CountedContent(contentDeletions);

    EXPECT_TRUE(tip->AddTip(&third, content));

    EXPECT_THAT(tip->m_tips, ElementsAre(oldContent[0], oldContent[1], content));
    EXPECT_THAT(tip->m_controls, ElementsAre(&first, &second, &third));
    EXPECT_EQ(tip->m_rects.size(), 3u);
    EXPECT_TRUE(IsRectEmpty(&tip->m_rects[2]));
}

TEST_F(CustomToolTipEntries, AddOfAControlThatHasOneReplacesItAtTheEnd) {
    auto* content = new CountedContent(contentDeletions);

    EXPECT_TRUE(tip->AddTip(&first, content));

    EXPECT_THAT(tip->m_tips, ElementsAre(oldContent[1], content));
    EXPECT_THAT(tip->m_controls, ElementsAre(&second, &first));
    ExpectLengths(2);
    EXPECT_EQ(contentDeletions, 1);
}

TEST_F(CustomToolTipEntries, AddThatThrowsRollsBackAndLeavesTheContentAlone) {
    // Each of the three appends allocates while the arrays hold none or one.
    for (const int before : {0, 1}) {
        for (const int failing : {1, 2, 3}) {
            SCOPED_TRACE(testing::Message() << before << " entries, append " << failing);
            auto* bare = new RecordingTip(owner);
            if (before == 1) bare->AddTip(&first, new CountedContent(contentDeletions));
            const std::vector<TipData*> tips = bare->m_tips;
            const std::vector<CWnd*> controls = bare->m_controls;
            auto* content = new CountedContent(contentDeletions);

            EXPECT_FALSE(AddWithFailure(bare, content, failing));

            EXPECT_EQ(bare->m_tips, tips);
            EXPECT_EQ(bare->m_controls, controls);
            EXPECT_EQ(bare->m_rects.size(), tips.size());
            EXPECT_EQ(contentDeletions, 0);
            bare->DestroyWindow();
            EXPECT_EQ(contentDeletions, before);
            delete content;
            contentDeletions = 0;
        }
    }
}

TEST_F(CustomToolTipEntries, RemoveDeletesTheContentAndKeepsTheOrder) {
    tip->AddTip(&third, new CountedContent(contentDeletions));
    TipData* const last = tip->m_tips[2];

    tip->RemoveTip(&second);

    EXPECT_THAT(tip->m_tips, ElementsAre(oldContent[0], last));
    EXPECT_THAT(tip->m_controls, ElementsAre(&first, &third));
    ExpectLengths(2);
    EXPECT_EQ(contentDeletions, 1);
}

TEST_F(CustomToolTipEntries, RemoveOfNullOrAnUnknownControlDoesNothing) {
    tip->AddTip(RECT{0, 0, 10, 10}, new CountedContent(contentDeletions));

    tip->RemoveTip(nullptr);
    tip->RemoveTip(&third);

    ExpectLengths(3);
    EXPECT_EQ(contentDeletions, 0);
}

TEST_F(CustomToolTipEntries, RemoveLeavesTheCurrentIndexAsItIs) {
    RestAt(inSecond);
    ASSERT_EQ(tip->m_current, 1);

    tip->RemoveTip(&first);

    EXPECT_EQ(tip->m_current, 1);
}

TEST_F(CustomToolTipEntries, ReplacingAddShiftsTheLaterOnesPastTheCurrentIndex) {
    RestAt(inSecond);
    ASSERT_EQ(tip->m_current, 1);

    tip->AddTip(&first, new CountedContent(contentDeletions));

    EXPECT_EQ(tip->m_current, 1);
    EXPECT_EQ(tip->m_controls[1], &first);
    platform.cursor = inFirst;
    EXPECT_TRUE(tip->IsCursorOverCurrentTip());
}

TEST_F(CustomToolTipEntries, EarlierEntryWinsWhereTheyOverlap) {
    tip->AddTip(RECT{0, 0, 600, 400}, new CountedContent(contentDeletions));

    RestAt(inFirst);
    EXPECT_EQ(tip->m_current, 0);
    RestAt(inNone);

    EXPECT_EQ(tip->m_current, 2);
}

TEST_F(CustomToolTipEntries, RectangleLiesInTheOwnersClientArea) {
    tip->AddTip(RECT{400, 200, 450, 220}, new CountedContent(contentDeletions));

    RestAt({520, 310});
    EXPECT_EQ(tip->m_current, 2);

    owner.MoveWindow(300, 300, 600, 400, FALSE);
    EXPECT_FALSE(tip->IsCursorOverCurrentTip());
    platform.cursor = {720, 510};
    EXPECT_TRUE(tip->IsCursorOverCurrentTip());
}

TEST_F(CustomToolTipEntries, EntryHoldsItsLeftAndTopEdgesButNotTheOthers) {
    struct Row {
        const char* why;
        POINT point;
        bool inside;
    };
    constexpr Row rows[] = {
        {"left top corner", {120, 120}, true}, {"left of it", {119, 120}, false},
        {"above it", {120, 119}, false},       {"last column", {219, 130}, true},
        {"right edge", {220, 130}, false},     {"last row", {150, 149}, true},
        {"bottom edge", {150, 150}, false},
    };
    RestAt(inFirst);

    for (const Row& row : rows) {
        platform.cursor = row.point;
        EXPECT_EQ(tip->IsCursorOverCurrentTip(), row.inside) << row.why;
    }
}

TEST_F(CustomToolTipEntries, EmptyListGivesNoTipAndNoFailure) {
    tip->RemoveTip(&first);
    tip->RemoveTip(&second);
    tip->m_idleDismissed = true;

    RestAt(inFirst);

    EXPECT_EQ(State(), L"Parked");
    EXPECT_FALSE(tip->m_idleDismissed);
}

TEST_F(CustomToolTipEntries, DestructorDeletesEveryContentByRisingIndexAndSkipsNull) {
    struct OrderedContent : TipData {
        OrderedContent(std::vector<int>& order, int number) : m_order(order), m_number(number) {}
        ~OrderedContent() override { m_order.push_back(m_number); }
        std::vector<int>& m_order;
        int m_number;
    };
    std::vector<int> order;
    tip->AddTip(&third, new OrderedContent(order, 1));
    tip->AddTip(RECT{}, new OrderedContent(order, 2));
    tip->AddTip(RECT{}, new OrderedContent(order, 3));
    delete tip->m_tips[0];
    tip->m_tips[0] = nullptr;

    tip->DestroyWindow();
    tip = nullptr;

    EXPECT_THAT(order, ElementsAre(1, 2, 3));
    EXPECT_EQ(contentDeletions, 2);
}

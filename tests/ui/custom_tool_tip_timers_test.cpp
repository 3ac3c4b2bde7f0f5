#include "ui/tip_scene.h"

#include "support/call_journal.h"
#include "ui/message_pump.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

// The platform's own timer messages, by a message loop.

namespace {

class CustomToolTipTimers : public TipSceneTest {
  protected:
    CustomToolTipTimers() : TipSceneTest(TipPlatform::Timers::real) {}

    bool Reaches(const wchar_t* state) {
        return PumpUntil([&] { return State() == state; });
    }
};

}  // namespace

TEST_F(CustomToolTipTimers, CarryATipFromTheRelayToItsEnd) {
    RelayAt(inFirst);
    EXPECT_TRUE(Reaches(L"Steady"));
    const auto& calls = CallJournal::Calls();
    EXPECT_EQ(std::count_if(calls.begin(), calls.end(),
                            [](const auto& call) { return call.rfind(L"RenderTip 0", 0) == 0; }),
              12);
    EXPECT_EQ(CallJournal::Count(L"SetTimer 996 100"), 1);
    EXPECT_EQ(CallJournal::Count(L"SetTimer 995 55"), 1);
    EXPECT_EQ(CallJournal::Count(L"SetTimer 994 1100"), 1);

    platform.cursor = inNone;

    EXPECT_TRUE(Reaches(L"Parked"));
    EXPECT_EQ(tip->m_leaveCount, 2);
}

TEST_F(CustomToolTipTimers, DismissATipUnderACursorAtRestAndLetItComeBackElsewhere) {
    tip->m_idlePeriod = 700;
    RelayAt(inFirst);
    EXPECT_TRUE(PumpUntil([this] { return tip->m_idleDismissed; }));
    EXPECT_EQ(State(), L"Parked");
    EXPECT_EQ(CallJournal::Count(L"SetTimer 997 700"), 1);

    tip->m_idlePeriod = 0;
    RelayAt(inSecond);

    EXPECT_TRUE(Reaches(L"Steady"));
}

#include "soak/soak.h"

#include "support/leak_rounds.h"
#include "support/planted_leaks.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <cstdlib>
#include <cstring>
#include <iostream>

// What the soaks of a program share: leaks planted ahead of them and the lines that are printed.

namespace {

constexpr int plantedOfAKind = 10;

int g_soaks = 0;
int g_rounds = 0;

/// A counter that sees no leak would pass every soak, so each has to show one here.
class SoakReport : public testing::Environment {
    void SetUp() override {
        for (const PlantedLeak& leak : PlantedLeaks()) {
            const ResourceCounts growth = ExpectGrowth(plantedOfAKind, leak.plant, leak.shows);
            leak.mend();
            ASSERT_FALSE(testing::Test::HasFailure()) << leak.name;
            std::cout << "planted: " << plantedOfAKind << " of " << leak.name << ": " << growth
                      << std::endl;
        }
    }
    void TearDown() override {
        const bool passed = testing::UnitTest::GetInstance()->Passed();
        std::cout << g_soaks << " soaks, " << g_rounds << " rounds: "
                  << (passed ? "nothing grew but what is wanted" : "FAILED, see above")
                  << std::endl;
    }
};

const char* Verdict(const ResourceCounts& growth, const ResourceCounts& wanted) {
    if (!(growth == wanted)) return ", FAILED";
    return wanted == ResourceCounts() ? "" : ", as wanted";
}

const testing::Environment* const g_report = testing::AddGlobalTestEnvironment(new SoakReport);

}  // namespace

int SoakRounds(int full) {
    const char* form = std::getenv("KVT_SOAK");
    return form != nullptr && std::strcmp(form, "full") == 0 ? full : full / 10;
}

void Soak(const char* what, int rounds, const std::function<void()>& round,
          const ResourceCounts& wanted) {
    const ULONGLONG start = GetTickCount64();
    const ResourceCounts growth = ExpectGrowth(rounds, round, wanted);
    const ULONGLONG seconds = (GetTickCount64() - start + 500) / 1000;
    std::cout << rounds << " " << what << " (" << seconds << " s): " << growth
              << Verdict(growth, wanted * rounds) << std::endl;
    ++g_soaks;
    g_rounds += rounds;
}

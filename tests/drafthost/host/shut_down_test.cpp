// The services' end: they are gone when the host has been shut down.

#include "support/child_scenario.h"
#include "support/test_profile.h"

#include "runtime/control.h"

#include "acdocman.h"
#include "rxregsvc.h"

#include <gtest/gtest.h>

CHILD_SCENARIO(ShutsDown) {
    const TestProfile profile;
    drafthost::StartHost({profile.Name(), false});
    const bool wereThere = acDocManagerPtr() != nullptr && acrxSysRegistry() != nullptr;
    drafthost::ShutDownHost();
    return wereThere && acDocManagerPtr() == nullptr && acrxSysRegistry() == nullptr ? 5 : 6;
}

TEST(ShutDownHost, TakesManagerAndRegistryAway) {
    EXPECT_EQ(RunScenario(L"ShutsDown").exitCode, 5u);
}

CHILD_SCENARIO(EndsWithoutShutDown) {
    const TestProfile profile;
    drafthost::StartHost({profile.Name(), false});
    return 5;
}

TEST(ShutDownHost, LeftOutCountsAsAModulesDoing) {
    const ChildResult result = RunScenario(L"EndsWithoutShutDown");

    EXPECT_EQ(result.exitCode, 14u);
    EXPECT_NE(result.errors.find("exit or abort was called"), std::string::npos);
}

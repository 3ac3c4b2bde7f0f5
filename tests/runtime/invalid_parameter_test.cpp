#include "runtime/invalid_parameter.h"

#include "support/child_scenario.h"
#include "support/invalid_parameter_scope.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>

namespace {

void Return(const wchar_t*, const wchar_t*, const wchar_t*, unsigned, uintptr_t) {}

CHILD_SCENARIO(NoHandler) {
    try {
        RaiseInvalidParameter();
    } catch (...) {
        return 1;
    }
}

CHILD_SCENARIO(HandlerReturns) {
    _set_invalid_parameter_handler(Return);
    RaiseInvalidParameter();
}

constexpr unsigned long invalidParameterStatus = 0xC0000417;

}  // namespace

TEST(RaiseInvalidParameter, PassesOnTheExceptionOfAHandler) {
    const InvalidParameterScope scope;

    EXPECT_THROW(RaiseInvalidParameter(), LeftByHandler);
}

TEST(RaiseInvalidParameter, EndsTheProcessByDefaultPastEveryCatchClause) {
    const ChildResult child = RunScenario(L"NoHandler");

    EXPECT_FALSE(child.timedOut);
    EXPECT_EQ(child.exitCode, invalidParameterStatus);
}

TEST(RaiseInvalidParameter, EndsTheProcessWhenTheHandlerReturns) {
    const ChildResult child = RunScenario(L"HandlerReturns");

    EXPECT_FALSE(child.timedOut);
    EXPECT_EQ(child.exitCode, invalidParameterStatus);
}

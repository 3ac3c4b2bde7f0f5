#include "app/internal_error.h"

#include "support/child_scenario.h"

#include <gtest/gtest.h>

#include <stdexcept>

using drafthost::ExitCode;

CHILD_SCENARIO(ThrowsOutOfTheProgram) {
    return static_cast<int>(drafthost::RunAndTellInternalErrors(
        []() -> ExitCode { throw std::runtime_error("no more of it"); }));
}

TEST(InternalError, HasItsOwnCodeAndIsToldOnTheStandardError) {
    const ChildResult result = RunScenario(L"ThrowsOutOfTheProgram");

    EXPECT_EQ(static_cast<ExitCode>(result.exitCode), ExitCode::InternalError);
    EXPECT_EQ(result.errors, "drafthost: internal error: no more of it\n");
    EXPECT_EQ(result.output, "");
}

TEST(InternalError, AProgramWithoutOneKeepsItsCode) {
    EXPECT_EQ(drafthost::RunAndTellInternalErrors([] { return ExitCode::ScriptFailed; }),
              ExitCode::ScriptFailed);
}

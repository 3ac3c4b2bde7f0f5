#include "app/interruption.h"

#include "captured_output.h"
#include "runtime/control.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using drafthost::OnControlEvent;

TEST(Interruption, CtrlCEndsARunningEvaluation) {
    CapturedOutput output;
    drafthost::NewDrawing();
    std::atomic<bool> hasEnded = false;
    // Before the evaluation runs the event does nothing, so it comes until there is an effect.
    std::thread system([&] {
        while (!hasEnded) {
            EXPECT_TRUE(OnControlEvent(CTRL_C_EVENT));
            std::this_thread::yield();
        }
    });

    const bool succeeded = drafthost::EvaluateLisp(L"(while t)");
    hasEnded = true;
    system.join();
    drafthost::CloseDrawing();

    EXPECT_FALSE(succeeded);
    EXPECT_THAT(output.Text(), testing::HasSubstr(L"; error: Function cancelled\n"));
}

TEST(Interruption, OtherEventsEndTheProcessAsUsual) {
    for (const DWORD event : {CTRL_BREAK_EVENT, CTRL_CLOSE_EVENT, CTRL_SHUTDOWN_EVENT}) {
        EXPECT_FALSE(OnControlEvent(event)) << event;
    }
}

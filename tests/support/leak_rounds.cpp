#include "support/leak_rounds.h"

#include "support/test_progress.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <iostream>
#include <mutex>

namespace {

constexpr int warmUpRounds = 100;
constexpr int attempts = 3;

/// The session's first window starts the desktop's own process, which goes on making windows for a
/// while. Waits until none has come or gone for half a second.
void WaitForQuietDesktop() {
    constexpr int quietCounts = 10;
    GetDesktopWindow();
    const ULONGLONG deadline = GetTickCount64() + 20000;
    long long last = CountResources().userObjects;
    for (int same = 0; same < quietCounts && GetTickCount64() < deadline;) {
        Sleep(50);
        const long long now = CountResources().userObjects;
        same = now == last ? same + 1 : 0;
        last = now;
    }
}

void Run(int rounds, const std::function<void()>& round) {
    for (int i = 0; i < rounds; ++i) {
        round();
        if (testing::Test::HasFatalFailure()) return;  // One message is enough.
        if (i % 100 == 0) ReportTestProgress();
    }
}

ResourceCounts CountAfterWarmUp(const std::function<void()>& round) {
    static std::once_flag desktopWasAwaited;
    std::call_once(desktopWasAwaited, WaitForQuietDesktop);
    Run(warmUpRounds, round);
    CountResources();  // Result ignored: the first count allocates what counting needs.
    return CountResources();
}

}  // namespace

ResourceCounts GrowthOver(int rounds, const std::function<void()>& round) {
    const ResourceCounts before = CountAfterWarmUp(round);
    Run(rounds, round);
    return CountResources() - before;
}

ResourceCounts ExpectGrowth(int rounds, const std::function<void()>& round,
                            const ResourceCounts& wanted) {
    ResourceCounts growths[attempts];
    int last = 0;
    ResourceCounts after = CountAfterWarmUp(round);
    for (;; ++last) {
        const ResourceCounts before = after;
        Run(rounds, round);
        after = CountResources();
        growths[last] = after - before;
        if (growths[last] == wanted * rounds || last + 1 == attempts) break;
    }
    // Not earlier: the first output takes heap blocks.
    for (int passed = 0; passed < last; ++passed)
        std::cout << "counted again after " << growths[passed] << std::endl;
    EXPECT_EQ(growths[last], wanted * rounds) << "in " << rounds << " rounds";
    return growths[last];
}

ResourceCounts ExpectNoGrowth(int rounds, const std::function<void()>& round) {
    return ExpectGrowth(rounds, round, {});
}

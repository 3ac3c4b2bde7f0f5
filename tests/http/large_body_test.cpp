// The peak of memory with a large body, measured in a child: a peak counts for a whole process.

#include "http/exchange.h"
#include "http/win_http_client.h"
#include "http/working_set.h"

#include "support/child_scenario.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace {

constexpr size_t mebibyte = size_t{1024} * 1024;
constexpr size_t bodySize = 64 * mebibyte;
constexpr size_t limit = 4 * bodySize + 16 * mebibyte;

constexpr int bodyIsWrong = 2;

bool IsPattern(const std::string& body) {
    const std::string line = Pattern(63);
    if (body.size() != bodySize) return false;
    for (size_t at = 0; at < body.size(); at += line.size()) {
        if (body.compare(at, line.size(), line, 0, body.size() - at) != 0) return false;
    }
    return true;
}

/// Fetches the large body and prints by how many bytes the working set rose at its peak.
/// `beside`: bytes held meanwhile.
int FetchAndPrintPeak(size_t beside) {
    const size_t before = ReadWorkingSet().now;
    const std::string held(beside, 'x');
    CWinHttp client;
    const std::string body = client.Request(NginxUrl(L"/67108864.txt"), 0, nullptr, nullptr);
    std::printf("%zu", ReadWorkingSet().peak - before);
    return IsPattern(body) ? 0 : bodyIsWrong;
}

CHILD_SCENARIO(FetchesALargeBody) {
    return FetchAndPrintPeak(0);
}
CHILD_SCENARIO(FetchesALargeBodyBesideTwoCopies) {
    return FetchAndPrintPeak(2 * bodySize);
}

}  // namespace

TEST(LargeBody, TakesAtMostFourTimesItsSize) {
    const ChildResult child = RunScenario(L"FetchesALargeBody");

    EXPECT_EQ(child.exitCode, 0u) << child.errors;
    EXPECT_GE(std::stoull(child.output), 2 * bodySize);  // The body and its result, at least.
    EXPECT_LE(std::stoull(child.output), limit);
}

TEST(LargeBody, ShowsTwoMoreCopiesAsTooMuch) {
    const ChildResult child = RunScenario(L"FetchesALargeBodyBesideTwoCopies");

    EXPECT_EQ(child.exitCode, 0u) << child.errors;
    EXPECT_GT(std::stoull(child.output), limit);
}

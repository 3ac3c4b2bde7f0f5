#include "kvtfetch/fetch.h"

#include "http/fake_win_http.h"

#include <gtest/gtest.h>

namespace {

FetchOptions Options() {
    FetchOptions options;
    options.url = L"http://a.example/p";
    return options;
}

}  // namespace

TEST(Fetch, EndsWithTheCodeOfTheStepThatFailed) {
    struct Row {
        const char* operation;
        int exitCode;
        const char* errors;
    };
    constexpr Row rows[] = {
        {"OpenRequest", 1, "kvtfetch: no session, no request or no response headers\n"},
        {"Receive", 1, "kvtfetch: no session, no request or no response headers\n"},
        {"Connect", 2, "kvtfetch: no connection handle\n"},
    };
    for (const Row& row : rows) {
        FakeWinHttp platform;
        platform.Fail(row.operation);

        const FetchResult result = Fetch(Options());

        EXPECT_EQ(result.exitCode, row.exitCode) << row.operation;
        EXPECT_EQ(result.output, "") << row.operation;
        EXPECT_EQ(result.errors, row.errors) << row.operation;
    }
}

TEST(Fetch, GivesTheStatusAndTheBody) {
    FakeWinHttp platform;
    platform.status = L"500";
    platform.chunks = {u8"正", u8"文"};

    const FetchResult result = Fetch(Options());

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, u8"status 500\n正文");
    EXPECT_EQ(result.errors, "");
}

#include "http/client_probe.h"
#include "http/fake_win_http.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using testing::StartsWith;

namespace {

constexpr wchar_t url[] = L"http://a.example/p";

/// A step that ends the request when its operation fails.
struct FailedStep {
    const char* operation;
    HttpInterfaceError error;
    int handles;  ///< of session, connection and request: how many are open behind the failure
};

void PrintTo(const FailedStep& row, std::ostream* out) {
    *out << row.operation;
}

class FailedRequest : public testing::TestWithParam<FailedStep> {};

int OpenHandles(const ClientProbe& client) {
    return (client.m_hSession != nullptr) + (client.m_hConnect != nullptr) +
           (client.m_hRequest != nullptr);
}

}  // namespace

TEST_P(FailedRequest, ReportsTheStepAndKeepsTheRest) {
    FakeWinHttp platform;
    ClientProbe client;
    platform.status = L"201";
    client.Request(url, 0, nullptr, nullptr);
    platform.TakeCalls();
    platform.chunks = {"body"};
    platform.Fail(GetParam().operation);

    EXPECT_EQ(client.Request(url, 0, nullptr, nullptr), "");

    EXPECT_EQ(client.GetErrorCode(), GetParam().error);
    EXPECT_EQ(client.GetStatusCode(), 201u);  // Of the request before.
    EXPECT_EQ(OpenHandles(client), GetParam().handles);
    EXPECT_THAT(platform.TakeCalls().back(), StartsWith(GetParam().operation));
}

TEST_P(FailedRequest, KeepsItsCodeThroughALaterSuccess) {
    FakeWinHttp platform;
    CWinHttp client;
    platform.Fail(GetParam().operation);
    client.Request(url, 0, nullptr, nullptr);
    platform.chunks = {"body"};

    EXPECT_EQ(client.Request(url, 0, nullptr, nullptr), "body");

    EXPECT_EQ(client.GetErrorCode(), GetParam().error);
    EXPECT_EQ(client.GetStatusCode(), 200u);
}

INSTANTIATE_TEST_SUITE_P(WinHttpClient, FailedRequest,
                         testing::Values(FailedStep{"Open", HttpErrorRequest, 0},
                                         FailedStep{"Connect", HttpErrorConnect, 1},
                                         FailedStep{"OpenRequest", HttpErrorRequest, 2},
                                         FailedStep{"Send", HttpErrorSend, 3},
                                         FailedStep{"Receive", HttpErrorRequest, 3}),
                         [](const testing::TestParamInfo<FailedStep>& row) {
                             return row.param.operation;
                         });

TEST(WinHttpClient, TakesOnlyASendResultOfExactlyOne) {
    for (const BOOL result : {0, 2, -1, 0x10001}) {
        FakeWinHttp platform;
        CWinHttp client;
        platform.sendResult = result;
        platform.chunks = {"body"};

        EXPECT_EQ(client.Request(url, 0, nullptr, nullptr), "") << result;

        EXPECT_EQ(client.GetErrorCode(), HttpErrorSend) << result;
        EXPECT_THAT(platform.TakeCalls(), Not(Contains(StartsWith("Receive")))) << result;
    }
}

TEST(WinHttpClient, IsBuiltWithoutASessionAndTriesAgain) {
    FakeWinHttp platform;
    platform.Fail("Open");

    ClientProbe client;
    EXPECT_THAT(platform.TakeCalls(), ElementsAre(StartsWith("Open")));  // And no time-outs.
    EXPECT_EQ(client.m_hSession, nullptr);
    EXPECT_EQ(client.GetErrorCode(), HttpErrorRequest);

    platform.chunks = {"body"};
    EXPECT_EQ(client.Request(url, 0, nullptr, nullptr), "body");
    EXPECT_THAT(platform.TakeCalls().front(), StartsWith("Open"));  // Nothing to close.
    EXPECT_EQ(client.GetErrorCode(), HttpErrorRequest);
}

TEST(WinHttpClient, GoesOnWhenOptionsAreRefused) {
    for (const char* operation : {"SetTimeouts", "SetOption", "AddHeaders", "Close"}) {
        FakeWinHttp platform;
        CWinHttp client;
        platform.Fail(operation);
        platform.chunks = {"body"};

        EXPECT_EQ(client.Request(L"https://a.example", 0, nullptr, nullptr), "body") << operation;

        EXPECT_EQ(client.GetErrorCode(), HttpErrorNone) << operation;
    }
}

TEST(WinHttpClient, TakesAnUnreadableStatusForZeroAndReadsTheBody) {
    FakeWinHttp platform;
    CWinHttp client;
    client.Request(url, 0, nullptr, nullptr);
    platform.chunks = {"body"};
    platform.Fail("QueryHeaders");

    EXPECT_EQ(client.Request(url, 0, nullptr, nullptr), "body");

    EXPECT_EQ(client.GetStatusCode(), 0u);
    EXPECT_EQ(client.GetErrorCode(), HttpErrorNone);
}

TEST(WinHttpClient, ThrowsTheValueFiveOnStatus404) {
    FakeWinHttp platform;
    ClientProbe client;
    platform.status = L"404";
    platform.chunks = {"body"};

    try {
        client.Request(url, 0, nullptr, nullptr);
        ADD_FAILURE() << "nothing was thrown";
    } catch (HttpInterfaceError error) {
        EXPECT_EQ(error, HttpErrorNotFound);
    }

    EXPECT_EQ(client.GetStatusCode(), 404u);
    EXPECT_EQ(client.GetErrorCode(), HttpErrorNone);
    EXPECT_EQ(OpenHandles(client), 3);
    EXPECT_THAT(platform.TakeCalls(),
                Not(Contains(AnyOf(StartsWith("Available"), StartsWith("Close(request")))));
}

TEST(WinHttpClient, KeepsAnEarlierFailureThroughA404) {
    FakeWinHttp platform;
    CWinHttp client;
    platform.Fail("Connect");
    client.Request(url, 0, nullptr, nullptr);
    platform.status = L"404";

    EXPECT_THROW(client.Request("http://a.example", 0, nullptr, nullptr), HttpInterfaceError);

    EXPECT_EQ(client.GetErrorCode(), HttpErrorConnect);
}

TEST(WinHttpClient, ReadsTheBodyOfEveryOtherStatus) {
    for (const wchar_t* status : {L"204", L"403", L"405", L"4040", L"500"}) {
        FakeWinHttp platform;
        CWinHttp client;
        platform.status = status;
        platform.chunks = {"body"};

        EXPECT_EQ(client.Request(url, 0, nullptr, nullptr), "body");
        EXPECT_EQ(client.GetStatusCode(), std::stoul(status));
    }
}

TEST(WinHttpClient, ReturnsNothingOfABodyThatBreaksOff) {
    for (const char* operation : {"Available", "Read"}) {
        FakeWinHttp platform;
        ClientProbe client;
        platform.chunks = {"first", "second"};
        platform.Fail(operation, 1);

        EXPECT_EQ(client.Request(url, 0, nullptr, nullptr), "") << operation;

        EXPECT_EQ(client.GetErrorCode(), HttpErrorNone) << operation;
        EXPECT_EQ(client.GetStatusCode(), 200u) << operation;
        EXPECT_EQ(OpenHandles(client), 3) << operation;
    }
}

TEST(WinHttpClient, ReturnsNothingWhenTheBodyCannotBeBegun) {
    FakeWinHttp platform;
    CWinHttp client;
    platform.chunks = {"body"};
    platform.Fail("Available");

    EXPECT_EQ(client.Request(url, 0, nullptr, nullptr), "");

    EXPECT_EQ(client.GetErrorCode(), HttpErrorNone);
    EXPECT_THAT(platform.TakeCalls().back(), StartsWith("Available"));
}

// Several requests: on one object in turn, and on two at once.

#include "http/client_probe.h"
#include "http/exchange.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

std::string Fetch(CWinHttp& client, const std::wstring& url) {
    return client.Request(url, 0, nullptr, nullptr);
}

}  // namespace

TEST(RequestSequence, SecureThenPlainStaysSecure) {
    CWinHttp client;
    EXPECT_EQ(Fetch(client, SecureNginxUrl(L"/hello")), "hello from https port 443");

    // TLS to port 80, where nginx speaks none.
    EXPECT_EQ(Fetch(client, NginxUrl(L"/hello")), "");
    EXPECT_EQ(client.GetErrorCode(), HttpErrorSend);
    EXPECT_EQ(client.GetStatusCode(), 200u);

    EXPECT_EQ(Fetch(client, SecureNginxUrl(L"/hello")), "hello from https port 443");
}

TEST(RequestSequence, PlainThenSecureTurnsSecure) {
    CWinHttp client;

    EXPECT_EQ(Fetch(client, NginxUrl(L"/hello")), "hello from http port 80");
    EXPECT_EQ(Fetch(client, SecureNginxUrl(L"/hello")), "hello from https port 443");
}

TEST(RequestSequence, FailureThenSuccessKeepsTheCode) {
    CWinHttp client;
    EXPECT_EQ(Fetch(client, L"http://127.0.0.1:1/"), "");

    EXPECT_EQ(Fetch(client, NginxUrl(L"/hello")), "hello from http port 80");

    EXPECT_EQ(client.GetErrorCode(), HttpErrorSend);
    EXPECT_EQ(client.GetStatusCode(), 200u);
}

TEST(RequestSequence, SuccessThenFailureKeepsTheStatus) {
    CWinHttp client;
    Fetch(client, NginxUrl(L"/status/500"));

    EXPECT_EQ(Fetch(client, HostileUrl(L"/close-before-status")), "");

    EXPECT_EQ(client.GetErrorCode(), HttpErrorRequest);
    EXPECT_EQ(client.GetStatusCode(), 500u);
}

TEST(RequestSequence, NotFoundThenSuccess) {
    ClientProbe client;

    EXPECT_THROW(Fetch(client, NginxUrl(L"/status/404")), HttpInterfaceError);
    EXPECT_EQ(client.GetStatusCode(), 404u);
    EXPECT_NE(client.m_hRequest, nullptr);

    EXPECT_EQ(Fetch(client, NginxUrl(L"/hello")), "hello from http port 80");
    EXPECT_EQ(client.GetStatusCode(), 200u);
    EXPECT_EQ(client.GetErrorCode(), HttpErrorNone);
}

TEST(RequestSequence, TwoClientsWorkAtOnce) {
    Outcome outcomes[2];

    // The server answers neither until both requests are there.
    std::thread first([&] { outcomes[0] = Get(HostileUrl(L"/meet"), nullptr, 30000); });
    std::thread second([&] { outcomes[1] = Get(HostileUrl(L"/meet"), nullptr, 30000); });
    first.join();
    second.join();

    EXPECT_EQ(outcomes[0].body, "met");
    EXPECT_EQ(outcomes[1].body, "met");
}

TEST(RequestSequence, TwoClientsShareNothing) {
    int wrongInPlain = 0;
    int wrongInSecure = 0;
    constexpr size_t rounds = 20;

    std::thread plain([&] {
        for (size_t i = 0; i < rounds; ++i) {
            const size_t size = 1000 * (i + 1);
            const Outcome outcome = Get(HostileUrl(L"/pattern/" + std::to_wstring(size)));
            if (outcome.body != Pattern(size) || outcome.status != 200) ++wrongInPlain;
        }
    });
    std::thread secure([&] {
        for (size_t i = 0; i < rounds; ++i) {
            const Outcome outcome = Get(SecureNginxUrl(L"/status/500"));
            if (outcome.body != "broken" || outcome.status != 500) ++wrongInSecure;
        }
    });
    plain.join();
    secure.join();

    EXPECT_EQ(wrongInPlain, 0);
    EXPECT_EQ(wrongInSecure, 0);
}

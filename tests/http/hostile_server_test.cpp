// The client against a server that misbehaves. Where Windows may answer otherwise than Wine, the
// test says what was seen under Wine 8.

#include "http/exchange.h"

#include "support/child_scenario.h"
#include "support/import_hook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>
// Needs windows.h ahead of it.
#include <winhttp.h>

#include <cstdio>

using testing::EndsWith;
using testing::StartsWith;

namespace {

constexpr uint32_t shortTimeout = 500;  // Milliseconds.

/// No response: the request fails ahead of its status.
void ExpectNoResponse(const Outcome& outcome) {
    EXPECT_EQ(outcome.body, "");
    EXPECT_EQ(outcome.error, HttpErrorRequest);
    EXPECT_EQ(outcome.status, 0u);
}

/// A response that is taken for a success.
void ExpectBody(const Outcome& outcome, const std::string& body) {
    EXPECT_EQ(outcome.body, body);
    EXPECT_EQ(outcome.error, HttpErrorNone);
    EXPECT_EQ(outcome.status, 200u);
}

using QueryDataAvailable = decltype(&WinHttpQueryDataAvailable);
QueryDataAvailable g_available = nullptr;
int g_callsToReset = 0;
const wchar_t* g_resetPath = nullptr;

/// Has the server reset the connection between two reads, once all that it sent has been read.
BOOL WINAPI ResetBetweenReads(HINTERNET request, LPDWORD count) {
    if (--g_callsToReset == 0) Get(HostileUrl(g_resetPath));
    return g_available(request, count);
}

/// What a client gets whose connection is reset when the path has asked for that.
Outcome GetReset(const wchar_t* resetPath) {
    const ImportHook<QueryDataAvailable> hook("WINHTTP.dll", "WinHttpQueryDataAvailable",
                                              &ResetBetweenReads);
    g_available = hook.Original();
    g_callsToReset = 2;
    g_resetPath = resetPath;
    return Get(HostileUrl(L"/reset-in-body"));
}

std::wstring g_lookedUp;

/// In the place of GetAddrInfoW.
INT WINAPI FindNoAddress(PCWSTR name, PCWSTR, const void*, void*) {
    constexpr INT hostNotFound = 11001;
    g_lookedUp = name;
    return hostNotFound;
}

CHILD_SCENARIO(PrintsWhatAProxyGets) {
    // Wine's default proxy.
    const std::wstring proxy = L"127.0.0.1:" + ServerSetting(L"KVT_HOSTILE_PORT");
    SetEnvironmentVariableW(L"http_proxy", proxy.c_str());
    std::fputs(Get(L"http://a.example/echo").body.c_str(), stdout);
    return 0;
}

}  // namespace

TEST(HostileServer, ClosesAheadOfTheStatusLine) {
    ExpectNoResponse(Get(HostileUrl(L"/close-before-status")));
    ExpectNoResponse(Get(HostileUrl(L"/close-in-status")));
}

TEST(HostileServer, ClosesInTheHeaders) {
    // Wine takes the headers that came for all of them.
    ExpectBody(Get(HostileUrl(L"/close-in-headers")), "");
}

TEST(HostileServer, ClosesInTheBody) {
    // The platform takes the close for the end, also short of the length that was announced.
    ExpectBody(Get(HostileUrl(L"/close-in-body")), "0123456789");
    ExpectBody(Get(HostileUrl(L"/close-in-chunk")), "0123456789");
}

TEST(HostileServer, BreaksTheBodyOff) {
    // Not to be told from an empty body.
    ExpectBody(Get(HostileUrl(L"/bad-chunk-size")), "");
    ExpectBody(Get(HostileUrl(L"/empty")), "");
}

TEST(HostileServer, ResetsTheConnectionInTheBody) {
    // Wine takes a reset that doesn't find it waiting for the end of the body.
    ExpectBody(GetReset(L"/reset-now"), "0123456789");
    EXPECT_LE(g_callsToReset, 0);

    // One that does breaks the body off.
    ExpectBody(GetReset(L"/reset-soon"), "");
    EXPECT_LE(g_callsToReset, 0);
}

TEST(HostileServer, SendsMoreThanAnnounced) {
    // Wine hands on what came in the same packet.
    ExpectBody(Get(HostileUrl(L"/longer-than-told")), "0123456789");
    ExpectBody(Get(HostileUrl(L"/negative-length")), "0123456789");
}

TEST(HostileServer, FallsSilentAheadOfTheBody) {
    // Wine's receive time-out bounds no wait for headers, only the server ends it.
    ExpectNoResponse(Get(HostileUrl(L"/silent"), nullptr, shortTimeout));
    ExpectBody(Get(HostileUrl(L"/drip-head"), nullptr, shortTimeout), "abc");
}

TEST(HostileServer, FallsSilentInTheBody) {
    // The receive time-out bounds this wait, and the body counts as broken off.
    ExpectBody(Get(HostileUrl(L"/silent-in-body"), nullptr, shortTimeout), "");
}

TEST(HostileServer, DripsAByteASecond) {
    // Each wait is below the time-out; the whole is not bounded.
    ExpectBody(Get(HostileUrl(L"/drip"), nullptr, 2500), "abc");
}

TEST(HostileServer, DripsSlowerThanTheTimeout) {
    ExpectBody(Get(HostileUrl(L"/drip"), nullptr, shortTimeout), "");
}

TEST(HostileServer, SendsHugeHeaders) {
    ExpectBody(Get(HostileUrl(L"/big-header")), "body");
    ExpectBody(Get(HostileUrl(L"/many-headers")), "body");
}

TEST(HostileServer, SendsAGarbageStatusLine) {
    ExpectNoResponse(Get(HostileUrl(L"/garbage-status")));
    ExpectNoResponse(Get(HostileUrl(L"/status-without-number")));
}

TEST(HostileServer, SendsText) {
    ExpectBody(Get(HostileUrl(L"/chinese")), "中文正文");
    ExpectBody(Get(HostileUrl(L"/nul-in-body")), "before");
    ExpectBody(Get(HostileUrl(L"/invalid-utf8")), "a?b?c?");
    ExpectBody(Get(HostileUrl(L"/not-in-936")), "[?][??]");
}

TEST(HostileServer, SeesTheRequestToTheByte) {
    const std::wstring port = ServerSetting(L"KVT_HOSTILE_PORT");
    const std::string host = "Host: 127.0.0.1:" + std::string(port.begin(), port.end()) + "\r\n";

    EXPECT_EQ(Get(HostileUrl(L"/echo?q=%41 文#f")).body,
              "GET /echo?q=%41%20%E6%96%87%23f HTTP/1.1\r\n"
              "User-Agent: Microsoft Internet Explorer\r\n" +
                  host + "Connection: Keep-Alive\r\n\r\n");
}

TEST(HostileServer, GetsTheBodyUpToItsNul) {
    const std::string request = Post(HostileUrl(L"/echo"), "before\0behind").body;

    EXPECT_THAT(request, EndsWith("\r\n\r\nbefore"));
    EXPECT_THAT(request, testing::HasSubstr("Content-Length: 6\r\n"));
}

TEST(HostileServer, IsReachedByName) {
    const std::wstring url = L"http://localhost:" + ServerSetting(L"KVT_HOSTILE_PORT");

    ExpectBody(Get(url + L"/chinese"), "中文正文");
}

TEST(HostileServer, IsTheProxyOfThePlatformsDefault) {
    const ChildResult child = RunScenario(L"PrintsWhatAProxyGets");

    EXPECT_THAT(child.output, StartsWith("GET http://a.example:80/echo HTTP/1.1"));
}

TEST(HostileServer, IsNotThere) {
    // A connection handle goes nowhere yet, so a refused connection is a failure of the sending.
    const Outcome outcome = Get(L"http://127.0.0.1:1/");

    EXPECT_EQ(outcome.body, "");
    EXPECT_EQ(outcome.error, HttpErrorSend);
}

TEST(HostileServer, HasNoAddress) {
    // In the platform's own look-up, so that nobody outside is asked.
    const ImportHook<decltype(&FindNoAddress)> hook(GetModuleHandleW(L"winhttp.dll"), nullptr,
                                                    "GetAddrInfoW", &FindNoAddress);
    g_lookedUp.clear();

    const Outcome outcome = Get(L"http://a.example/");

    EXPECT_EQ(g_lookedUp, L"a.example");
    EXPECT_EQ(outcome.body, "");
    EXPECT_EQ(outcome.error, HttpErrorSend);
    EXPECT_EQ(outcome.status, 0u);
}

TEST(HostileServer, IsNotGivenHeadersThatAreNone) {
    EXPECT_EQ(Get(HostileUrl(L"/echo"), L"no colon").error, HttpErrorSend);
}

// The client against a real web server, plain and secure.

#include "http/client_probe.h"
#include "http/exchange.h"

#include "support/child_scenario.h"
#include "support/import_hook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

/// A header of the response that the client holds open; empty when it has none.
std::wstring ResponseHeader(const ClientProbe& client, const wchar_t* name) {
    wchar_t value[100] = {};
    DWORD size = sizeof value;
    WinHttpQueryHeaders(client.m_hRequest, WINHTTP_QUERY_CUSTOM, name, value, &size,
                        WINHTTP_NO_HEADER_INDEX);  // Result ignored: the value stays empty.
    return value;
}

BOOL WINAPI RefuseOption(HINTERNET, DWORD, LPVOID, DWORD) {
    return FALSE;
}

std::wstring AddressUrl(const wchar_t* setting) {
    return L"https://" + ServerSetting(setting) + L"/hello";
}

// In processes of their own: the platform may take up a connection that an earlier request made.
CHILD_SCENARIO(PrintsErrorsWithoutSecurityFlags) {
    const ImportHook<decltype(&WinHttpSetOption)> hook("WINHTTP.dll", "WinHttpSetOption",
                                                       &RefuseOption);
    for (const wchar_t* setting : {L"KVT_NGINX", L"KVT_EXPIRED", L"KVT_WRONG_NAME"}) {
        std::printf("%d ", Get(AddressUrl(setting)).error);
    }
    return 0;
}

CHILD_SCENARIO(FollowsToASecureServer) {
    return Get(NginxUrl(L"/redirect-to-secure")).error;
}

}  // namespace

TEST(Nginx, GivesABodyAndItsStatus) {
    const Outcome outcome = Get(NginxUrl(L"/hello"));

    EXPECT_EQ(outcome.body, "hello from http port 80");
    EXPECT_EQ(outcome.status, 200u);
    EXPECT_EQ(outcome.error, HttpErrorNone);
}

TEST(Nginx, SeesMethodQueryAgentAndHeaders) {
    EXPECT_EQ(Get(NginxUrl(L"/show?a=1&b=%20+"), L"X-One: 1\r\nX-Two: two").body,
              "GET /show?a=1&b=%20+ [Microsoft Internet Explorer] [1] [two]");
    EXPECT_EQ(Post(NginxUrl(L"/show"), "body").body,
              "POST /show [Microsoft Internet Explorer] [] []");
}

TEST(Nginx, PassesOnTheBodyOfAPost) {
    const std::string request = Post(NginxUrl(L"/echo"), u8"a=1&名=值").body;

    EXPECT_THAT(request, StartsWith("POST /echo "));
    EXPECT_THAT(request, HasSubstr("Content-Length: 11\r\n"));
    EXPECT_THAT(request, EndsWith("\r\n\r\na=1&名=值"));  // Back in code page 936.
}

TEST(Nginx, FindsAChinesePathAndGivesChineseText) {
    EXPECT_EQ(Get(NginxUrl(L"/图纸 目录/说明.txt")).body, "中文说明\r\n");
    EXPECT_EQ(Get(NginxUrl(L"/show?名=值")).body,
              "GET /show?%E5%90%8D=%E5%80%BC [Microsoft Internet Explorer] [] []");
}

TEST(Nginx, GivesTheSameForANarrowUrl) {
    CWinHttp client;
    const std::string address = "http://" + [] {
        const std::wstring wide = ServerSetting(L"KVT_NGINX");
        return std::string(wide.begin(), wide.end());
    }();

    EXPECT_EQ(client.Request(address + "/图纸 目录/说明.txt", 0, nullptr, nullptr), "中文说明\r\n");
    EXPECT_EQ(client.Request(address + "/show", 0, nullptr, "X-One: 1"),
              "GET /show [Microsoft Internet Explorer] [1] []");
}

TEST(Nginx, GivesBodiesOfEverySize) {
    for (const size_t size : {0, 1, 4096, 4097}) {
        const std::wstring name = L"/" + std::to_wstring(size) + L".txt";

        const Outcome plain = Get(NginxUrl(name));
        const Outcome secure = Get(SecureNginxUrl(name));

        EXPECT_EQ(plain.body, Pattern(size)) << size;
        EXPECT_EQ(plain.status, 200u) << size;
        EXPECT_EQ(secure.body, Pattern(size)) << size;
    }
}

TEST(Nginx, GivesAChunkedBody) {
    ClientProbe client;

    EXPECT_EQ(client.Request(NginxUrl(L"/chunked/100000"), 0, nullptr, nullptr), Pattern(100000));

    EXPECT_EQ(ResponseHeader(client, L"Transfer-Encoding"), L"chunked");
}

TEST(Nginx, LeavesAPackedBodyAsItComes) {
    ClientProbe client;

    const std::string packed =
        client.Request(NginxUrl(L"/packed/4097.txt"), 0, nullptr, L"Accept-Encoding: gzip");

    EXPECT_EQ(ResponseHeader(client, L"Content-Encoding"), L"gzip");
    // The bytes 1F 8B 08 00 taken as UTF-8: the second is none, the last ends the text.
    EXPECT_EQ(packed, "\x1F?\x08");
}

TEST(Nginx, AsksForNoPackedBody) {
    ClientProbe client;

    EXPECT_EQ(client.Request(NginxUrl(L"/packed/4097.txt"), 0, nullptr, nullptr), Pattern(4097));

    EXPECT_EQ(ResponseHeader(client, L"Content-Encoding"), L"");
}

TEST(Nginx, GivesOtherStatusesAsBodies) {
    struct Row {
        const wchar_t* path;
        uint32_t status;
        const char* body;
    };
    constexpr Row rows[] = {{L"/status/204", 204, ""},
                            {L"/status/403", 403, "forbidden"},
                            {L"/status/500", 500, "broken"}};

    for (const Row& row : rows) {
        const Outcome outcome = Get(NginxUrl(row.path));

        EXPECT_EQ(outcome.status, row.status);
        EXPECT_EQ(outcome.body, row.body);
        EXPECT_EQ(outcome.error, HttpErrorNone);
        EXPECT_FALSE(outcome.notFound);
    }
}

TEST(Nginx, ThrowsOnAMissingPage) {
    const Outcome outcome = Get(NginxUrl(L"/status/404"));

    EXPECT_TRUE(outcome.notFound);
    EXPECT_EQ(outcome.status, 404u);
    EXPECT_EQ(outcome.error, HttpErrorNone);
}

TEST(Nginx, IsFollowedWhereThePlatformFollows) {
    EXPECT_EQ(Get(NginxUrl(L"/redirect")).body, "hello from http port 80");
    EXPECT_EQ(Get(SecureNginxUrl(L"/redirect")).body, "hello from https port 443");
    EXPECT_TRUE(Get(NginxUrl(L"/redirect-to-404")).notFound);
}

TEST(Nginx, IsNotFollowedWhereThePlatformRefuses) {
    for (const Outcome& outcome :
         {Get(NginxUrl(L"/redirect-for-ever")), Get(SecureNginxUrl(L"/redirect-to-plain")),
          Post(NginxUrl(L"/redirect"), "body")}) {
        EXPECT_EQ(outcome.body, "");
        EXPECT_EQ(outcome.error, HttpErrorRequest);
        EXPECT_EQ(outcome.status, 0u);
    }
}

TEST(Nginx, KeepsNoCookieBetweenRequests) {
    CWinHttp client;

    EXPECT_EQ(client.Request(NginxUrl(L"/cookie"), 0, nullptr, nullptr), "[]");
    EXPECT_EQ(client.Request(NginxUrl(L"/cookie"), 0, nullptr, nullptr), "[]");
}

TEST(Nginx, IsAcceptedWithAnyCertificate) {
    EXPECT_EQ(Get(SecureNginxUrl(L"/hello")).body, "hello from https port 443");
    EXPECT_EQ(Get(AddressUrl(L"KVT_EXPIRED")).body, "expired");
    EXPECT_EQ(Get(AddressUrl(L"KVT_WRONG_NAME")).body, "wrong name");
}

TEST(Nginx, IsRefusedWithoutTheSecurityFlags) {
    EXPECT_EQ(RunScenario(L"PrintsErrorsWithoutSecurityFlags").output, "3 3 3 ");
}

TEST(Nginx, IsNotFollowedToACertificateThatThePlainRequestDoesNotAccept) {
    EXPECT_EQ(RunScenario(L"FollowsToASecureServer").exitCode, HttpErrorRequest);
}

TEST(Nginx, IsAskedByTlsOnPort443Only) {
    const std::wstring address = ServerSetting(L"KVT_NGINX");

    EXPECT_EQ(Get(L"http://" + address + L":443/hello").body, "hello from https port 443");
    EXPECT_EQ(Get(L"https://" + address + L":8443/hello").body, "hello from http port 8443");
    EXPECT_EQ(Get(address + L"/hello").body, "hello from http port 80");
}

TEST(Nginx, IsTheServerOfTheInnerUrl) {
    EXPECT_EQ(Get(L"https://192.0.2.1/?u=" + NginxUrl(L"/show?x")).body,
              "GET /show?x [Microsoft Internet Explorer] [] []");
}

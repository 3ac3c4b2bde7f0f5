#include "http/win_http_client.h"

#include "http/client_probe.h"
#include "http/fake_win_http.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <type_traits>

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

constexpr wchar_t url[] = L"http://a.example/p";

/// The one call of the operation among `calls`; empty when there is none or more than one.
std::string Only(const std::vector<std::string>& calls, const std::string& operation) {
    std::string found;
    for (const std::string& call : calls) {
        if (call.rfind(operation + "(", 0) != 0) continue;
        if (!found.empty()) return {};
        found = call;
    }
    return found;
}

/// What a request with these arguments asks of the platform in the operation.
std::string CallOf(const std::string& operation, const std::wstring& requestUrl,
                   uint32_t method = 0, const char* body = nullptr,
                   const wchar_t* headers = nullptr) {
    FakeWinHttp platform;
    CWinHttp client;
    platform.TakeCalls();
    client.Request(requestUrl, method, body, headers);
    return Only(platform.TakeCalls(), operation);
}

/// The slot that a pointer to a virtual operation names, by this compiler's rules.
template <typename Operation>
size_t SlotOf(Operation operation) {
    size_t offsetPlusOne = 0;
    static_assert(sizeof operation >= sizeof offsetPlusOne);
    std::memcpy(&offsetPlusOne, &operation, sizeof offsetPlusOne);
    return (offsetPlusOne - 1) / sizeof(void*);
}

}  // namespace

TEST(WinHttpClient, IsDeletedThroughItsTypeAndNotCopied) {
    EXPECT_TRUE(std::has_virtual_destructor_v<CWinHttp>);
    EXPECT_FALSE(std::is_copy_constructible_v<CWinHttp>);
    EXPECT_FALSE(std::is_copy_assignable_v<CWinHttp>);
}

TEST(WinHttpClient, KeepsTheOrderOfItsFields) {
    const FakeWinHttp platform;
    ClientProbe client;
    const auto offset = [&client](const auto& field) {
        return reinterpret_cast<const char*>(&field) - reinterpret_cast<const char*>(&client);
    };

    EXPECT_EQ(offset(client.m_statusCode), 8);  // Behind the table of operations.
    EXPECT_EQ(offset(client.m_secure), 12);
    EXPECT_EQ(offset(client.m_hSession), 16);
    EXPECT_EQ(offset(client.m_hConnect), 24);
    EXPECT_EQ(offset(client.m_hRequest), 32);
    EXPECT_EQ(offset(client.m_connectTimeout), 40);
    EXPECT_EQ(offset(client.m_sendTimeout), 44);
    EXPECT_EQ(offset(client.m_receiveTimeout), 48);
    EXPECT_EQ(offset(client.m_reserved1), 56);
    EXPECT_EQ(offset(client.m_reserved2), 64);
    EXPECT_EQ(offset(client.m_errorCode), 72);
    EXPECT_EQ(sizeof client.m_secure, 1u);
    EXPECT_EQ(sizeof(CWinHttp), 80u);
}

TEST(WinHttpClient, KeepsTheOrderOfItsVirtualOperations) {
    using Wide =
        std::string (CWinHttp::*)(const std::wstring&, uint32_t, const char*, const wchar_t*);
    using Narrow =
        std::string (CWinHttp::*)(const std::string&, uint32_t, const char*, const char*);

    // The destructor has two slots with this compiler: 0 and 1.
    EXPECT_EQ(SlotOf(&CWinHttp::SetTimeouts), 2u);
    EXPECT_EQ(SlotOf(static_cast<Wide>(&CWinHttp::Request)), 3u);
    EXPECT_EQ(SlotOf(static_cast<Narrow>(&CWinHttp::Request)), 4u);
    EXPECT_EQ(SlotOf(&CWinHttp::Release), 5u);
    EXPECT_EQ(SlotOf(&CWinHttp::GetErrorCode), 6u);
    EXPECT_EQ(SlotOf(&CWinHttp::GetStatusCode), 7u);
}

TEST(WinHttpClient, StartsWithASessionAndDefaults) {
    FakeWinHttp platform;

    ClientProbe client;

    EXPECT_THAT(platform.TakeCalls(),
                ElementsAre("Open(\"Microsoft Internet Explorer\", 0, null, null, 0)",
                            "SetTimeouts(session1, 0, 5000, 5000, 5000)"));
    EXPECT_EQ(client.m_statusCode, 0u);
    EXPECT_EQ(client.m_secure, 0);
    EXPECT_NE(client.m_hSession, nullptr);
    EXPECT_EQ(client.m_hConnect, nullptr);
    EXPECT_EQ(client.m_hRequest, nullptr);
    EXPECT_EQ(client.m_connectTimeout, 5000u);
    EXPECT_EQ(client.m_sendTimeout, 5000u);
    EXPECT_EQ(client.m_receiveTimeout, 5000u);
    EXPECT_EQ(client.m_reserved1, nullptr);
    EXPECT_EQ(client.m_reserved2, nullptr);
    EXPECT_EQ(client.m_errorCode, HttpErrorNone);
}

TEST(WinHttpClient, MakesEveryCallOfAPlainRequestInOrder) {
    FakeWinHttp platform;
    platform.chunks = {"body"};
    CWinHttp client;
    platform.TakeCalls();

    EXPECT_EQ(client.Request(L"http://a.example:81/p?q", 0, nullptr, nullptr), "body");

    EXPECT_THAT(
        platform.TakeCalls(),
        ElementsAre("Close(session1)",  // Meant: the constructor's session served for nothing.
                    "Open(\"Microsoft Internet Explorer\", 0, null, null, 0)",
                    "SetTimeouts(session2, 0, 5000, 5000, 5000)",
                    "Connect(session2, \"a.example\", 81, 0)",
                    "OpenRequest(connection1, \"GET\", \"/p?q\", null, null, null, 0x0)",
                    "AddHeaders(request1, \"\", 0, 0xA0000000)",
                    "Send(request1, null, 0, null, 0, 0, 0)",  //
                    "Receive(request1, null)",                 //
                    "QueryHeaders(request1, 19, null, 48 zeros, null)", "Available(request1)",
                    "Read(request1, 4)", "Available(request1)"));
    EXPECT_EQ(client.GetStatusCode(), 200u);
    EXPECT_EQ(client.GetErrorCode(), HttpErrorNone);
}

TEST(WinHttpClient, AsksOnceForAnyCertificateOfASecureRequest) {
    FakeWinHttp platform;
    CWinHttp client;

    client.Request(L"https://a.example", 0, nullptr, nullptr);

    const std::vector<std::string> calls = platform.TakeCalls();
    ASSERT_GT(calls.size(), 8u);
    EXPECT_EQ(calls[5], "Connect(session2, \"a.example\", 443, 0)");
    EXPECT_EQ(calls[6], "OpenRequest(connection1, \"GET\", \"/\", null, null, null, 0x800000)");
    EXPECT_EQ(calls[7], "SetOption(request1, 31, 0x3301, 4)");
    EXPECT_THAT(calls[8], StartsWith("AddHeaders"));
}

TEST(WinHttpClient, UsesTlsWithPort443AndNoOther) {
    struct Row {
        const char* why;
        const wchar_t* url;
        bool secure;
    };
    constexpr Row rows[] = {
        {"secure scheme", L"https://a.example/", true},
        {"plain scheme", L"http://a.example/", false},
        {"secure scheme, other port", L"https://a.example:8443/", false},
        {"plain scheme, port 443", L"http://a.example:443/", true},
        {"no scheme, port 443", L"a.example:443", true},
        {"443 after the cut to 16 bits", L"http://a.example:65979/", true},
        {"inner plain scheme", L"https://a.example/?u=http://b.example/", false},
    };

    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_THAT(CallOf("OpenRequest", row.url), HasSubstr(row.secure ? "0x800000" : "0x0"));
        EXPECT_EQ(CallOf("SetOption", row.url).empty(), !row.secure);
    }
}

TEST(WinHttpClient, KeepsTlsForLaterRequestsOfTheObject) {
    FakeWinHttp platform;
    ClientProbe client;
    client.Request(L"https://a.example/", 0, nullptr, nullptr);
    platform.TakeCalls();

    client.Request(L"http://a.example/", 0, nullptr, nullptr);

    const std::vector<std::string> calls = platform.TakeCalls();
    EXPECT_EQ(Only(calls, "Connect"), "Connect(session3, \"a.example\", 80, 0)");
    EXPECT_THAT(Only(calls, "OpenRequest"), HasSubstr("0x800000"));
    EXPECT_EQ(Only(calls, "SetOption"), "SetOption(request2, 31, 0x3301, 4)");
    EXPECT_EQ(client.m_secure, 1);
}

TEST(WinHttpClient, TakesEveryMethodButZeroForPost) {
    EXPECT_THAT(CallOf("OpenRequest", url, 0), HasSubstr("\"GET\""));
    EXPECT_THAT(CallOf("OpenRequest", url, 1), HasSubstr("\"POST\""));
    EXPECT_THAT(CallOf("OpenRequest", url, 2), HasSubstr("\"POST\""));
    EXPECT_THAT(CallOf("OpenRequest", url, 0xFFFFFFFF), HasSubstr("\"POST\""));
}

TEST(WinHttpClient, SendsTheBodyUpToItsNulWithEitherMethod) {
    EXPECT_EQ(CallOf("Send", url, 1, "a=1"), "Send(request1, null, 0, 'a=1', 3, 3, 0)");
    EXPECT_EQ(CallOf("Send", url, 0, "a=1"), "Send(request1, null, 0, 'a=1', 3, 3, 0)");
    EXPECT_EQ(CallOf("Send", url, 1, "a\0b"), "Send(request1, null, 0, 'a', 1, 1, 0)");
    EXPECT_EQ(CallOf("Send", url, 1, ""), "Send(request1, null, 0, '', 0, 0, 0)");
    EXPECT_EQ(CallOf("Send", url, 1, nullptr), "Send(request1, null, 0, null, 0, 0, 0)");
    EXPECT_EQ(CallOf("Send", url, 1, "\xFF\x80"), "Send(request1, null, 0, '\xFF\x80', 2, 2, 0)");
}

TEST(WinHttpClient, GivesTheHeadersWithTheRequestItself) {
    EXPECT_EQ(CallOf("Send", url, 0, nullptr, L"X-One: 1\r\nX-Two: 文"),
              "Send(request1, \"X-One: 1\r\nX-Two: \\u6587\", -1, null, 0, 0, 0)");
    EXPECT_EQ(CallOf("AddHeaders", url, 0, nullptr, L"X-One: 1"),
              "AddHeaders(request1, \"\", 0, 0xA0000000)");
}

TEST(WinHttpClient, TellsEmptyHeadersFromNone) {
    EXPECT_EQ(CallOf("Send", url, 0, nullptr, L""), "Send(request1, \"\", -1, null, 0, 0, 0)");
    EXPECT_EQ(CallOf("Send", url, 0, nullptr, nullptr), "Send(request1, null, 0, null, 0, 0, 0)");
}

TEST(WinHttpClient, MakesTheSameCallsForNarrowText) {
    FakeWinHttp platform;
    CWinHttp client;
    platform.chunks = {"body"};
    platform.TakeCalls();

    EXPECT_EQ(client.Request("https://a.example/中?文", 1, "a=中", "X-One: 一"), "body");

    const std::vector<std::string> calls = platform.TakeCalls();
    EXPECT_EQ(Only(calls, "Connect"), "Connect(session2, \"a.example\", 443, 0)");
    EXPECT_EQ(Only(calls, "OpenRequest"),
              "OpenRequest(connection1, \"POST\", \"/\\u4E2D?\\u6587\", null, null, null, "
              "0x800000)");
    // The body is sent as it stands: "中" in code page 936.
    EXPECT_EQ(Only(calls, "Send"), "Send(request1, \"X-One: \\u4E00\", -1, 'a=\xD6\xD0', 4, 4, 0)");
    EXPECT_THAT(calls, Contains("Read(request1, 4)"));
}

TEST(WinHttpClient, KeepsTheNullHeadersOfNarrowText) {
    FakeWinHttp platform;
    CWinHttp client;

    client.Request("http://a.example/", 0, nullptr, nullptr);
    EXPECT_EQ(Only(platform.TakeCalls(), "Send"), "Send(request1, null, 0, null, 0, 0, 0)");

    client.Request("http://a.example/", 0, nullptr, "");
    EXPECT_EQ(Only(platform.TakeCalls(), "Send"), "Send(request2, \"\", -1, null, 0, 0, 0)");
}

TEST(WinHttpClient, OnlyStoresTimeoutsUntilTheNextRequest) {
    FakeWinHttp platform;
    ClientProbe client;
    client.Request(url, 0, nullptr, nullptr);
    platform.TakeCalls();

    client.SetTimeouts(1, 2, 0);
    EXPECT_THAT(platform.TakeCalls(), IsEmpty());
    EXPECT_EQ(client.m_connectTimeout, 1u);
    EXPECT_EQ(client.m_sendTimeout, 2u);
    EXPECT_EQ(client.m_receiveTimeout, 0u);

    client.Request(url, 0, nullptr, nullptr);
    EXPECT_THAT(platform.TakeCalls(), Contains("SetTimeouts(session3, 0, 1, 2, 0)"));
}

TEST(WinHttpClient, LeavesAllThreeHandlesOpenBehindARequest) {
    FakeWinHttp platform;
    ClientProbe client;
    platform.TakeCalls();

    client.Request(url, 0, nullptr, nullptr);

    EXPECT_THAT(platform.TakeCalls(), Not(Contains(StartsWith("Close(request"))));
    EXPECT_NE(client.m_hSession, nullptr);
    EXPECT_NE(client.m_hConnect, nullptr);
    EXPECT_NE(client.m_hRequest, nullptr);
}

TEST(WinHttpClient, ReplacesAllThreeHandlesAtTheNextRequest) {
    FakeWinHttp platform;
    ClientProbe client;
    client.Request(url, 0, nullptr, nullptr);
    platform.TakeCalls();
    bool allNull = false;
    platform.atCall = [&](const std::string& operation) {
        if (operation != "Open") return;
        allNull = client.m_hRequest == nullptr && client.m_hConnect == nullptr &&
                  client.m_hSession == nullptr;
    };

    client.Request(url, 0, nullptr, nullptr);

    const std::vector<std::string> calls = platform.TakeCalls();
    ASSERT_GT(calls.size(), 4u);
    EXPECT_EQ(calls[0], "Close(request1)");
    EXPECT_EQ(calls[1], "Close(connection1)");
    EXPECT_EQ(calls[2], "Close(session2)");
    EXPECT_THAT(calls[3], StartsWith("Open("));
    EXPECT_TRUE(allNull);
    EXPECT_EQ(Only(calls, "Receive"), "Receive(request2, null)");
}

TEST(WinHttpClient, ClosesWhatIsOpenWhenDestroyed) {
    FakeWinHttp platform;
    {
        CWinHttp client;
        platform.TakeCalls();
    }
    EXPECT_THAT(platform.TakeCalls(), ElementsAre("Close(session1)"));
    {
        CWinHttp client;
        client.Request(url, 0, nullptr, nullptr);
        platform.TakeCalls();
    }
    EXPECT_THAT(platform.TakeCalls(),
                ElementsAre("Close(request1)", "Close(connection1)", "Close(session3)"));
}

TEST(WinHttpClient, ClearsEachHandleAheadOfClosingTheNext) {
    FakeWinHttp platform;
    auto client = std::make_unique<ClientProbe>();
    client->Request(url, 0, nullptr, nullptr);
    std::vector<bool> cleared;
    platform.atCall = [&, object = client.get()](const std::string&) {
        cleared.push_back(object->m_hRequest == nullptr);
        cleared.push_back(object->m_hConnect == nullptr);
    };

    client.reset();

    EXPECT_THAT(cleared, ElementsAre(false, false, true, false, true, true));
}

TEST(WinHttpClient, ReleasesItselfThroughItsDestructor) {
    FakeWinHttp platform;
    struct Noted : CWinHttp {
        explicit Noted(bool& destroyed) : m_destroyed(destroyed) {}
        ~Noted() override { m_destroyed = true; }
        bool& m_destroyed;
    };
    bool destroyed = false;
    CWinHttp* client = new Noted(destroyed);
    platform.TakeCalls();

    client->Release();

    EXPECT_TRUE(destroyed);
    EXPECT_THAT(platform.TakeCalls(), ElementsAre("Close(session1)"));
}

TEST(WinHttpClient, ReleasesNothingWhenCalledDirectlyOnNull) {
    FakeWinHttp platform;
    CWinHttp* volatile nothing = nullptr;  // The compiler must not see that it is null.

    nothing->CWinHttp::Release();

    EXPECT_THAT(platform.TakeCalls(), IsEmpty());
}

TEST(WinHttpClient, NeverTouchesTheReservedFields) {
    FakeWinHttp platform;
    ClientProbe client;
    int one = 0;
    int two = 0;
    client.m_reserved1 = &one;
    client.m_reserved2 = &two;

    client.SetTimeouts(1, 2, 3);
    client.Request(L"https://a.example", 1, "body", L"X-One: 1");
    client.Request(url, 0, nullptr, nullptr);

    EXPECT_EQ(client.m_reserved1, &one);
    EXPECT_EQ(client.m_reserved2, &two);
}

TEST(WinHttpClient, GivesItsFieldsAsCodes) {
    FakeWinHttp platform;
    ClientProbe client;
    platform.TakeCalls();
    client.m_errorCode = HttpErrorConnect;
    client.m_statusCode = 299;

    EXPECT_EQ(client.GetErrorCode(), HttpErrorConnect);
    EXPECT_EQ(client.GetStatusCode(), 299u);
    EXPECT_THAT(platform.TakeCalls(), IsEmpty());
}

#include "http/array_allocations.h"
#include "http/fake_win_http.h"
#include "http/win_http_client.h"

#include "support/import_hook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace std::string_literals;
using testing::ElementsAre;

namespace {

constexpr wchar_t url[] = L"http://a.example/p";

/// The arrays that a request makes and frees while it reads these chunks.
std::vector<long long> ArraysOf(const std::vector<size_t>& chunkSizes) {
    FakeWinHttp platform;
    for (const size_t size : chunkSizes)
        platform.chunks.emplace_back(size, 'x');
    CWinHttp client;
    const ArrayAllocations arrays;
    client.Request(url, 0, nullptr, nullptr);
    return arrays.Get();
}

int g_conversions = 0;

int WINAPI CountConversion(UINT, DWORD, LPCCH, int, LPWSTR, int) {
    ++g_conversions;
    return 0;
}

}  // namespace

TEST(WinHttpClient, ReadsIntoOneBufferOf4096Bytes) {
    EXPECT_THAT(ArraysOf({}), ElementsAre(4096, -4096));
    EXPECT_THAT(ArraysOf({1, 4095, 4096}), ElementsAre(4096, -4096));
}

TEST(WinHttpClient, FreesTheBufferAndMakesOneOfExactlyALargerChunksSize) {
    EXPECT_THAT(ArraysOf({4097}), ElementsAre(4096, -4096, 4097, -4097));
}

TEST(WinHttpClient, MakesANewBufferForEachLargeChunkEvenIfTheOldOneWouldDo) {
    EXPECT_THAT(ArraysOf({9000, 5000, 9000}),
                ElementsAre(4096, -4096, 9000, -9000, 5000, -5000, 9000, -9000));
}

TEST(WinHttpClient, KeepsALargeBufferForSmallChunks) {
    EXPECT_THAT(ArraysOf({9000, 4096, 1}), ElementsAre(4096, -4096, 9000, -9000));
}

TEST(WinHttpClient, FreesTheBufferWhenTheBodyBreaksOff) {
    FakeWinHttp platform;
    platform.chunks = {std::string(5000, 'x')};
    platform.Fail("Read");
    CWinHttp client;
    const ArrayAllocations arrays;

    client.Request(url, 0, nullptr, nullptr);

    EXPECT_THAT(arrays.Get(), ElementsAre(4096, -4096, 5000, -5000));
}

TEST(WinHttpClient, AsksForExactlyTheBytesAnnounced) {
    FakeWinHttp platform;
    platform.chunks = {std::string(4097, 'a'), std::string(10, 'b')};
    CWinHttp client;
    platform.TakeCalls();

    EXPECT_EQ(client.Request(url, 0, nullptr, nullptr),
              std::string(4097, 'a') + std::string(10, 'b'));

    const std::vector<std::string> calls = platform.TakeCalls();
    const std::vector<std::string> reading(calls.end() - 5, calls.end());
    EXPECT_THAT(reading,
                ElementsAre("Available(request1)", "Read(request1, 4097)", "Available(request1)",
                            "Read(request1, 10)", "Available(request1)"));
}

TEST(WinHttpClient, AppendsOnlyTheBytesThatWereRead) {
    FakeWinHttp platform;
    platform.chunks = {"first", "second"};
    platform.largestRead = 3;
    CWinHttp client;

    EXPECT_EQ(client.Request(url, 0, nullptr, nullptr), "firsec");
}

TEST(WinHttpClient, GivesAnEmptyBodyAndItsStatus) {
    FakeWinHttp platform;
    platform.status = L"204";
    CWinHttp client;

    EXPECT_EQ(client.Request(url, 0, nullptr, nullptr), "");

    EXPECT_EQ(client.GetStatusCode(), 204u);
    EXPECT_EQ(client.GetErrorCode(), HttpErrorNone);
}

TEST(WinHttpClient, ConvertsTheWholeBodyAndNotItsChunks) {
    FakeWinHttp platform;
    platform.chunks = {"\xE4\xB8", "\xAD"};  // "中", parted.
    CWinHttp client;

    EXPECT_EQ(client.Request(url, 0, nullptr, nullptr), "中");
}

TEST(WinHttpClient, EndsTheResponseAtItsFirstNul) {
    FakeWinHttp platform;
    platform.chunks = {"before\0behind"s, "more"};
    CWinHttp client;

    EXPECT_EQ(client.Request(url, 0, nullptr, nullptr), "before");
}

TEST(WinHttpClient, ConvertsABrokenBodyAheadOfDroppingIt) {
    FakeWinHttp platform;
    platform.chunks = {"body"};
    platform.Fail("Available", 1);
    CWinHttp client;
    g_conversions = 0;
    const ImportHook<decltype(&MultiByteToWideChar)> hook("KERNEL32.dll", "MultiByteToWideChar",
                                                          &CountConversion);

    EXPECT_EQ(client.Request(url, 0, nullptr, nullptr), "");

    EXPECT_EQ(g_conversions, 2);
}

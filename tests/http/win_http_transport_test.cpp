#include "http/win_http_transport.h"

#include "http/fake_win_http.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;

namespace {

HINTERNET MakeRequest() {
    const HINTERNET request = Transport::OpenRequest(
        Transport::Connect(Transport::Open(L"agent"), L"a.example", 443), L"GET", L"/", 0);
    return request;
}

}  // namespace

TEST(SetSecurityFlags, SetsTheOptionOnceWhereItIsTaken) {
    FakeWinHttp platform;
    const HINTERNET request = MakeRequest();
    platform.TakeCalls();

    Transport::SetSecurityFlags(request, 0x3301);

    EXPECT_THAT(platform.TakeCalls(), ElementsAre("SetOption(request1, 31, 0x3301, 4)"));
}

TEST(SetSecurityFlags, RepeatsARefusedOptionWithoutTheBitThatIsOnlyReported) {
    FakeWinHttp platform;
    const HINTERNET request = MakeRequest();
    platform.TakeCalls();
    platform.Fail("SetOption");

    Transport::SetSecurityFlags(request, 0x3301);

    EXPECT_THAT(platform.TakeCalls(), ElementsAre("SetOption(request1, 31, 0x3301, 4)",
                                                  "SetOption(request1, 31, 0x3300, 4)"));
}

TEST(SetSecurityFlags, LeavesItAtASecondRefusal) {
    FakeWinHttp platform;
    const HINTERNET request = MakeRequest();
    platform.TakeCalls();
    platform.Fail("SetOption");
    platform.Fail("SetOption");

    Transport::SetSecurityFlags(request, 0x3301);

    EXPECT_EQ(platform.TakeCalls().size(), 2u);
}

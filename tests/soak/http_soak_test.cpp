// Requests to a real web server, those that fail too.

#include "soak/soak.h"

#include "http/exchange.h"

#include <gtest/gtest.h>

namespace {

void RequestInTurn(int turn) {
    static const std::wstring nobody = L"http://" + ServerSetting(L"KVT_NGINX") + L":1/";
    static const std::string body = Pattern(4097);

    switch (turn) {
        case 0:
            ASSERT_EQ(Get(NginxUrl(L"/hello")).body, "hello from http port 80");
            break;
        case 1:
            ASSERT_EQ(Get(NginxUrl(L"/4097.txt")).body, body);
            break;
        case 2:
            ASSERT_TRUE(Get(NginxUrl(L"/status/404")).notFound);
            break;
        default:
            ASSERT_EQ(Get(nobody).error, HttpErrorSend);
            break;
    }
}

TEST(HttpSoak, RequestsAnsweredMissingAndRefusedInTurn) {
    int request = 0;

    Soak("requests", SoakRounds(2000), [&] { RequestInTurn(request++ % 4); });
}

}  // namespace

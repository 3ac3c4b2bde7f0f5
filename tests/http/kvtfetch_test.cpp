// kvtfetch as its user meets it: a program, its output and its exit code.

#include "http/exchange.h"

#include "support/child_process.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

ChildResult Fetch(const std::wstring& arguments) {
    return RunChild(L"\"" + ProgramFolder() + L"\\kvtfetch.exe\" " + arguments);
}

void ExpectFailure(const ChildResult& child, unsigned long exitCode) {
    EXPECT_EQ(child.exitCode, exitCode);
    EXPECT_EQ(child.output, "");
    EXPECT_THAT(child.errors, HasSubstr("kvtfetch: "));
}

}  // namespace

TEST(Kvtfetch, PrintsStatusAndBody) {
    const ChildResult child = Fetch(NginxUrl(L"/hello"));

    EXPECT_EQ(child.exitCode, 0u);
    EXPECT_EQ(child.output, "status 200\nhello from http port 80");
    EXPECT_EQ(child.errors, "");
}

TEST(Kvtfetch, ReachesASecureServerWithAnyCertificate) {
    EXPECT_EQ(Fetch(SecureNginxUrl(L"/hello")).output, "status 200\nhello from https port 443");
}

TEST(Kvtfetch, TakesChineseArgumentsAndPrintsUtf8) {
    const ChildResult page = Fetch(L"\"" + NginxUrl(L"/图纸 目录/说明.txt") + L"\"");
    EXPECT_EQ(page.output, u8"status 200\n中文说明\r\n");

    const ChildResult post = Fetch(HostileUrl(L"/echo") + L" --post 正文");
    EXPECT_THAT(post.output, HasSubstr("POST /echo "));
    EXPECT_THAT(post.output, EndsWith(u8"\r\n\r\n正文"));
}

TEST(Kvtfetch, SendsEveryHeaderLine) {
    const ChildResult child =
        Fetch(NginxUrl(L"/show") + L" --header \"X-One: 1\" --header \"X-Two: 二\"");

    EXPECT_EQ(child.output, u8"status 200\nGET /show [Microsoft Internet Explorer] [1] [二]");
}

TEST(Kvtfetch, EndsWithZeroForOtherStatuses) {
    const ChildResult child = Fetch(NginxUrl(L"/status/500"));

    EXPECT_EQ(child.exitCode, 0u);
    EXPECT_EQ(child.output, "status 500\nbroken");
}

TEST(Kvtfetch, EndsWithTheCodeOfTheFailure) {
    ExpectFailure(Fetch(HostileUrl(L"/close-before-status")), HttpErrorRequest);
    ExpectFailure(Fetch(L"http://127.0.0.1:1/"), HttpErrorSend);
}

TEST(Kvtfetch, EndsWithACodeOfItsOwnForAMissingPage) {
    const ChildResult child = Fetch(NginxUrl(L"/status/404"));

    EXPECT_EQ(child.exitCode, 5u);
    EXPECT_EQ(child.output, "status 404\n");
    EXPECT_THAT(child.errors, HasSubstr("404"));
}

TEST(Kvtfetch, HoldsItselfToTheTimeout) {
    // Broken off by the time-out of half a second, where the default would have seen the end.
    EXPECT_EQ(Fetch(HostileUrl(L"/drip") + L" --timeout 500").output, "status 200\n");
}

TEST(Kvtfetch, EndsWith64WhenItsCommandLineIsWrong) {
    const ChildResult child = Fetch(L"");

    EXPECT_EQ(child.exitCode, 64u);
    EXPECT_EQ(child.output, "");
    EXPECT_THAT(child.errors, Not(IsEmpty()));
}

TEST(Kvtfetch, ListsItsExitCodesAsHelp) {
    const ChildResult child = Fetch(L"--help");

    EXPECT_EQ(child.exitCode, 0u);
    EXPECT_THAT(child.output, HasSubstr("\n   5  the server answered with status 404\n"));
}

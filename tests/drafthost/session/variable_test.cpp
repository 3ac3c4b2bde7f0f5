// The host's variables through LISP's getvar and setvar.

#include "host_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

using testing::StartsWith;

namespace {

std::wstring ShownFor(const std::wstring& expression) {
    return HostRun(L"", expression + L"\nQUIT\n").Shown(expression);
}

}  // namespace

TEST(HostVariable, OfAnUnsavedDrawing) {
    EXPECT_EQ(ShownFor(L"(mapcar 'getvar '(\"DWGNAME\" \"dwgtitled\" \"ACADVER\" \"PRODUCT\"))"),
              L"(\"Drawing1.dwg\" 0 \"17.0\" \"drafthost\")");
}

TEST(HostVariable, DateHasDayAndClock) {
    EXPECT_TRUE(std::regex_match(ShownFor(L"(rtos (getvar \"CDATE\") 2 6)"),
                                 std::wregex(L"\"20\\d{6}(\\.\\d{1,6})?\"")));
}

TEST(HostVariable, ASettableOneKeepsItsValueAndKind) {
    const HostRun run(L"",
                      L"(setvar \"USERR1\" 2)\n(setvar \"USERS5\" \"x\")\n"
                      L"(setvar \"cmdecho\" 0)\n"
                      L"(mapcar 'getvar '(\"userr1\" \"users5\" \"CMDECHO\"))\nQUIT\n");

    EXPECT_EQ(run.Shown(L"(mapcar 'getvar '(\"userr1\" \"users5\" \"CMDECHO\"))"),
              L"(2.0 \"x\" 0)");
}

TEST(HostVariable, AnUnknownReadOnlyOrWronglySetOneIsTold) {
    const HostRun run(L"",
                      L"(getvar \"NOSUCH\")\n(setvar \"DWGNAME\" \"x\")\n"
                      L"(setvar \"USERI1\" \"x\")\nQUIT\n");

    EXPECT_EQ(run.Shown(L"(getvar \"NOSUCH\")"), L"nil");
    EXPECT_THAT(run.Shown(L"(setvar \"DWGNAME\" \"x\")"), StartsWith(L"; error: "));
    EXPECT_THAT(run.Shown(L"(setvar \"USERI1\" \"x\")"), StartsWith(L"; error: "));
}

// The host's variables through LISP's getvar and setvar.

#include "host_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

using testing::HasSubstr;

namespace {

std::wstring ShownFor(const std::wstring& expression) {
    const HostRun run(L"", expression + L"\nQUIT\n");
    const std::wstring echo = L"Command: " + expression + L"\n";
    const std::size_t start = run.Output().find(echo) + echo.size();
    return run.Output().substr(start, run.Output().find(L"\nCommand: ", start) - start);
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
    EXPECT_EQ(ShownFor(L"(list (setvar \"USERR1\" 2) (getvar \"USERR1\") (setvar \"USERS5\" \"x\") "
                       L"(getvar \"USERS5\") (setvar \"cmdecho\" 0) (getvar \"CMDECHO\"))"),
              L"(2.0 2.0 \"x\" \"x\" 0 0)");
}

TEST(HostVariable, AnUnknownOneIsNil) {
    EXPECT_EQ(ShownFor(L"(getvar \"NOSUCH\")"), L"nil");
}

TEST(HostVariable, AReadOnlyOneOrAWrongKindIsAnError) {
    EXPECT_THAT(ShownFor(L"(setvar \"DWGNAME\" \"x\")"), HasSubstr(L"; error: "));
    EXPECT_THAT(ShownFor(L"(setvar \"USERI1\" \"x\")"), HasSubstr(L"; error: "));
}

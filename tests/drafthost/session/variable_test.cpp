// The host's variables through LISP's getvar and setvar.

#include "host_run.h"

#include "support/text_pattern.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
    EXPECT_TRUE(
        MatchesPattern(ShownFor(L"(rtos (getvar \"CDATE\") 2 6)"), L"\"20\\d{6}(\\.\\d{1,6})?\""));
}

TEST(HostVariable, ASettableOneKeepsItsValueAndKind) {
    const HostRun run(L"",
                      L"(setvar \"USERR1\" 2)\n(setvar \"USERS5\" \"x\")\n"
                      L"(setvar \"cmdecho\" 0)\n"
                      L"(mapcar 'getvar '(\"userr1\" \"users5\" \"CMDECHO\"))\nQUIT\n");

    EXPECT_EQ(run.Shown(L"(mapcar 'getvar '(\"userr1\" \"users5\" \"CMDECHO\"))"),
              L"(2.0 \"x\" 0)");
}

TEST(HostVariable, OnesThatStartUpFilesAskForHaveTheirPublishedKindsAndDefaults) {
    struct Row {
        const wchar_t* names;
        const wchar_t* values;
    };
    constexpr Row rows[] = {
        {L"\"OSMODE\" \"EXPERT\" \"CMDDIA\" \"ATTREQ\" \"ATTDIA\" \"FILEDIA\" \"BLIPMODE\"",
         L"4133 0 1 1 0 1 0"},
        {L"\"PICKFIRST\" \"ORTHOMODE\" \"LUNITS\" \"LUPREC\" \"AUNITS\" \"AUPREC\" \"DIMZIN\"",
         L"1 0 2 4 0 0 0"},
        {L"\"CLAYER\" \"DIMSCALE\" \"LTSCALE\" \"TEXTSIZE\" \"MENUECHO\" \"REGENMODE\"",
         L"\"0\" 1.0 1.0 0.2 0 1"},
        {L"\"TEXTSTYLE\" \"CTAB\" \"CECOLOR\" \"DIMSTYLE\" \"DBMOD\" \"CMDNAMES\"",
         L"\"Standard\" \"Model\" \"BYLAYER\" \"Standard\" 0 \"\""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ShownFor(std::wstring(L"(mapcar 'getvar '(") + row.names + L"))"),
                  std::wstring(L"(") + row.values + L")");
    }
}

TEST(HostVariable, OnesOfTheSystemCanOnlyBeRead) {
    const HostRun run(L"",
                      L"(setenv \"ACAD\" \"C:\\\\a;;D:/b\\\\ \")\n(getvar \"ACADPREFIX\")\n"
                      L"(getvar \"SYSCODEPAGE\")\n(strlen (getvar \"LOCALE\"))\n"
                      L"(= (getvar \"LOGINNAME\") (getenv \"USERNAME\"))\n"
                      L"(setvar \"ACADPREFIX\" \"x\")\nQUIT\n");

    EXPECT_EQ(run.Shown(L"(getvar \"ACADPREFIX\")"), L"\"C:\\\\a\\\\;D:\\\\b\\\\;\"");
    EXPECT_EQ(run.Shown(L"(getvar \"SYSCODEPAGE\")"), L"\"ANSI_936\"");
    EXPECT_EQ(run.Shown(L"(strlen (getvar \"LOCALE\"))"), L"3");
    EXPECT_EQ(run.Shown(L"(= (getvar \"LOGINNAME\") (getenv \"USERNAME\"))"), L"T");
    EXPECT_THAT(run.Shown(L"(setvar \"ACADPREFIX\" \"x\")"), StartsWith(L"; error: "));
}

TEST(HostVariable, DateCountsTheDaysOfTheJulianCalendar) {
    // From the calendar's own form: 2026-01-01 is day 2461042. The clock goes on between the two.
    constexpr const wchar_t* day = L"(fix (getvar \"DATE\"))";
    constexpr const wchar_t* again = L"(fix  (getvar \"DATE\"))";
    constexpr const wchar_t* calendar =
        L"(progn (setq d (fix (getvar \"CDATE\")) y (/ d 10000) m (rem (/ d 100) 100) "
        L"a (/ (- 14 m) 12) y (- (+ y 4800) a) m (+ m (* 12 a) -3)) "
        L"(+ (rem d 100) (/ (+ (* 153 m) 2) 5) (* 365 y) (/ y 4) (- (/ y 100)) (/ y 400) -32045))";

    const HostRun run(L"", std::wstring(day) + L"\n" + calendar + L"\n" + again + L"\nQUIT\n");

    EXPECT_THAT(run.Shown(calendar), testing::AnyOf(run.Shown(day), run.Shown(again)));
}

TEST(HostVariable, AnUnknownReadOnlyOrWronglySetOneIsTold) {
    const HostRun run(L"",
                      L"(getvar \"NOSUCH\")\n(setvar \"DWGNAME\" \"x\")\n"
                      L"(setvar \"USERI1\" \"x\")\nQUIT\n");

    EXPECT_EQ(run.Shown(L"(getvar \"NOSUCH\")"), L"nil");
    EXPECT_THAT(run.Shown(L"(setvar \"DWGNAME\" \"x\")"), StartsWith(L"; error: "));
    EXPECT_THAT(run.Shown(L"(setvar \"USERI1\" \"x\")"), StartsWith(L"; error: "));
}

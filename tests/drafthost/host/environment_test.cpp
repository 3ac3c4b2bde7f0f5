// Settings in the user's profile in the registry.

#include "support/test_profile.h"

#include "runtime/control.h"

#include "acedads.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <string>

namespace {

/// The process's profile for all tests of this file.
class Settings : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        g_profile = new TestProfile;
        drafthost::SelectProfile(g_profile->Name());
    }
    static void TearDownTestSuite() {
        drafthost::SelectProfile(L"Default");
        delete g_profile;
    }

    static TestProfile* g_profile;
};

TestProfile* Settings::g_profile = nullptr;

}  // namespace

TEST_F(Settings, AProfileHasAPlainNameOfItsOwn) {
    for (const std::wstring& name :
         {std::wstring(), std::wstring(L"a\\b"), std::wstring(65, L'x')}) {
        EXPECT_FALSE(drafthost::SelectProfile(name));
    }
    acedSetEnv(L"Stays", L"1");
    EXPECT_EQ(g_profile->Stored(L"Stays"), L"1") << "the profile is still the same";
}

TEST_F(Settings, AreStoredInTheRegistry) {
    EXPECT_EQ(acedSetEnv(L"Colour", L"蓝"), RTNORM);

    wchar_t value[2048] = {};
    EXPECT_EQ(acedGetEnv(L"COLOUR", value), RTNORM) << "any case";
    EXPECT_STREQ(value, L"蓝");
    EXPECT_EQ(g_profile->Stored(L"Colour"), L"蓝");
}

TEST_F(Settings, AnUnknownOneLeavesTheBuffer) {
    wchar_t value[2048] = L"before";

    EXPECT_EQ(acedGetEnv(L"NoSuchSetting", value), RTERROR);

    EXPECT_STREQ(value, L"before");
}

TEST_F(Settings, NullsAreErrors) {
    wchar_t value[2048] = {};

    EXPECT_EQ(acedGetEnv(nullptr, value), RTERROR);
    EXPECT_EQ(acedGetEnv(L"ACAD", nullptr), RTERROR);
    EXPECT_EQ(acedSetEnv(nullptr, L"x"), RTERROR);
    EXPECT_EQ(acedSetEnv(L"", L"x"), RTERROR);
    EXPECT_EQ(acedSetEnv(L"X", nullptr), RTERROR);
}

TEST_F(Settings, AnEmptyOneIsASetting) {
    wchar_t value[2048] = L"before";

    EXPECT_EQ(acedSetEnv(L"Empty", L""), RTNORM);
    EXPECT_EQ(acedGetEnv(L"Empty", value), RTNORM);

    EXPECT_STREQ(value, L"");
}

TEST_F(Settings, ALongOneIsCutAtTheBuffersEnd) {
    wchar_t value[2049];
    value[2048] = L'#';

    acedSetEnv(L"Long", std::wstring(3000, L'x').c_str());
    EXPECT_EQ(acedGetEnv(L"Long", value), RTNORM);

    EXPECT_EQ(std::wstring(value), std::wstring(2047, L'x'));
    EXPECT_EQ(value[2048], L'#');
    EXPECT_EQ(drafthost::GetSetting(L"Long")->size(), 3000u) << "stored whole";
}

TEST_F(Settings, TheSearchPathHasADefaultThatIsntStored) {
    wchar_t value[2048] = {};

    EXPECT_EQ(acedGetEnv(L"ACAD", value), RTNORM);

    const std::wstring path = value;
    EXPECT_EQ(path.substr(path.rfind(L'\\')), L"\\Support;");
    EXPECT_EQ(g_profile->Stored(L"ACAD"), L"");
    EXPECT_EQ(drafthost::AllSettings().count(L"ACAD"), 1u);
}

TEST_F(Settings, TheProcesssEnvironmentStandsBehindThem) {
    SetEnvironmentVariableW(L"DRAFTHOST_TEST_VARIABLE", L"from the process");

    EXPECT_EQ(drafthost::GetSetting(L"DRAFTHOST_TEST_VARIABLE"), L"from the process");
    acedSetEnv(L"DRAFTHOST_TEST_VARIABLE", L"from the profile");
    EXPECT_EQ(drafthost::GetSetting(L"DRAFTHOST_TEST_VARIABLE"), L"from the profile");

    SetEnvironmentVariableW(L"DRAFTHOST_TEST_VARIABLE", nullptr);
}

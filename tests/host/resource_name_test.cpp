#include "host/resource_name.h"

#include "support/import_hook.h"

#include <gtest/gtest.h>

#include <string>

namespace {

int g_loads = 0;
HINSTANCE g_instance = nullptr;
UINT g_id = 0;
int g_capacity = 0;

int WINAPI RecordLoad(HINSTANCE instance, UINT id, LPWSTR buffer, int capacity) {
    ++g_loads;
    g_instance = instance;
    g_id = id;
    g_capacity = capacity;
    EXPECT_EQ(buffer[0], L'\0');
    wcscpy(buffer, L"loaded");
    return 0;  // Not looked at.
}

}  // namespace

TEST(ResourceName, AGivenNameIsTakenAsItIs) {
    ImportHook<decltype(&LoadStringW)> load("USER32.dll", "LoadStringW", &RecordLoad);
    g_loads = 0;
    const wchar_t* const name = L"_Name";

    EXPECT_EQ(ResourceName(name, nullptr, 200).Text(), name);
    EXPECT_STREQ(ResourceName(L"", nullptr, 200).Text(), L"");

    EXPECT_EQ(g_loads, 0);
}

TEST(ResourceName, ANullNameIsLoadedFromTheInstanceWithRoomFor132) {
    ImportHook<decltype(&LoadStringW)> load("USER32.dll", "LoadStringW", &RecordLoad);
    const HINSTANCE instance = reinterpret_cast<HINSTANCE>(static_cast<ULONG_PTR>(0x1230000));

    EXPECT_STREQ(ResourceName(nullptr, instance, 4711).Text(), L"loaded");

    EXPECT_EQ(g_instance, instance);
    EXPECT_EQ(g_id, 4711u);
    EXPECT_EQ(g_capacity, 132);
}

TEST(ResourceName, ALongResourceIsCutTo131Characters) {
    std::wstring expected;  // Resource 200: ten characters over and over.
    while (expected.size() < 131)
        expected += L"甲234567890";
    expected.resize(131);

    EXPECT_EQ(ResourceName(nullptr, GetModuleHandleW(nullptr), 200).Text(), expected);
}

TEST(ResourceName, AMissingResourceGivesTheEmptyName) {
    EXPECT_STREQ(ResourceName(nullptr, GetModuleHandleW(nullptr), noStringResource).Text(), L"");
}

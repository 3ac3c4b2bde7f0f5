#include "host/get_kvt_path.h"

#include "install/install_record.h"
#include "support/import_hook.h"

#include <gtest/gtest.h>

#include <acedads.h>

namespace {

std::wstring g_given;
int g_calls = 0;

int RecordRetStr(const wchar_t* text) {
    ++g_calls;
    g_given = text;
    EXPECT_NE(text, InstallLocation.c_str());  // LISP gets a copy.
    return 4711;
}

}  // namespace

TEST(GetKVTPath, GivesLispTheLocationAndReturnsTheHostsAnswer) {
    ImportHook<decltype(&acedRetStr)> answer("drafthost17.dll", "_Z10acedRetStrPKw", &RecordRetStr);
    InstallLocation = L"D:\\工程 目录\\KVT";
    g_calls = 0;

    EXPECT_EQ(GetKVTPath(), 4711);

    EXPECT_EQ(g_given, L"D:\\工程 目录\\KVT");
    EXPECT_EQ(g_calls, 1);
    InstallLocation.clear();
}

TEST(GetKVTPath, AnEmptyLocationIsTheEmptyText) {
    ImportHook<decltype(&acedRetStr)> answer("drafthost17.dll", "_Z10acedRetStrPKw", &RecordRetStr);
    g_given = L"old";

    GetKVTPath();

    EXPECT_EQ(g_given, L"");
}

#include "install/search_path.h"

#include <gtest/gtest.h>

namespace {

struct Row {
    const char* why;
    const wchar_t* location;
    const wchar_t* current;
    const wchar_t* result;
};

constexpr Row rows[] = {
    {"an empty setting gets both, the one tested later first", L"C:\\app", L"",
     L"C:\\app;C:\\app\\R17x\\x64;"},
    {"neither is there: nothing between them and the old value", L"C:\\app", L"D:\\a;D:\\b",
     L"C:\\app;C:\\app\\R17x\\x64;D:\\a;D:\\b"},
    {"only the release directory is there", L"C:\\app", L"D:\\a;C:\\app\\R17x\\x64;",
     L"C:\\app;D:\\a;C:\\app\\R17x\\x64;"},
    {"only the location is there", L"C:\\app", L"D:\\a;C:\\app;",
     L"C:\\app\\R17x\\x64;D:\\a;C:\\app;"},
    {"both are there, in either order", L"C:\\app", L"C:\\app\\R17x\\x64;C:\\app;D:\\a",
     L"C:\\app\\R17x\\x64;C:\\app;D:\\a"},
    {"a last item without semicolon doesn't count", L"C:\\app", L"D:\\a;C:\\app\\R17x\\x64",
     L"C:\\app;C:\\app\\R17x\\x64;D:\\a;C:\\app\\R17x\\x64"},
    {"a longer directory with the same end counts", L"app", L"C:\\my app;D:\\the app\\R17x\\x64;",
     L"C:\\my app;D:\\the app\\R17x\\x64;"},
    {"the second search sees what the first put there", L"x64", L"", L"x64\\R17x\\x64;"},
    {"case makes a difference", L"C:\\App", L"C:\\app;C:\\app\\R17x\\x64;",
     L"C:\\App;C:\\App\\R17x\\x64;C:\\app;C:\\app\\R17x\\x64;"},
    {"another generation is another entry", L"C:\\app", L"C:\\app;C:\\app\\R18x\\x64;",
     L"C:\\app\\R17x\\x64;C:\\app;C:\\app\\R18x\\x64;"},
    {"the old value is not tidied", L"C:\\app", L";;D:\\a;D:\\a; ;",
     L"C:\\app;C:\\app\\R17x\\x64;;;D:\\a;D:\\a; ;"},
    {"a separator at the location's end stays", L"C:\\app\\", L"",
     L"C:\\app\\;C:\\app\\\\R17x\\x64;"},
    {"Chinese, blanks and a percent sign", L"D:\\工程 50%s\\KVT", L"",
     L"D:\\工程 50%s\\KVT;D:\\工程 50%s\\KVT\\R17x\\x64;"},
    {"no location: the lone semicolon stands inside the first entry already", L"", L"",
     L"\\R17x\\x64;"},
};

std::wstring Prepend(const std::wstring& location, const std::wstring& current) {
    return PrependSearchPaths(MakeSearchPathEntries(location), current);
}

}  // namespace

TEST(PrependSearchPaths, PutsMissingEntriesAtTheHead) {
    for (const Row& row : rows) {
        EXPECT_EQ(Prepend(row.location, row.current), row.result) << row.why;
    }
}

TEST(PrependSearchPaths, ARepeatChangesNothing) {
    for (const Row& row : rows) {
        EXPECT_EQ(Prepend(row.location, row.result), row.result) << row.why;
    }
}

TEST(PrependSearchPaths, MeantTheSupportDirectoryNeverGetsIn) {
    for (const Row& row : rows) {
        const std::wstring path = Prepend(row.location, row.current);
        EXPECT_EQ(path.find(L"Support"), std::wstring::npos) << row.why;
    }
}

TEST(PrependSearchPaths, ALocationBeyondAnyBufferIsTakenWhole) {
    const std::wstring location = L"C:\\" + std::wstring(5000, L'长');

    EXPECT_EQ(Prepend(location, L""), location + L";" + location + L"\\R17x\\x64;");
}

TEST(MakeSearchPathEntries, GivesTheReleaseDirectoryThenTheLocationThenNothing) {
    EXPECT_EQ(MakeSearchPathEntries(L"C:\\app"),
              (SearchPathEntries{L"C:\\app\\R17x\\x64;", L"C:\\app;", L""}));
}

#include "install/registry_string.h"

#include "install/install_record.h"
#include "support/import_hook.h"
#include "support/install_registry.h"

#include <gtest/gtest.h>

#include <new>
#include <vector>

namespace {

/// What a scripted query answers.
struct Reply {
    LSTATUS status;
    DWORD type;
    std::string bytes;  ///< copied to the caller's buffer
    DWORD size;         ///< reported, whatever was copied
};

struct Offer {
    DWORD size;
    bool zeroed;  ///< the room that must stand behind the offer held zeros alone
};

const HKEY fakeKey = reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(0x77));

LSTATUS g_openStatus = ERROR_SUCCESS;
std::vector<Reply> g_replies;
std::vector<Offer> g_offers;
int g_opens = 0;
int g_closes = 0;

LSTATUS WINAPI OpenFake(HKEY hive, LPCWSTR path, DWORD reserved, REGSAM access, PHKEY key) {
    ++g_opens;
    EXPECT_EQ(hive, HKEY_LOCAL_MACHINE);
    EXPECT_STREQ(path, L"SOFTWARE\\Brennvik\\KVT CAD辅助设计软件");
    EXPECT_EQ(reserved, 0u);
    EXPECT_EQ(access, 0x20219u);
    *key = fakeKey;
    return g_openStatus;
}

LSTATUS WINAPI QueryFake(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                         LPDWORD size) {
    EXPECT_EQ(key, fakeKey);
    EXPECT_STREQ(name, L"Location");
    EXPECT_EQ(reserved, nullptr);
    if (g_offers.size() >= g_replies.size()) {
        ADD_FAILURE() << "a query more than the script has";
        return ERROR_GEN_FAILURE;
    }
    const Reply& reply = g_replies[g_offers.size()];
    // The first try has 64 bytes of room behind 32 offered, the second as much as it offers.
    const size_t room = g_offers.empty() ? 64 : *size;
    g_offers.push_back({*size, std::string(data, data + room) == std::string(room, '\0')});
    memcpy(data, reply.bytes.data(), reply.bytes.size());
    *type = reply.type;
    *size = reply.size;
    return reply.status;
}

LSTATUS WINAPI CloseFake(HKEY key) {
    EXPECT_EQ(key, fakeKey);
    ++g_closes;
    return ERROR_GEN_FAILURE;  // A close that fails is nobody's business.
}

std::string Bytes(const std::wstring& text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}

/// With a terminator.
std::string Terminated(const std::wstring& text) {
    return Bytes(text + L'\0');
}

bool ReadLocation(std::wstring& output) {
    return ReadRegistryString(HKEY_LOCAL_MACHINE, installKeyAccess, installKeyPath, L"Location",
                              output);
}

/// A registry that answers by script.
class ReadRegistryStringScripted : public testing::Test {
  protected:
    ReadRegistryStringScripted() {
        g_openStatus = ERROR_SUCCESS;
        g_replies.clear();
        g_offers.clear();
        g_opens = 0;
        g_closes = 0;
    }

    bool Read(const std::vector<Reply>& replies) {
        g_replies = replies;
        return ReadLocation(m_output);
    }

    std::wstring m_output = L"untouched";

  private:
    ImportHook<decltype(&RegOpenKeyExW)> m_open{"ADVAPI32.dll", "RegOpenKeyExW", &OpenFake};
    ImportHook<decltype(&RegQueryValueExW)> m_query{"ADVAPI32.dll", "RegQueryValueExW", &QueryFake};
    ImportHook<decltype(&RegCloseKey)> m_close{"ADVAPI32.dll", "RegCloseKey", &CloseFake};
};

const Reply moreData34 = {ERROR_MORE_DATA, REG_SZ, "", 34};

}  // namespace

TEST_F(ReadRegistryStringScripted, AKeyThatDoesNotOpenIsNeitherReadNorClosed) {
    g_openStatus = ERROR_FILE_NOT_FOUND;

    EXPECT_FALSE(Read({}));

    EXPECT_EQ(m_output, L"untouched");
    EXPECT_TRUE(g_offers.empty());
    EXPECT_EQ(g_opens, 1);
    EXPECT_EQ(g_closes, 0);
}

TEST_F(ReadRegistryStringScripted, MeantTheFirstTryOffersHalfOfItsZeroedBuffer) {
    EXPECT_TRUE(Read({{ERROR_SUCCESS, REG_SZ, Terminated(L"C:\\app"), 14}}));

    EXPECT_EQ(m_output, L"C:\\app");
    ASSERT_EQ(g_offers.size(), 1u);
    EXPECT_EQ(g_offers[0].size, 32u);
    EXPECT_TRUE(g_offers[0].zeroed);
    EXPECT_EQ(g_closes, 1);
}

TEST_F(ReadRegistryStringScripted, MeantTheShortPathTestsNeitherTypeNorShape) {
    struct Row {
        const char* why;
        Reply reply;
        const wchar_t* text;
    };
    const Row rows[] = {
        {"sixteen characters and no terminator",
         {ERROR_SUCCESS, REG_SZ, Bytes(L"0123456789abcdef"), 32},
         L"0123456789abcdef"},
        {"a number is the text of its bytes", {ERROR_SUCCESS, REG_DWORD, Bytes(L"ab"), 4}, L"ab"},
        {"binary data", {ERROR_SUCCESS, REG_BINARY, Bytes(L"xyz"), 6}, L"xyz"},
        {"an odd size", {ERROR_SUCCESS, REG_SZ, Bytes(L"ab") + "c", 5}, L"abc"},
        {"no bytes", {ERROR_SUCCESS, REG_SZ, "", 0}, L""},
        {"a list gives its first item",
         {ERROR_SUCCESS, REG_MULTI_SZ, Bytes({L"a\0b", 3}), 6},
         L"a"},
    };
    for (const Row& row : rows) {
        g_offers.clear();
        EXPECT_TRUE(Read({row.reply})) << row.why;
        EXPECT_EQ(m_output, row.text) << row.why;
    }
}

TEST_F(ReadRegistryStringScripted, TheRetryOffersTwiceTheReportedBytesAllZero) {
    EXPECT_TRUE(Read({moreData34, {ERROR_SUCCESS, REG_SZ, Terminated(L"0123456789abcdef"), 34}}));

    EXPECT_EQ(m_output, L"0123456789abcdef");
    ASSERT_EQ(g_offers.size(), 2u);
    EXPECT_EQ(g_offers[1].size, 68u);
    EXPECT_TRUE(g_offers[1].zeroed);
    EXPECT_EQ(g_closes, 1);
}

TEST_F(ReadRegistryStringScripted, FailuresLeaveTheOutputAndCloseTheKeyOnce) {
    struct Row {
        const char* why;
        std::vector<Reply> replies;
    };
    const std::string text = Terminated(L"0123456789abcdef");
    const Row rows[] = {
        {"no such value", {{ERROR_FILE_NOT_FOUND, REG_SZ, "", 0}}},
        {"access refused", {{ERROR_ACCESS_DENIED, REG_SZ, text.substr(0, 32), 32}}},
        {"the value vanished before the retry",
         {moreData34, {ERROR_FILE_NOT_FOUND, REG_SZ, "", 0}}},
        {"the value grew before the retry: no third try",
         {moreData34, {ERROR_MORE_DATA, REG_SZ, text, 90}}},
        {"binary data on the retry", {moreData34, {ERROR_SUCCESS, REG_BINARY, text, 34}}},
        {"the retry's type counts, not the first one's",
         {{ERROR_MORE_DATA, REG_SZ, "", 34}, {ERROR_SUCCESS, REG_MULTI_SZ, text, 34}}},
        {"an odd size on the retry", {moreData34, {ERROR_SUCCESS, REG_SZ, text, 33}}},
        {"no terminator on the retry", {moreData34, {ERROR_SUCCESS, REG_SZ, text, 32}}},
    };
    for (const Row& row : rows) {
        g_offers.clear();
        g_closes = 0;
        EXPECT_FALSE(Read(row.replies)) << row.why;
        EXPECT_EQ(m_output, L"untouched") << row.why;
        EXPECT_EQ(g_offers.size(), row.replies.size()) << row.why;
        EXPECT_EQ(g_closes, 1) << row.why;
    }
}

TEST_F(ReadRegistryStringScripted, TheFirstTypeDoesNotSpoilAGoodRetry) {
    EXPECT_TRUE(Read({{ERROR_MORE_DATA, REG_BINARY, "", 34},
                      {ERROR_SUCCESS, REG_EXPAND_SZ, Terminated(L"0123456789abcdef"), 34}}));

    EXPECT_EQ(m_output, L"0123456789abcdef");
}

TEST_F(ReadRegistryStringScripted, AnEmptyRetryIsTheEmptyText) {
    EXPECT_TRUE(Read({moreData34, {ERROR_SUCCESS, REG_SZ, Bytes(L"left over"), 0}}));

    EXPECT_EQ(m_output, L"");
}

namespace {

// The C++ runtime's operations behind the assignments of a wide string.
using Fill = std::wstring& (*)(std::wstring*, size_t, size_t, size_t, wchar_t);
constexpr char fillName[] =
    "_ZNSt7__cxx1112basic_stringIwSt11char_traitsIwESaIwEE14_M_replace_auxEyyyw";
using Replace = std::wstring& (*)(std::wstring*, size_t, size_t, const wchar_t*, size_t);
constexpr char replaceName[] =
    "_ZNSt7__cxx1112basic_stringIwSt11char_traitsIwESaIwEE10_M_replaceEyyPKwy";

std::wstring& FailToFill(std::wstring*, size_t, size_t, size_t, wchar_t) {
    throw std::bad_alloc();
}

std::wstring& FailToReplace(std::wstring*, size_t, size_t, const wchar_t*, size_t) {
    throw std::bad_alloc();
}

}  // namespace

TEST_F(ReadRegistryStringScripted, ABufferThatCanNotBeHadClosesTheKey) {
    g_replies = {moreData34};
    {
        ImportHook<Fill> fill("libstdc++-6.dll", fillName, &FailToFill);
        EXPECT_THROW(ReadLocation(m_output), std::bad_alloc);
    }

    EXPECT_EQ(m_output, L"untouched");
    EXPECT_EQ(g_closes, 1);
}

TEST_F(ReadRegistryStringScripted, AnAssignmentThatThrowsClosesTheKey) {
    g_replies = {{ERROR_SUCCESS, REG_SZ, Terminated(L"C:\\app"), 14}};
    {
        ImportHook<Replace> assign("libstdc++-6.dll", replaceName, &FailToReplace);
        EXPECT_THROW(ReadLocation(m_output), std::bad_alloc);
    }

    EXPECT_EQ(m_output, L"untouched");
    EXPECT_EQ(g_closes, 1);
}

TEST(ReadRegistryString, AMissingKeyOrValueGivesFalse) {
    InstallRegistry registry;
    std::wstring output = L"untouched";

    EXPECT_FALSE(ReadLocation(output));
    registry.CreateKey();
    EXPECT_FALSE(ReadLocation(output));
    registry.SetVersion(L"1.0");
    EXPECT_FALSE(ReadLocation(output));

    EXPECT_EQ(output, L"untouched");
}

TEST(ReadRegistryString, ReadsTheRealKeyOnBothPaths) {
    InstallRegistry registry;
    const wchar_t* const texts[] = {
        L"",                                               // nothing but the terminator
        L"0123456789abcde",                                // fifteen: the last on the short path
        L"0123456789abcdef",                               // sixteen: the first on the long one
        L"C:\\工程 软件\\KVT CAD辅助设计软件\\安装 目录",  // Chinese, with blanks
        L"C:\\app\\",                                      // a separator at the end stays
    };
    for (const wchar_t* text : texts) {
        registry.SetLocation(text);
        std::wstring output = L"old";
        EXPECT_TRUE(ReadLocation(output)) << text;
        EXPECT_EQ(output, text);
    }
}

TEST(ReadRegistryString, RealValuesOfOtherTypesPassOnlyWhenShort) {
    InstallRegistry registry;
    std::wstring output = L"untouched";

    registry.SetValue(L"Location", REG_BINARY, Terminated(L"0123456789abcdef"));
    EXPECT_FALSE(ReadLocation(output));
    EXPECT_EQ(output, L"untouched");

    registry.SetValue(L"Location", REG_BINARY, Terminated(L"0123456789abcde"));
    EXPECT_TRUE(ReadLocation(output));
    EXPECT_EQ(output, L"0123456789abcde");

    registry.SetValue(L"Location", REG_DWORD, Bytes(L"A\x4E2D"));
    EXPECT_TRUE(ReadLocation(output));
    EXPECT_EQ(output, L"A\x4E2D");
}

TEST(ReadRegistryString, ALongRealValueWithoutTerminatorFails) {
    InstallRegistry registry;
    // The system adds a terminator unless a character follows: here the text goes on behind it.
    const std::string text = Bytes(L"0123456789abcdefXYZ");
    registry.SetValue(L"Location", REG_EXPAND_SZ, std::string_view(text).substr(0, 34));
    std::wstring output = L"untouched";

    EXPECT_FALSE(ReadLocation(output));

    EXPECT_EQ(output, L"untouched");
}

TEST(ReadRegistryString, AnExpandableStringIsNotExpanded) {
    InstallRegistry registry;
    registry.SetValue(L"Location", REG_EXPAND_SZ, Terminated(L"%SystemRoot%\\installation"));
    std::wstring output;

    EXPECT_TRUE(ReadLocation(output));

    EXPECT_EQ(output, L"%SystemRoot%\\installation");
}

TEST(ReadRegistryString, The64BitViewIsNotLookedAt) {
    InstallRegistry registry;
    registry.SetLocationIn64BitView(L"C:\\elsewhere");
    std::wstring output = L"untouched";

    EXPECT_FALSE(ReadLocation(output));

    EXPECT_EQ(output, L"untouched");
}

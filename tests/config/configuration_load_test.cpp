// A new Configuration, and Load with the two fields that it keeps.

#include "config/configuration.h"

#include "config/configuration_fixture.h"
#include "config/document_text.h"
#include "config/file_lock.h"
#include "support/import_hook.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <set>
#include <string>
#include <type_traits>

using tinyxml2::XML_ERROR_FILE_COULD_NOT_BE_OPENED;
using tinyxml2::XML_SUCCESS;

namespace {

using FopenS = ImportHook<decltype(&fopen_s)>;
using Fopen = ImportHook<decltype(&std::fopen)>;
using Strlen = ImportHook<size_t (*)(const char*)>;

static_assert(std::has_virtual_destructor_v<Configuration>);
static_assert(!std::is_copy_constructible_v<Configuration>);
static_assert(!std::is_copy_assignable_v<Configuration>);
static_assert(std::is_same_v<decltype(Configuration::fileName), std::wstring>);
static_assert(std::is_same_v<decltype(Configuration::modified), bool>);
static_assert(std::is_same_v<decltype(Configuration::document), tinyxml2::XMLDocument>);

int FileCount(const TempFolder& folder) {
    const std::filesystem::directory_iterator files(folder.Path());
    return static_cast<int>(std::distance(begin(files), end(files)));
}

class ConfigurationLoad : public ConfigurationTest {};

}  // namespace

TEST(Configuration, StartsEmptyAndUnmodified) {
    const Configuration configuration;

    EXPECT_EQ(configuration.fileName, L"");
    EXPECT_FALSE(configuration.modified);
    EXPECT_TRUE(configuration.document.NoChildren());
    EXPECT_EQ(configuration.document.ErrorID(), XML_SUCCESS);
    EXPECT_TRUE(configuration.document.ProcessEntities());
    EXPECT_EQ(configuration.document.WhitespaceMode(), tinyxml2::PRESERVE_WHITESPACE);
}

TEST(Configuration, HasItsFieldsInOrder) {
    const Configuration configuration;

    EXPECT_LT(static_cast<const void*>(&configuration.fileName),
              static_cast<const void*>(&configuration.modified));
    EXPECT_LT(static_cast<const void*>(&configuration.modified),
              static_cast<const void*>(&configuration.document));
}

TEST(Configuration, DropsAnUnsavedChangeWhenItGoes) {
    const TempFolder folder;
    const std::wstring path = folder / L"config.xml";
    WriteFileBytes(path, "<Config/>");
    {
        Configuration configuration;
        ASSERT_TRUE(configuration.Load(path));
        configuration.SetString("Config.A", "1");
        ASSERT_TRUE(configuration.modified);
    }

    EXPECT_EQ(ReadFileBytes(path), "<Config/>");
}

TEST_F(ConfigurationLoad, ReadsAFileAndKeepsItsName) {
    const std::string bytes = "<?xml version=\"1.0\"?><Config><EnableLog/></Config>";
    WriteFileBytes(m_path, bytes);
    m_configuration.modified = true;

    EXPECT_TRUE(m_configuration.Load(m_path));

    EXPECT_EQ(m_configuration.fileName, m_path);
    EXPECT_FALSE(m_configuration.modified);
    EXPECT_EQ(m_configuration.IndexOf("Config.EnableLog"), 0);
    EXPECT_EQ(FileBytes(), bytes);
    EXPECT_TRUE(IsClosed(m_path));
}

namespace {

const Configuration* g_loading = nullptr;
bool g_clearedAtOpen = false;
std::string g_openedPath;

errno_t LooksAtTheStore(FILE** file, const char* path, const char* mode) {
    if (std::strcmp(mode, "rb") == 0) {
        g_clearedAtOpen =
            g_loading->fileName.empty() && !g_loading->modified && g_loading->document.NoChildren();
        g_openedPath = path;
    }
    *file = nullptr;
    return ENOENT;
}

}  // namespace

TEST_F(ConfigurationLoad, ClearsEverythingAheadOfTheOpening) {
    m_configuration.document.Parse("<Old/>");
    m_configuration.modified = true;
    m_configuration.fileName = L"old";
    g_loading = &m_configuration;
    const FopenS hook("msvcrt.dll", "fopen_s", &LooksAtTheStore);

    m_configuration.Load(L"no such folder\\config.xml");

    EXPECT_TRUE(g_clearedAtOpen);
}

TEST_F(ConfigurationLoad, OpensThePathInTheAnsiCodePage) {
    g_loading = &m_configuration;
    const FopenS hook("msvcrt.dll", "fopen_s", &LooksAtTheStore);

    m_configuration.Load(L"没有 的\\config.xml");

    EXPECT_EQ(g_openedPath, "没有 的\\config.xml");
}

namespace {

decltype(&WideCharToMultiByte) g_narrow = nullptr;
std::set<UINT> g_codePages;

int WINAPI RecordsCodePages(UINT codePage, DWORD flags, const wchar_t* wide, int wideLength,
                            char* narrow, int narrowSize, const char* fallback,
                            BOOL* usedFallback) {
    g_codePages.insert(codePage);
    return g_narrow(codePage, flags, wide, wideLength, narrow, narrowSize, fallback, usedFallback);
}

}  // namespace

TEST_F(ConfigurationLoad, NamesNoCodePage) {
    const ImportHook<decltype(&WideCharToMultiByte)> hook("KERNEL32.dll", "WideCharToMultiByte",
                                                          &RecordsCodePages);
    g_narrow = hook.Original();

    ASSERT_TRUE(m_configuration.Load(m_path));

    EXPECT_EQ(g_codePages, std::set<UINT>{CP_ACP});
}

TEST_F(ConfigurationLoad, WritesTheDefaultDocumentOverWhatCantBeRead) {
    struct Row {
        const char* why;
        const char* bytes;  // Null: no file.
    };
    constexpr Row rows[] = {
        {"a first start without a file", nullptr},
        {"an empty file", ""},
        {"white space alone", " \r\n\t"},
        {"no XML", "EnableLog=1"},
        {"an element left open", "<Config><EnableLog>"},
        {"tags that cross", "<Config><A></Config></A>"},
        {"a cut attribute", "<Config a=\"1></Config>"},
        {"a second root left open", "<Config/><Config>"},
    };
    for (const Row& row : rows) {
        std::filesystem::remove(m_path);
        if (row.bytes != nullptr) WriteFileBytes(m_path, row.bytes);
        Configuration configuration;

        EXPECT_TRUE(configuration.Load(m_path)) << row.why;

        EXPECT_EQ(configuration.fileName, L"") << row.why;
        EXPECT_FALSE(configuration.modified) << row.why;
        EXPECT_EQ(configuration.document.ErrorID(), XML_SUCCESS) << row.why;
        EXPECT_EQ(CompactText(configuration), defaultText) << row.why;
        EXPECT_EQ(configuration.IndexOf("Config.EnableLog"), -1) << row.why;
        EXPECT_EQ(FileBytes(), defaultFile) << row.why;
        EXPECT_EQ(FileCount(m_folder), 1) << row.why << ": no copy of the bad file";
        EXPECT_TRUE(IsClosed(m_path)) << row.why;
    }
}

TEST_F(ConfigurationLoad, ReadsBackWhatTheFallbackWrote) {
    Configuration first;
    ASSERT_TRUE(first.Load(m_path));
    Configuration second;

    EXPECT_TRUE(second.Load(m_path));

    EXPECT_EQ(second.fileName, m_path);
    EXPECT_EQ(CompactText(second), defaultText);
    EXPECT_EQ(second.IndexOf("Config"), 0);
    EXPECT_EQ(second.IndexOf("Config.EnableLog"), -1);
}

namespace {

decltype(&fopen_s) g_fopenS = nullptr;
decltype(&std::fopen) g_fopen = nullptr;
size_t (*g_strlen)(const char*) = nullptr;
std::string g_parsedText;

errno_t OpensSecurelyForWritingOnly(FILE** file, const char* path, const char* mode) {
    return std::strcmp(mode, "w") == 0 ? g_fopenS(file, path, mode) : EACCES;
}

FILE* OpensForWritingOnly(const char* path, const char* mode) {
    return std::strcmp(mode, "w") == 0 ? g_fopen(path, mode) : nullptr;
}

/// The library measures the text that it is given to parse.
size_t CutsTheDefaultDocument(const char* text) {
    const std::string whole(text, g_strlen(text));
    if (whole.rfind(declaration, 0) != 0) return whole.size();
    g_parsedText = whole;
    return whole.find("</Config>");
}

}  // namespace

TEST_F(ConfigurationLoad, OverwritesAFileThatCanBeWrittenButNotRead) {
    WriteFileBytes(m_path, "<Config><EnableLog/></Config>");
    const FopenS secure("msvcrt.dll", "fopen_s", &OpensSecurelyForWritingOnly);
    const Fopen plain("msvcrt.dll", "fopen", &OpensForWritingOnly);
    g_fopenS = secure.Original();
    g_fopen = plain.Original();

    EXPECT_TRUE(m_configuration.Load(m_path));

    EXPECT_EQ(m_configuration.fileName, L"");
    EXPECT_EQ(FileBytes(), defaultFile);
}

TEST_F(ConfigurationLoad, FailsWhenTheDefaultDocumentDoesntParse) {
    bool loaded = true;
    {
        const Strlen hook("msvcrt.dll", "strlen", &CutsTheDefaultDocument);
        g_strlen = hook.Original();
        loaded = m_configuration.Load(m_path);
    }

    EXPECT_FALSE(loaded);
    EXPECT_EQ(g_parsedText, declaration + std::string(6, '\t') + "<Config>" +
                                std::string(16, '\t') + "</Config>");
    EXPECT_EQ(m_configuration.fileName, L"");
    EXPECT_FALSE(m_configuration.modified);
    EXPECT_NE(m_configuration.document.ErrorID(), XML_SUCCESS);
    EXPECT_FALSE(std::filesystem::exists(m_path));
}

TEST_F(ConfigurationLoad, FailsWhenTheDefaultDocumentCantBeWritten) {
    struct Row {
        const char* why;
        const wchar_t* name;
    };
    constexpr Row rows[] = {
        {"a missing folder", L"没有\\config.xml"},
        {"a folder of that name", L"folder"},
        {"a character that the code page doesn't have", L"\x0627.xml"},
    };
    std::filesystem::create_directory(m_folder / L"folder");
    for (const Row& row : rows) {
        const std::wstring path = m_folder / row.name;
        Configuration configuration;
        configuration.modified = true;

        EXPECT_FALSE(configuration.Load(path)) << row.why;

        EXPECT_EQ(configuration.fileName, path) << row.why;
        EXPECT_FALSE(configuration.modified) << row.why;
        EXPECT_EQ(configuration.document.ErrorID(), XML_ERROR_FILE_COULD_NOT_BE_OPENED) << row.why;
        EXPECT_EQ(CompactText(configuration), defaultText) << row.why;
        EXPECT_EQ(FileCount(m_folder), 1) << row.why;
    }
}

TEST_F(ConfigurationLoad, LeavesALockedMalformedFileAsItIs) {
    WriteFileBytes(m_path, "<Config>");
    {
        const FileLock lock(m_path, FILE_SHARE_READ);
        EXPECT_FALSE(m_configuration.Load(m_path));
    }

    EXPECT_EQ(m_configuration.fileName, m_path);
    EXPECT_EQ(static_cast<int>(m_configuration.document.ErrorID()), 4);
    EXPECT_EQ(CompactText(m_configuration), defaultText);
    EXPECT_EQ(FileBytes(), "<Config>");
}

TEST_F(ConfigurationLoad, LeavesADefaultDocumentThatAnswersAfterAFailure) {
    ASSERT_FALSE(m_configuration.Load(m_folder / L"没有\\config.xml"));

    EXPECT_EQ(m_configuration.IndexOf("Config"), 0);
    EXPECT_EQ(m_configuration.GetString("Config.A", "none"), "none");
    m_configuration.SetString("Config.A", "1");
    EXPECT_EQ(m_configuration.GetString("Config.A", "none"), "1");
    EXPECT_TRUE(m_configuration.modified);
}

TEST_F(ConfigurationLoad, NeedsNoRightToWrite) {
    WriteFileBytes(m_path, "<Config><A>1</A></Config>");
    {
        const FileLock lock(m_path, FILE_SHARE_READ);
        EXPECT_TRUE(m_configuration.Load(m_path));
        m_configuration.SetString("Config.A", "2");
        EXPECT_FALSE(m_configuration.Save(m_path)) << "the trouble shows when something is saved";
    }

    EXPECT_EQ(m_configuration.GetString("Config.A", ""), "2");
    EXPECT_EQ(FileBytes(), "<Config><A>1</A></Config>");
}

TEST_F(ConfigurationLoad, LeavesNothingOfAnEarlierLoad) {
    WriteAndLoad("<Config><A>1</A></Config>");
    WriteFileBytes(m_folder / L"b.xml", "<Config><B>2</B></Config>");
    m_configuration.SetString("Config.C", "3");

    EXPECT_TRUE(m_configuration.Load(m_folder / L"b.xml"));

    EXPECT_EQ(CompactText(m_configuration), "<Config><B>2</B></Config>");
    EXPECT_EQ(m_configuration.fileName, m_folder / L"b.xml");
    EXPECT_FALSE(m_configuration.modified);
}

TEST_F(ConfigurationLoad, ForgetsTheNameOfAnEarlierLoadWhenItFallsBack) {
    WriteAndLoad("<Config><A>1</A></Config>");

    EXPECT_TRUE(m_configuration.Load(m_folder / L"b.xml"));

    EXPECT_EQ(m_configuration.fileName, L"");
    EXPECT_EQ(CompactText(m_configuration), defaultText);
}

TEST_F(ConfigurationLoad, TakesTheStoresOwnNameForItsPath) {
    WriteAndLoad("<Config><A>1</A></Config>");
    m_configuration.SetString("Config.A", "2");

    EXPECT_TRUE(m_configuration.Load(m_configuration.fileName));

    EXPECT_EQ(m_configuration.fileName, m_path);
    EXPECT_EQ(m_configuration.GetString("Config.A", ""), "1");
}

#include "config/document_file.h"

#include "config/file_lock.h"
#include "support/import_hook.h"
#include "support/temp_folder.h"

#include <atlstr.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

using testing::HasSubstr;
using tinyxml2::XML_ERROR_EMPTY_DOCUMENT;
using tinyxml2::XML_ERROR_FILE_COULD_NOT_BE_OPENED;
using tinyxml2::XML_ERROR_FILE_NOT_FOUND;
using tinyxml2::XML_ERROR_FILE_READ_ERROR;
using tinyxml2::XML_SUCCESS;

namespace {

using FopenS = ImportHook<decltype(&fopen_s)>;
using Fopen = ImportHook<decltype(&std::fopen)>;
using Fwrite = ImportHook<size_t (*)(const void*, size_t, size_t, FILE*)>;
using Fputc = ImportHook<int (*)(int, FILE*)>;
using Fread = ImportHook<decltype(&std::fread)>;

CStringA Narrow(const std::wstring& path) {
    return CStringA(path.c_str());
}

std::string g_mode;

errno_t RecordsModeAndFails(FILE** file, const char*, const char* mode) {
    g_mode = mode;
    *file = nullptr;
    return EACCES;
}

errno_t SucceedsWithoutStream(FILE** file, const char*, const char*) {
    *file = nullptr;
    return 0;
}

errno_t FailsWithStrayStream(FILE** file, const char*, const char*) {
    *file = stderr;
    return EACCES;
}

FILE* NeverOpens(const char*, const char*) {
    return nullptr;
}

size_t WritesNothing(const void*, size_t, size_t, FILE*) {
    return 0;
}
int PutsNothing(int, FILE*) {
    return EOF;
}
size_t ReadsNothing(void*, size_t, size_t, FILE*) {
    return 0;
}

}  // namespace

TEST(ReadDocument, ReadsTheFileAndClosesIt) {
    const TempFolder folder(L"设置 读取");
    WriteFileBytes(folder / L"a.xml", "<Config><A>1</A></Config>");
    tinyxml2::XMLDocument document;

    ReadDocument(document, Narrow(folder / L"a.xml"));

    EXPECT_EQ(document.ErrorID(), XML_SUCCESS);
    EXPECT_STREQ(document.FirstChildElement()->Value(), "Config");
    EXPECT_TRUE(IsClosed(folder / L"a.xml"));
}

TEST(ReadDocument, SetsErrorThreeWithThePathWhenTheFileCantBeOpened) {
    const TempFolder folder;
    const CStringA path = Narrow(folder / L"没有.xml");
    tinyxml2::XMLDocument document;
    document.Parse("<Old/>");

    ReadDocument(document, path);

    EXPECT_EQ(document.ErrorID(), XML_ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(static_cast<int>(document.ErrorID()), 3);
    EXPECT_THAT(document.ErrorStr(), HasSubstr(std::string("filename=") + path.GetString()));
    EXPECT_TRUE(document.NoChildren());
}

TEST(ReadDocument, SetsErrorFourForANullPathWithoutAnOpening) {
    tinyxml2::XMLDocument document;
    g_mode.clear();
    const FopenS hook("msvcrt.dll", "fopen_s", &RecordsModeAndFails);

    ReadDocument(document, nullptr);

    EXPECT_EQ(static_cast<int>(document.ErrorID()), 4);
    EXPECT_THAT(document.ErrorStr(), HasSubstr("filename=<null>"));
    EXPECT_EQ(g_mode, "");
}

TEST(ReadDocument, OpensInBinaryMode) {
    tinyxml2::XMLDocument document;
    const FopenS hook("msvcrt.dll", "fopen_s", &RecordsModeAndFails);

    ReadDocument(document, "no such file.xml");

    EXPECT_EQ(g_mode, "rb");
}

TEST(ReadDocument, TakesAnOpenWithoutAStreamForAFailure) {
    tinyxml2::XMLDocument document;
    const FopenS hook("msvcrt.dll", "fopen_s", &SucceedsWithoutStream);

    ReadDocument(document, "no such file.xml");

    EXPECT_EQ(document.ErrorID(), XML_ERROR_FILE_NOT_FOUND);
}

TEST(ReadDocument, LeavesTheStreamOfAFailedOpenAlone) {
    tinyxml2::XMLDocument document;
    const FopenS hook("msvcrt.dll", "fopen_s", &FailsWithStrayStream);

    ReadDocument(document, "no such file.xml");

    EXPECT_EQ(document.ErrorID(), XML_ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(std::fputs("", stderr), 0) << "stderr was closed";
}

TEST(ReadDocument, ReadsAFileThatOnlyTheLibrarysOwnOpenGets) {
    const TempFolder folder;
    WriteFileBytes(folder / L"a.xml", "<Config/>");
    tinyxml2::XMLDocument document;
    const FopenS hook("msvcrt.dll", "fopen_s", &RecordsModeAndFails);

    ReadDocument(document, Narrow(folder / L"a.xml"));

    EXPECT_EQ(document.ErrorID(), XML_SUCCESS);
    EXPECT_STREQ(document.FirstChildElement()->Value(), "Config");
}

TEST(ReadDocument, TakesAnEmptyFileForAnError) {
    const TempFolder folder;
    WriteFileBytes(folder / L"empty.xml", "");
    tinyxml2::XMLDocument document;

    ReadDocument(document, Narrow(folder / L"empty.xml"));

    EXPECT_EQ(document.ErrorID(), XML_ERROR_EMPTY_DOCUMENT);
    EXPECT_TRUE(IsClosed(folder / L"empty.xml"));
}

TEST(ReadDocument, TakesAFailedReadForAnError) {
    const TempFolder folder;
    WriteFileBytes(folder / L"a.xml", "<Config/>");
    tinyxml2::XMLDocument document;
    {
        const Fread hook("msvcrt.dll", "fread", &ReadsNothing);
        ReadDocument(document, Narrow(folder / L"a.xml"));
    }

    EXPECT_EQ(document.ErrorID(), XML_ERROR_FILE_READ_ERROR);
    EXPECT_TRUE(IsClosed(folder / L"a.xml"));
}

TEST(WriteDocument, WritesIndentedTextWithThePlatformsLineEnds) {
    const TempFolder folder(L"设置 写入");
    tinyxml2::XMLDocument document;
    document.Parse("<?xml version=\"1.0\"?><Config><A>1</A><B/></Config>");

    WriteDocument(document, Narrow(folder / L"a.xml"));

    EXPECT_EQ(document.ErrorID(), XML_SUCCESS);
    EXPECT_EQ(ReadFileBytes(folder / L"a.xml"),
              "<?xml version=\"1.0\"?>\r\n<Config>\r\n    <A>1</A>\r\n    <B/>\r\n</Config>\r\n");
    EXPECT_TRUE(IsClosed(folder / L"a.xml"));
}

TEST(WriteDocument, ReplacesALongerFile) {
    const TempFolder folder;
    WriteFileBytes(folder / L"a.xml", std::string(500, 'x'));
    tinyxml2::XMLDocument document;
    document.Parse("<Config/>");

    WriteDocument(document, Narrow(folder / L"a.xml"));

    EXPECT_EQ(ReadFileBytes(folder / L"a.xml"), "<Config/>\r\n");
}

TEST(WriteDocument, ClearsAnOlderError) {
    const TempFolder folder;
    tinyxml2::XMLDocument document;
    ReadDocument(document, "no such file.xml");
    ASSERT_NE(document.ErrorID(), XML_SUCCESS);

    WriteDocument(document, Narrow(folder / L"a.xml"));

    EXPECT_EQ(document.ErrorID(), XML_SUCCESS);
}

TEST(WriteDocument, SetsErrorFourWithThePathWhenTheFileCantBeOpened) {
    const TempFolder folder;
    const CStringA path = Narrow(folder / L"没有\\a.xml");
    tinyxml2::XMLDocument document;
    document.Parse("<Config/>");

    WriteDocument(document, path);

    EXPECT_EQ(document.ErrorID(), XML_ERROR_FILE_COULD_NOT_BE_OPENED);
    EXPECT_THAT(document.ErrorStr(), HasSubstr(std::string("filename=") + path.GetString()));
    EXPECT_STREQ(document.FirstChildElement()->Value(), "Config");
}

TEST(WriteDocument, SetsErrorFourForANullPathWithoutAnOpening) {
    tinyxml2::XMLDocument document;
    g_mode.clear();
    const FopenS hook("msvcrt.dll", "fopen_s", &RecordsModeAndFails);

    WriteDocument(document, nullptr);

    EXPECT_EQ(document.ErrorID(), XML_ERROR_FILE_COULD_NOT_BE_OPENED);
    EXPECT_THAT(document.ErrorStr(), HasSubstr("filename=<null>"));
    EXPECT_EQ(g_mode, "");
}

TEST(WriteDocument, OpensInTextModeAndTriesTheLibrarysOwnOpenNext) {
    const TempFolder folder;
    tinyxml2::XMLDocument document;
    document.Parse("<Config/>");
    const FopenS hook("msvcrt.dll", "fopen_s", &RecordsModeAndFails);

    WriteDocument(document, Narrow(folder / L"a.xml"));

    EXPECT_EQ(g_mode, "w");
    EXPECT_EQ(document.ErrorID(), XML_SUCCESS);
    EXPECT_EQ(ReadFileBytes(folder / L"a.xml"), "<Config/>\r\n");
}

TEST(WriteDocument, TakesAnOpenWithoutAStreamForAFailure) {
    const TempFolder folder;
    tinyxml2::XMLDocument document;
    const FopenS hook("msvcrt.dll", "fopen_s", &SucceedsWithoutStream);
    const Fopen library("msvcrt.dll", "fopen", &NeverOpens);

    WriteDocument(document, Narrow(folder / L"a.xml"));

    EXPECT_EQ(document.ErrorID(), XML_ERROR_FILE_COULD_NOT_BE_OPENED);
}

TEST(WriteDocument, DoesntNoticeAWriteThatFails) {
    const TempFolder folder;
    tinyxml2::XMLDocument document;
    document.Parse("<Config><A>1</A></Config>");
    {
        const Fwrite noBlocks("msvcrt.dll", "fwrite", &WritesNothing);
        const Fputc noCharacters("msvcrt.dll", "fputc", &PutsNothing);
        WriteDocument(document, Narrow(folder / L"a.xml"));
    }

    EXPECT_EQ(document.ErrorID(), XML_SUCCESS);
    EXPECT_EQ(ReadFileBytes(folder / L"a.xml"), "");
}

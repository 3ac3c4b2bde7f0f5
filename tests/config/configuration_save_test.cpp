// Save and SaveIfModified, with the two fields that they keep.

#include "config/configuration.h"

#include "config/document_text.h"
#include "config/file_lock.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

using testing::HasSubstr;
using tinyxml2::XML_SUCCESS;

TEST(ConfigurationSave, KeepsWhatTheStoreDoesntKnow) {
    const TempFolder folder;
    const std::wstring path = folder / L"config.xml";
    WriteFileBytes(path,
                   "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\r\n<!--kept-->\r\n"
                   "<Config a=\"1\">\r\n    <EnableLog x=\"y\"/>\r\n    <Other>text</Other>\r\n"
                   "    <!--kept too-->\r\n</Config>\r\n");
    const std::string before = ReadFileBytes(path);
    Configuration configuration;
    ASSERT_TRUE(configuration.Load(path));

    EXPECT_TRUE(configuration.Save(path));

    EXPECT_EQ(ReadFileBytes(path), before);
}

TEST(ConfigurationSave, TouchesNeitherFlagNorNameOnSuccess) {
    const TempFolder folder;
    const std::wstring path = folder / L"config.xml";
    WriteFileBytes(path, "<Config/>");
    Configuration configuration;
    ASSERT_TRUE(configuration.Load(path));
    configuration.SetString("Config.A", "1");

    EXPECT_TRUE(configuration.Save(folder / L"copy.xml"));

    EXPECT_TRUE(configuration.modified);
    EXPECT_EQ(configuration.fileName, path);
    EXPECT_EQ(ReadFileBytes(folder / L"copy.xml"), "<Config>\r\n    <A>1</A>\r\n</Config>\r\n");
    EXPECT_EQ(ReadFileBytes(path), "<Config/>");
}

TEST(ConfigurationSave, ClearsTheFlagAndTakesTheNameOnFailure) {
    const TempFolder folder;
    const std::wstring path = folder / L"config.xml";
    WriteFileBytes(path, "<Config/>");
    Configuration configuration;
    ASSERT_TRUE(configuration.Load(path));
    configuration.SetString("Config.A", "1");

    EXPECT_FALSE(configuration.Save(folder / L"没有\\copy.xml"));

    EXPECT_FALSE(configuration.modified);
    EXPECT_EQ(configuration.fileName, folder / L"没有\\copy.xml");
    EXPECT_EQ(static_cast<int>(configuration.document.ErrorID()), 4);
    EXPECT_THAT(configuration.document.ErrorStr(), HasSubstr("filename="));
    EXPECT_EQ(configuration.GetString("Config.A", ""), "1") << "the document keeps the change";
}

TEST(ConfigurationSave, TakesTheStoresOwnNameForItsPath) {
    const TempFolder folder;
    const std::wstring path = folder / L"没有\\config.xml";
    Configuration configuration;
    configuration.fileName = path;

    EXPECT_FALSE(configuration.Save(configuration.fileName));

    EXPECT_EQ(configuration.fileName, path);
}

TEST(ConfigurationSave, SucceedsAfterAFailureWithTheErrorGone) {
    const TempFolder folder;
    Configuration configuration;
    ASSERT_FALSE(configuration.Load(folder / L"没有\\config.xml"));

    EXPECT_TRUE(configuration.Save(folder / L"config.xml"));

    EXPECT_EQ(configuration.document.ErrorID(), XML_SUCCESS);
    EXPECT_EQ(ReadFileBytes(folder / L"config.xml"), defaultFile);
}

TEST(ConfigurationSave, PassesBytesThroughUnderAUtf8Declaration) {
    const TempFolder folder;
    const std::wstring path = folder / L"config.xml";
    Configuration configuration;
    ASSERT_TRUE(configuration.Load(path));
    configuration.SetString("Config.A", "设置 & <层>");

    ASSERT_TRUE(configuration.Save(path));

    EXPECT_EQ(ReadFileBytes(path), std::string(declaration) +
                                       "\r\n<Config>\r\n    <A>设置 &amp; &lt;层&gt;</A>\r\n"
                                       "</Config>\r\n");
    ASSERT_TRUE(configuration.Load(path));
    EXPECT_EQ(configuration.GetString("Config.A", ""), "设置 & <层>");
}

TEST(ConfigurationSaveIfModified, DoesNothingWithoutAChange) {
    const TempFolder folder;
    const std::wstring path = folder / L"config.xml";
    WriteFileBytes(path, "<Config></Config>");
    Configuration configuration;
    ASSERT_TRUE(configuration.Load(path));

    configuration.SaveIfModified();

    EXPECT_EQ(ReadFileBytes(path), "<Config></Config>");
}

TEST(ConfigurationSaveIfModified, WritesAgainAfterAGoodSave) {
    const TempFolder folder;
    const std::wstring path = folder / L"config.xml";
    WriteFileBytes(path, "<Config/>");
    Configuration configuration;
    ASSERT_TRUE(configuration.Load(path));
    configuration.SetInt("Config.A", 1);
    configuration.SaveIfModified();
    EXPECT_EQ(ReadFileBytes(path), "<Config>\r\n    <A>1</A>\r\n</Config>\r\n");
    EXPECT_TRUE(configuration.modified);
    std::filesystem::remove(path);

    configuration.SaveIfModified();

    EXPECT_EQ(ReadFileBytes(path), "<Config>\r\n    <A>1</A>\r\n</Config>\r\n");
}

TEST(ConfigurationSaveIfModified, LosesAChangeMadeAfterTheFallback) {
    const TempFolder folder;
    const std::wstring path = folder / L"config.xml";
    Configuration configuration;
    ASSERT_TRUE(configuration.Load(path));
    configuration.SetString("Config.A", "1");

    configuration.SaveIfModified();

    EXPECT_FALSE(configuration.modified);
    EXPECT_EQ(configuration.fileName, L"");
    EXPECT_EQ(static_cast<int>(configuration.document.ErrorID()), 4);
    EXPECT_EQ(ReadFileBytes(path), defaultFile);
    ASSERT_TRUE(configuration.Load(path));
    EXPECT_EQ(CompactText(configuration), defaultText);
}

TEST(ConfigurationSaveIfModified, DropsTheResultOfAFailure) {
    const TempFolder folder;
    const std::wstring path = folder / L"config.xml";
    WriteFileBytes(path, "<Config/>");
    Configuration configuration;
    ASSERT_TRUE(configuration.Load(path));
    configuration.SetString("Config.A", "1");
    {
        const FileLock lock(path, FILE_SHARE_READ);
        configuration.SaveIfModified();
    }

    EXPECT_FALSE(configuration.modified);
    EXPECT_EQ(configuration.fileName, path);
    configuration.SaveIfModified();
    EXPECT_EQ(ReadFileBytes(path), "<Config/>") << "a later save has nothing to do";
}

TEST(Configuration, LetsTheLastSaveOfTwoStoresWin) {
    const TempFolder folder;
    const std::wstring path = folder / L"config.xml";
    WriteFileBytes(path, "<Config/>");
    Configuration first;
    Configuration second;
    ASSERT_TRUE(first.Load(path));
    ASSERT_TRUE(second.Load(path));
    first.SetInt("Config.A", 1);
    second.SetInt("Config.B", 2);

    first.SaveIfModified();
    second.SaveIfModified();

    EXPECT_EQ(ReadFileBytes(path), "<Config>\r\n    <B>2</B>\r\n</Config>\r\n");
}

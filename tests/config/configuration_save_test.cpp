// Save and SaveIfModified, with the two fields that they keep.

#include "config/configuration.h"

#include "config/configuration_fixture.h"
#include "config/document_text.h"
#include "config/file_lock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

using testing::HasSubstr;
using tinyxml2::XML_SUCCESS;

namespace {

class ConfigurationSave : public ConfigurationTest {};
class ConfigurationSaveIfModified : public ConfigurationTest {};

}  // namespace

TEST_F(ConfigurationSave, KeepsWhatTheStoreDoesntKnow) {
    constexpr char bytes[] =
        "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\r\n<!--kept-->\r\n"
        "<Config a=\"1\">\r\n    <EnableLog x=\"y\"/>\r\n    <Other>text</Other>\r\n"
        "    <!--kept too-->\r\n</Config>\r\n";
    WriteAndLoad(bytes);

    EXPECT_TRUE(m_configuration.Save(m_path));

    EXPECT_EQ(FileBytes(), bytes);
}

TEST_F(ConfigurationSave, TouchesNeitherFlagNorNameOnSuccess) {
    WriteAndLoad("<Config/>");
    m_configuration.SetString("Config.A", "1");

    EXPECT_TRUE(m_configuration.Save(m_folder / L"copy.xml"));

    EXPECT_TRUE(m_configuration.modified);
    EXPECT_EQ(m_configuration.fileName, m_path);
    EXPECT_EQ(ReadFileBytes(m_folder / L"copy.xml"), "<Config>\r\n    <A>1</A>\r\n</Config>\r\n");
    EXPECT_EQ(FileBytes(), "<Config/>");
}

TEST_F(ConfigurationSave, ClearsTheFlagAndTakesTheNameOnFailure) {
    WriteAndLoad("<Config/>");
    m_configuration.SetString("Config.A", "1");

    EXPECT_FALSE(m_configuration.Save(m_folder / L"没有\\copy.xml"));

    EXPECT_FALSE(m_configuration.modified);
    EXPECT_EQ(m_configuration.fileName, m_folder / L"没有\\copy.xml");
    EXPECT_EQ(static_cast<int>(m_configuration.document.ErrorID()), 4);
    EXPECT_THAT(m_configuration.document.ErrorStr(), HasSubstr("filename="));
    EXPECT_EQ(m_configuration.GetString("Config.A", ""), "1") << "the document keeps the change";
}

TEST_F(ConfigurationSave, TakesTheStoresOwnNameForItsPath) {
    const std::wstring missing = m_folder / L"没有\\config.xml";
    m_configuration.fileName = missing;

    EXPECT_FALSE(m_configuration.Save(m_configuration.fileName));

    EXPECT_EQ(m_configuration.fileName, missing);
}

TEST_F(ConfigurationSave, SucceedsAfterAFailureWithTheErrorGone) {
    ASSERT_FALSE(m_configuration.Load(m_folder / L"没有\\config.xml"));

    EXPECT_TRUE(m_configuration.Save(m_path));

    EXPECT_EQ(m_configuration.document.ErrorID(), XML_SUCCESS);
    EXPECT_EQ(FileBytes(), defaultFile);
}

TEST_F(ConfigurationSave, PassesBytesThroughUnderAUtf8Declaration) {
    ASSERT_TRUE(m_configuration.Load(m_path));
    m_configuration.SetString("Config.A", "设置 & <层>");

    ASSERT_TRUE(m_configuration.Save(m_path));

    EXPECT_EQ(FileBytes(), std::string(declaration) +
                               "\r\n<Config>\r\n    <A>设置 &amp; &lt;层&gt;</A>\r\n"
                               "</Config>\r\n");
    ASSERT_TRUE(m_configuration.Load(m_path));
    EXPECT_EQ(m_configuration.GetString("Config.A", ""), "设置 & <层>");
}

TEST_F(ConfigurationSaveIfModified, DoesNothingWithoutAChange) {
    WriteAndLoad("<Config></Config>");

    m_configuration.SaveIfModified();

    EXPECT_EQ(FileBytes(), "<Config></Config>");
}

TEST_F(ConfigurationSaveIfModified, WritesAgainAfterAGoodSave) {
    WriteAndLoad("<Config/>");
    m_configuration.SetInt("Config.A", 1);
    m_configuration.SaveIfModified();
    EXPECT_EQ(FileBytes(), "<Config>\r\n    <A>1</A>\r\n</Config>\r\n");
    EXPECT_TRUE(m_configuration.modified);
    std::filesystem::remove(m_path);

    m_configuration.SaveIfModified();

    EXPECT_EQ(FileBytes(), "<Config>\r\n    <A>1</A>\r\n</Config>\r\n");
}

TEST_F(ConfigurationSaveIfModified, LosesAChangeMadeAfterTheFallback) {
    ASSERT_TRUE(m_configuration.Load(m_path));
    m_configuration.SetString("Config.A", "1");

    m_configuration.SaveIfModified();

    EXPECT_FALSE(m_configuration.modified);
    EXPECT_EQ(m_configuration.fileName, L"");
    EXPECT_EQ(static_cast<int>(m_configuration.document.ErrorID()), 4);
    EXPECT_EQ(FileBytes(), defaultFile);
    ASSERT_TRUE(m_configuration.Load(m_path));
    EXPECT_EQ(CompactText(m_configuration), defaultText);
}

TEST_F(ConfigurationSaveIfModified, DropsTheResultOfAFailure) {
    WriteAndLoad("<Config/>");
    m_configuration.SetString("Config.A", "1");
    {
        const FileLock lock(m_path, FILE_SHARE_READ);
        m_configuration.SaveIfModified();
    }

    EXPECT_FALSE(m_configuration.modified);
    EXPECT_EQ(m_configuration.fileName, m_path);
    m_configuration.SaveIfModified();
    EXPECT_EQ(FileBytes(), "<Config/>") << "a later save has nothing to do";
}

TEST_F(ConfigurationSaveIfModified, LetsTheLastOfTwoStoresWin) {
    WriteAndLoad("<Config/>");
    Configuration second;
    ASSERT_TRUE(second.Load(m_path));
    m_configuration.SetInt("Config.A", 1);
    second.SetInt("Config.B", 2);

    m_configuration.SaveIfModified();
    second.SaveIfModified();

    EXPECT_EQ(FileBytes(), "<Config>\r\n    <B>2</B>\r\n</Config>\r\n");
}

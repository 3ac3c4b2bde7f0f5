#include "config/configuration.h"

#include "config/document_text.h"
#include "support/child_scenario.h"
#include "support/invalid_parameter_scope.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace {

constexpr char fourElements[] = "<Config><A/><B/><C/><D/></Config>";

}  // namespace

TEST(ConfigurationMoveTo, ReckonsOnTheListAsItStoodBefore) {
    struct Row {
        const char* why;
        const char* name;
        std::uint32_t index;
        bool modified;
        const char* after;
    };
    constexpr Row rows[] = {
        {"to its own place: nothing happens", "B", 1, false, "<A/><B/><C/><D/>"},
        {"the first to its own place", "A", 0, false, "<A/><B/><C/><D/>"},
        {"to the front", "C", 0, true, "<C/><A/><B/><D/>"},
        {"to the left", "D", 1, true, "<A/><D/><B/><C/>"},
        {"to the left by one", "C", 1, true, "<A/><C/><B/><D/>"},
        {"to the right lands one short", "A", 2, true, "<B/><A/><C/><D/>"},
        {"further right, one short too", "A", 3, true, "<B/><C/><A/><D/>"},
        {"to the count: behind the last", "A", 4, true, "<B/><C/><D/><A/>"},
        {"by one to the right: the element is lost", "A", 1, true, "<B/><C/><D/>"},
        {"lost from the middle", "C", 3, true, "<A/><B/><D/>"},
        {"lost from the end", "D", 4, true, "<A/><B/><C/>"},
        {"a new element stands at the end already", "E", 4, true, "<A/><B/><C/><D/><E/>"},
        {"a new element to the front", "E", 0, true, "<E/><A/><B/><C/><D/>"},
        {"a new element by one to the right is lost at once", "E", 5, true, "<A/><B/><C/><D/>"},
    };
    for (const Row& row : rows) {
        Configuration configuration;
        Parse(configuration, fourElements);

        configuration.MoveTo(std::string("Config.") + row.name, row.index);

        EXPECT_EQ(CompactText(configuration), std::string("<Config>") + row.after + "</Config>")
            << row.why;
        EXPECT_EQ(configuration.modified, row.modified) << row.why;
    }
}

TEST(ConfigurationMoveTo, CopiesAttributesAndEveryChildNodeInOrder) {
    Configuration configuration;
    Parse(
        configuration,
        "<Config><A/><B x=\"1\" y=\"2\">text<C z=\"3\"><D/></C><!--c--><![CDATA[d]]></B></Config>");

    configuration.MoveTo("Config.B", 0);

    EXPECT_EQ(CompactText(configuration),
              "<Config><B x=\"1\" y=\"2\">text<C z=\"3\"><D/></C><!--c--><![CDATA[d]]></B><A/>"
              "</Config>");
}

TEST(ConfigurationMoveTo, CountsElementsAndPassesOtherNodesBy) {
    struct Row {
        const char* why;
        const char* path;
        std::uint32_t index;
        const char* after;
    };
    constexpr Row rows[] = {
        {"the front is in front of comments too", "Config.C", 0, "<C/><!--1--><A/><!--2--><B/>t"},
        {"right behind the entry", "Config.C", 1, "<!--1--><A/><C/><!--2--><B/>t"},
        {"behind the last entry, not behind the text", "Config.A", 3,
         "<!--1--><!--2--><B/>t<C/><A/>"},
    };
    for (const Row& row : rows) {
        Configuration configuration;
        Parse(configuration, "<Config><!--1--><A/><!--2--><B/>t<C/></Config>");

        configuration.MoveTo(row.path, row.index);

        EXPECT_EQ(CompactText(configuration), std::string("<Config>") + row.after + "</Config>")
            << row.why;
    }
}

TEST(ConfigurationMoveTo, MovesTheFirstOfTwoTwins) {
    Configuration configuration;
    Parse(configuration, "<Config><A>1</A><A>2</A><B/></Config>");

    configuration.MoveTo("Config.A", 3);

    EXPECT_EQ(CompactText(configuration), "<Config><A>2</A><B/><A>1</A></Config>");
}

TEST(ConfigurationMoveTo, MovesTheRootAmongTheDocumentsElements) {
    Configuration configuration;
    Parse(configuration, "<?xml version=\"1.0\"?><Config a=\"1\"><A/></Config><Other/>");

    configuration.MoveTo("Config", 2);

    EXPECT_EQ(CompactText(configuration),
              "<?xml version=\"1.0\"?><Other/><Config a=\"1\"><A/></Config>");
}

TEST(ConfigurationMoveTo, LosesAnElementForGoodWhenItVanishes) {
    const TempFolder folder;
    Configuration configuration;
    Parse(configuration, "<Config><A>1</A><B/></Config>");

    configuration.MoveTo("Config.A", 1);

    EXPECT_EQ(configuration.Find("Config.A"), nullptr);
    ASSERT_TRUE(configuration.Save(folder / L"config.xml"));
    EXPECT_EQ(ReadFileBytes(folder / L"config.xml"), "<Config>\r\n    <B/>\r\n</Config>\r\n");
}

TEST(ConfigurationMoveTo, RaisesTheInvalidParameterAfterTheDeletion) {
    const InvalidParameterScope scope;
    for (const std::uint32_t index : {5u, 6u, 0xFFFFFFFFu}) {
        Configuration configuration;
        Parse(configuration, fourElements);

        EXPECT_THROW(configuration.MoveTo("Config.B", index), LeftByHandler) << index;

        EXPECT_EQ(CompactText(configuration), "<Config><A/><C/><D/></Config>") << index;
        EXPECT_FALSE(configuration.modified) << index;
    }
}

namespace {

CHILD_SCENARIO(MovesPastTheEnd) {
    Configuration configuration;
    configuration.document.Parse(fourElements);
    try {
        configuration.MoveTo("Config.A", 5);
    } catch (...) {
        return 1;
    }
    return 0;
}

}  // namespace

TEST(ConfigurationMoveTo, EndsTheProcessForAnIndexPastTheEnd) {
    const ChildResult child = RunScenario(L"MovesPastTheEnd");

    EXPECT_FALSE(child.timedOut);
    EXPECT_EQ(child.exitCode, 0xC0000417);
}

// What Configuration reads and changes below a path: GetString, GetInt, SetString, SetInt, Remove.

#include "config/configuration.h"

#include "config/document_text.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

TEST(ConfigurationGetString, ReadsTheFirstChildNodeIfItIsText) {
    struct Row {
        const char* why;
        const char* content;
        const char* text;
    };
    constexpr Row rows[] = {
        {"plain text", "<A>1</A>", "1"},
        {"missing: the default", "<B/>", "default"},
        {"no text: the empty string, not the default", "<A/>", ""},
        {"no text between two tags", "<A></A>", ""},
        {"a comment in front hides the text", "<A><!--c-->1</A>", ""},
        {"an element in front hides the text", "<A><B/>1</A>", ""},
        {"what stands behind the text doesn't matter", "<A>1<B/>2<!--c--></A>", "1"},
        {"a CDATA section is text", "<A><![CDATA[1 < 2]]></A>", "1 < 2"},
        {"blanks around text stay", "<A>  1 \t</A>", "  1 \t"},
        {"blanks alone are no text", "<A>   </A>", ""},
        {"entities are resolved", "<A>&lt;&amp;&gt;&quot;&apos;&#65;</A>", "<&>\"'A"},
        {"an attribute is never read", "<A text=\"1\"/>", ""},
        {"the first of two twins, though it is empty", "<A/><A>1</A>", ""},
        {"bytes pass as they are", "<A>设置</A>", "设置"},
    };
    for (const Row& row : rows) {
        Configuration configuration;
        Parse(configuration, std::string("<Config>") + row.content + "</Config>");

        EXPECT_EQ(configuration.GetString("Config.A", "default"), row.text) << row.why;
        EXPECT_FALSE(configuration.modified) << row.why;
    }
}

TEST(ConfigurationGetInt, ReadsTheDecimalNumberAtTheStartOfTheText) {
    struct Row {
        const char* why;
        const char* content;
        int number;
    };
    constexpr Row rows[] = {
        {"a number", "<A>42</A>", 42},
        {"negative", "<A>-7</A>", -7},
        {"with a plus sign", "<A>+8</A>", 8},
        {"letters behind the number", "<A>12abc</A>", 12},
        {"the digits before a point", "<A>1.9</A>", 1},
        {"hexadecimal is not understood: the 0 counts", "<A>0x1F</A>", 0},
        {"leading blanks", "<A>  5</A>", 5},
        {"no number: the default", "<A>abc</A>", 99},
        {"a sign alone", "<A>-</A>", 99},
        {"no text", "<A/>", 99},
        {"text hidden by a comment", "<A><!--c-->5</A>", 99},
        {"a CDATA section", "<A><![CDATA[5]]></A>", 5},
        {"missing", "<B/>", 99},
        {"the smallest", "<A>-2147483648</A>", INT_MIN},
    };
    for (const Row& row : rows) {
        Configuration configuration;
        Parse(configuration, std::string("<Config>") + row.content + "</Config>");

        EXPECT_EQ(configuration.GetInt("Config.A", 99), row.number) << row.why;
        EXPECT_FALSE(configuration.modified) << row.why;
    }
}

TEST(ConfigurationSetString, SetsTheTextAndTheFlag) {
    struct Row {
        const char* why;
        const char* before;
        const char* value;
        const char* after;
        bool modified;
    };
    constexpr Row rows[] = {
        {"another text", "<A>1</A>", "2", "<A>2</A>", true},
        {"the same text is no change", "<A>1</A>", "1", "<A>1</A>", false},
        {"the same text in another case", "<A>on</A>", "ON", "<A>ON</A>", true},
        {"a missing element is made", "<B/>", "1", "<B/><A>1</A>", true},
        {"an empty value makes the element without text", "<B/>", "", "<B/><A/>", true},
        {"an empty value where there is no text", "<A/>", "", "<A/>", false},
        {"an empty value clears a text", "<A>1</A>", "", "<A></A>", true},
        {"text in front of other children", "<A><B/><!--c--></A>", "1", "<A>1<B/><!--c--></A>",
         true},
        {"a text hidden by a comment stays behind it", "<A><!--c-->1</A>", "1", "<A>1<!--c-->1</A>",
         true},
        {"only the first text is replaced", "<A>1<B/>2</A>", "3", "<A>3<B/>2</A>", true},
        {"attributes stay", "<A x=\"y\">1</A>", "2", "<A x=\"y\">2</A>", true},
        {"entities are written", "<A/>", "<&>", "<A>&lt;&amp;&gt;</A>", true},
        {"the first of two twins", "<A/><A/>", "1", "<A>1</A><A/>", true},
    };
    for (const Row& row : rows) {
        Configuration configuration;
        Parse(configuration, std::string("<Config>") + row.before + "</Config>");

        configuration.SetString("Config.A", row.value);

        EXPECT_EQ(CompactText(configuration), std::string("<Config>") + row.after + "</Config>")
            << row.why;
        EXPECT_EQ(configuration.modified, row.modified) << row.why;
    }
}

TEST(ConfigurationSetString, MakesEveryMissingElementOfThePath) {
    Configuration configuration;
    Parse(configuration, "<Config/>");

    configuration.SetString("Config.A.B", "1");

    EXPECT_EQ(CompactText(configuration), "<Config><A><B>1</B></A></Config>");
    EXPECT_TRUE(configuration.modified);
}

TEST(ConfigurationSetString, LeavesTheFlagSetWhenAnUnchangedValueFollowsAChange) {
    Configuration configuration;
    Parse(configuration, "<Config><A>1</A></Config>");
    configuration.modified = true;

    configuration.SetString("Config.A", "1");

    EXPECT_TRUE(configuration.modified);
}

TEST(ConfigurationSetString, TakesTheElementsOwnTextForUnchanged) {
    Configuration configuration;
    Parse(configuration, "<Config><A>1</A></Config>");
    const char* own = configuration.Find("Config.A")->FirstChild()->Value();

    configuration.SetString("Config.A", own);

    EXPECT_FALSE(configuration.modified);
}

TEST(ConfigurationSetInt, WritesDecimalDigits) {
    struct Row {
        int value;
        const char* text;
    };
    constexpr Row rows[] = {
        {0, "0"}, {-1, "-1"}, {255, "255"}, {INT_MAX, "2147483647"}, {INT_MIN, "-2147483648"},
    };
    for (const Row& row : rows) {
        Configuration configuration;
        Parse(configuration, "<Config/>");

        configuration.SetInt("Config.A", row.value);

        EXPECT_EQ(configuration.GetString("Config.A", ""), row.text);
        EXPECT_EQ(configuration.GetInt("Config.A", 99), row.value);
        EXPECT_TRUE(configuration.modified);
    }
}

TEST(ConfigurationSetInt, LeavesAnEqualTextAlone) {
    Configuration configuration;
    Parse(configuration, "<Config><A>5</A></Config>");

    configuration.SetInt("Config.A", 5);

    EXPECT_FALSE(configuration.modified);
}

TEST(ConfigurationRemove, DeletesTheFirstOfItsName) {
    struct Row {
        const char* why;
        const char* before;
        const char* path;
        const char* after;
        bool modified;
    };
    constexpr Row rows[] = {
        {"an element with all it holds", "<Config><A><B>1</B></A><C/></Config>", "Config.A",
         "<Config><C/></Config>", true},
        {"the first of two twins", "<Config><A>1</A><A>2</A></Config>", "Config.A",
         "<Config><A>2</A></Config>", true},
        {"the root", "<!--c--><Config><A/></Config>", "Config", "<!--c-->", true},
        {"missing", "<Config><A/></Config>", "Config.B", "<Config><A/></Config>", false},
        {"another root", "<Settings><A/></Settings>", "Config.A", "<Settings><A/></Settings>",
         false},
    };
    for (const Row& row : rows) {
        Configuration configuration;
        Parse(configuration, row.before);

        configuration.Remove(row.path);

        EXPECT_EQ(CompactText(configuration), row.after) << row.why;
        EXPECT_EQ(configuration.modified, row.modified) << row.why;
    }
}

TEST(ConfigurationRemove, LeavesTheFlagSetWhenThereIsNothingToRemove) {
    Configuration configuration;
    Parse(configuration, "<Config/>");
    configuration.modified = true;

    configuration.Remove("Config.A");

    EXPECT_TRUE(configuration.modified);
}

TEST(Configuration, AnswersNothingUnderAForeignRoot) {
    constexpr char text[] = "<Settings><EnableLog>1</EnableLog></Settings>";
    Configuration configuration;
    Parse(configuration, text);

    EXPECT_EQ(configuration.Find("Config.EnableLog"), nullptr);
    EXPECT_EQ(configuration.FindOrCreate("Config.EnableLog"), nullptr);
    EXPECT_EQ(configuration.IndexOf("Config.EnableLog"), -1);
    EXPECT_EQ(configuration.GetString("Config.EnableLog", "default"), "default");
    EXPECT_EQ(configuration.GetInt("Config.EnableLog", 99), 99);
    configuration.SetString("Config.EnableLog", "2");
    configuration.SetInt("Config.EnableLog", 2);
    configuration.Remove("Config.EnableLog");

    EXPECT_EQ(CompactText(configuration), text);
    EXPECT_FALSE(configuration.modified);
}

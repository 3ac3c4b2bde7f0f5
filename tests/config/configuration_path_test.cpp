// How Configuration walks a path: Find, FindOrCreate, IndexOf.

#include "config/configuration.h"

#include "config/document_text.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr char sample[] =
    "<?xml version=\"1.0\"?><!--first-->"
    "<Config><!--c--><A id=\"1\"><C/></A>text<A id=\"2\"><B/></A><EnableLog/></Config>";

/// "-" for no element, else its name and "id" attribute.
std::string Describe(const tinyxml2::XMLElement* element) {
    if (element == nullptr) return "-";
    const char* id = element->Attribute("id");
    return std::string(element->Value()) + (id != nullptr ? id : "");
}

}  // namespace

TEST(ConfigurationFind, WalksByNames) {
    struct Row {
        const char* why;
        const char* path;
        const char* found;
    };
    constexpr Row rows[] = {
        {"the root", "Config", "Config"},
        {"a child", "Config.EnableLog", "EnableLog"},
        {"the first of two with one name", "Config.A", "A1"},
        {"deeper", "Config.A.C", "C"},
        {"no way back to a later twin that has it", "Config.A.B", "-"},
        {"no such child", "Config.X", "-"},
        {"below a missing element", "Config.X.A", "-"},
        {"another case", "Config.enablelog", "-"},
        {"another case of the root", "config.A", "-"},
        {"the start of a name", "Config.Enable", "-"},
        {"more than a name", "Config.EnableLog2", "-"},
        {"another root", "Settings.A", "-"},
        {"without the root", "EnableLog", "-"},
        {"the empty path", "", "-"},
        {"an empty tail is the root itself", "Config.", "Config"},
        {"but below the root an empty name", "Config.A.", "-"},
        {"an empty name in between", "Config..A", "-"},
        {"an empty head", ".Config", "-"},
        {"two empty names", "Config..", "-"},
        {"no index", "Config.A[1]", "-"},
        {"no attribute", "Config.A@id", "-"},
        {"no wildcard", "Config.*", "-"},
        {"no escape", "Config\\.A", "-"},
        {"no slash", "Config/A", "-"},
    };
    Configuration configuration;
    Parse(configuration, sample);
    for (const Row& row : rows) {
        EXPECT_EQ(Describe(configuration.Find(row.path)), row.found) << row.why;
    }
    EXPECT_FALSE(configuration.modified);
}

TEST(ConfigurationFind, NeverReachesASecondElementAtDocumentLevel) {
    Configuration configuration;
    Parse(configuration, "<Config/><Other><A/></Other>");

    EXPECT_EQ(configuration.Find("Other"), nullptr);
    EXPECT_EQ(configuration.Find("Other.A"), nullptr);
    EXPECT_NE(configuration.Find("Config"), nullptr);
}

TEST(ConfigurationFind, FindsNothingInAnEmptyDocument) {
    Configuration configuration;

    EXPECT_EQ(configuration.Find("Config"), nullptr);
    EXPECT_EQ(configuration.Find(""), nullptr);
}

TEST(ConfigurationFind, ComparesNamesAsBytes) {
    Configuration configuration;
    Parse(configuration, "<Config><图层/></Config>");

    EXPECT_EQ(Describe(configuration.Find("Config.图层")), "图层");
    EXPECT_EQ(configuration.Find("Config.图"), nullptr);
}

TEST(ConfigurationFindOrCreate, MakesWhatIsMissing) {
    struct Row {
        const char* why;
        const char* before;
        const char* path;
        const char* after;
        bool modified;
    };
    constexpr Row rows[] = {
        {"nothing is missing", "<Config><A/></Config>", "Config.A", "<Config><A/></Config>", false},
        {"the root alone", "<Config/>", "Config", "<Config/>", false},
        {"an empty tail is the root", "<Config/>", "Config.", "<Config/>", false},
        {"a child, as the last", "<Config><A/>t<!--c--></Config>", "Config.B",
         "<Config><A/>t<!--c--><B/></Config>", true},
        {"all levels", "<Config/>", "Config.A.B.C", "<Config><A><B><C/></B></A></Config>", true},
        {"in the first of two twins", "<Config><A/><A><B/></A></Config>", "Config.A.B",
         "<Config><A><B/></A><A><B/></A></Config>", true},
        {"the root, at the document's end", "<?xml version=\"1.0\"?><!--c-->", "Config",
         "<?xml version=\"1.0\"?><!--c--><Config/>", true},
        {"the root and a child", "<!--c-->", "Config.A", "<!--c--><Config><A/></Config>", true},
        {"a nameless child of A", "<Config><A/></Config>", "Config.A.",
         "<Config><A></></A></Config>", true},
        {"a nameless child in between", "<Config/>", "Config..A", "<Config><><A/></></Config>",
         true},
        {"another root: nothing is made", "<Settings/>", "Config.A", "<Settings/>", false},
        {"the empty path is another root", "<Config/>", "", "<Config/>", false},
    };
    for (const Row& row : rows) {
        Configuration configuration;
        Parse(configuration, row.before);

        configuration.FindOrCreate(row.path);

        EXPECT_EQ(CompactText(configuration), row.after) << row.why;
        EXPECT_EQ(configuration.modified, row.modified) << row.why;
    }
}

TEST(ConfigurationFindOrCreate, GivesTheLastElementOfThePath) {
    struct Row {
        const char* path;
        const char* found;
    };
    constexpr Row rows[] = {
        {"Config", "Config"}, {"Config.", "Config"},       {"Config.A", "A1"},
        {"Config.X", "X"},    {"Config.A.C", "C"},         {"Config.Y.Z", "Z"},
        {"Config.A.", ""},    {"Settings.EnableLog", "-"},
    };
    Configuration configuration;
    Parse(configuration, sample);
    for (const Row& row : rows) {
        EXPECT_EQ(Describe(configuration.FindOrCreate(row.path)), row.found) << row.path;
    }
}

TEST(ConfigurationFindOrCreate, MakesARootInADocumentThatWasNeverLoaded) {
    Configuration configuration;

    EXPECT_EQ(Describe(configuration.FindOrCreate("Config.EnableLog")), "EnableLog");

    EXPECT_EQ(CompactText(configuration), "<Config><EnableLog/></Config>");
    EXPECT_TRUE(configuration.modified);
}

TEST(ConfigurationFindOrCreate, FindsAgainTheNamelessElementThatItMade) {
    Configuration configuration;
    Parse(configuration, "<Config><A/></Config>");
    const tinyxml2::XMLElement* made = configuration.FindOrCreate("Config.A.");
    configuration.modified = false;

    EXPECT_EQ(configuration.Find("Config.A."), made);
    EXPECT_EQ(configuration.FindOrCreate("Config.A."), made);
    EXPECT_FALSE(configuration.modified);
}

TEST(ConfigurationIndexOf, CountsElementsAlone) {
    struct Row {
        const char* why;
        const char* text;
        const char* path;
        int index;
    };
    constexpr Row rows[] = {
        {"missing", "<Config/>", "Config.EnableLog", -1},
        {"a flag counts by its presence", "<Config><EnableLog>false</EnableLog></Config>",
         "Config.EnableLog", 0},
        {"the second", "<Config><A/><EnableLog/></Config>", "Config.EnableLog", 1},
        {"a comment doesn't count", "<Config><A/><!--c--><EnableLog/></Config>", "Config.EnableLog",
         1},
        {"text doesn't count", "<Config>t<A/>u<B/></Config>", "Config.B", 1},
        {"the first of two twins", "<Config><A/><B/><B/></Config>", "Config.B", 1},
        {"among its own parent's children", "<Config><A/><B><C/><D/></B></Config>", "Config.B.D",
         1},
        {"the root, behind declaration and comment", "<?xml version=\"1.0\"?><!--c--><Config/>",
         "Config", 0},
        {"another root", "<Settings><EnableLog/></Settings>", "Config.EnableLog", -1},
        {"an empty document", "<!--c-->", "Config", -1},
    };
    for (const Row& row : rows) {
        Configuration configuration;
        Parse(configuration, row.text);

        EXPECT_EQ(configuration.IndexOf(row.path), row.index) << row.why;
        EXPECT_FALSE(configuration.modified) << row.why;
    }
}

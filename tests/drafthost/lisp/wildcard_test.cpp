#include "runtime/lisp/wildcard.h"

#include <gtest/gtest.h>

using namespace drafthost;

TEST(MatchesWildcards, Table) {
    struct Row {
        const char* why;
        const wchar_t* text;
        const wchar_t* pattern;
        bool matches;
    };
    const Row rows[] = {
        {"literal", L"abc", L"abc", true},
        {"the whole text counts", L"abcd", L"abc", false},
        {"case counts", L"abc", L"ABC", false},
        {"empty", L"", L"", true},
        {"empty pattern", L"a", L"", false},
        {"digit", L"a1", L"a#", true},
        {"no digit", L"aa", L"a#", false},
        {"letter", L"1a", L"1@", true},
        {"no letter", L"11", L"1@", false},
        {"Chinese is a letter", L"图1", L"@#", true},
        {"other character", L"a-b", L"@.@", true},
        {"a letter is no other character", L"abc", L"@.@", false},
        {"a digit is no other character", L"a1c", L"@.@", false},
        {"any", L"a-1", L"???", true},
        {"any needs one", L"ab", L"???", false},
        {"sequence", L"abcde", L"a*e", true},
        {"empty sequence", L"ae", L"a*e", true},
        {"sequence alone", L"", L"*", true},
        {"sequences", L"xaybzc", L"*a*b*c", true},
        {"sequence goes back", L"aab", L"*ab", true},
        {"sequences that fail", L"xaybz", L"*a*b*c", false},
        {"set", L"b", L"[abc]", true},
        {"not in the set", L"d", L"[abc]", false},
        {"range", L"m", L"[a-z]", true},
        {"beyond the range", L"M", L"[a-z]", false},
        {"hyphen at the end of a set", L"-", L"[a-]", true},
        {"set turned round", L"d", L"[~abc]", true},
        {"set turned round with one of it", L"a", L"[~abc]", false},
        {"special characters in a set", L"#", L"[#@]", true},
        {"backquote in a set", L"]", L"[`]]", true},
        {"comma in a set", L",", L"[,]", true},
        {"set never closed stands for itself", L"[ab", L"[ab", true},
        {"pattern turned round", L"abc", L"~*x*", true},
        {"pattern turned round that matches", L"axc", L"~*x*", false},
        {"tilde within stands for itself", L"a~b", L"a~b", true},
        {"one of several", L"b", L"a,b,c", true},
        {"none of several", L"d", L"a,b,c", false},
        {"empty pattern at the end", L"", L"a,", true},
        {"several, one turned round", L"d", L"a,~b", true},
        {"backquote", L"a*", L"a`*", true},
        {"backquote keeps it literal", L"ab", L"a`*", false},
        {"backquoted comma", L"a,b", L"a`,b", true},
        {"backquote at the end stands for itself", L"a`", L"a`", true},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(MatchesWildcards(row.text, row.pattern), row.matches) << row.why;
    }
}

TEST(MatchesWildcards, NeedsNoTimeForManySequences) {
    std::wstring pattern;
    for (int count = 0; count < 200; ++count)
        pattern += L"*a";

    EXPECT_FALSE(MatchesWildcards(std::wstring(2000, L'a') + L"b", pattern));
}

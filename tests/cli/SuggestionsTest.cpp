#include "arguments/Suggestions.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

using namespace vantic;

namespace {

const std::vector<std::string_view> names = {"Video", "Videos", "Show", "ShowsList", "Livestreams"};

}  // namespace

TEST(EditDistance, CountsInsertionsDeletionsAndReplacements) {
    EXPECT_EQ(editDistance("show", "show"), 0u);
    EXPECT_EQ(editDistance("", "show"), 4u);
    EXPECT_EQ(editDistance("show", ""), 4u);
    EXPECT_EQ(editDistance("shw", "show"), 1u);
    EXPECT_EQ(editDistance("shows", "show"), 1u);
    EXPECT_EQ(editDistance("shew", "show"), 1u);
    EXPECT_EQ(editDistance("kitten", "sitting"), 3u);
}

TEST(EditDistance, CountsASwapOfNeighboursAsOneEdit) {
    EXPECT_EQ(editDistance("sohw", "show"), 1u);
    EXPECT_EQ(editDistance("shwo", "show"), 1u);
}

TEST(EditDistance, IgnoresCase) { EXPECT_EQ(editDistance("SHOW", "show"), 0u); }

TEST(Suggestion, IsTheClosestName) {
    EXPECT_EQ(suggestion("Vidoes", names), "; did you mean Videos?");
    EXPECT_EQ(suggestion("video", names), "; did you mean Video?");
    EXPECT_EQ(suggestion("livestream", names), "; did you mean Livestreams?");
}

TEST(Suggestion, CanBeANameThatBeginsWithTheWord) {
    EXPECT_EQ(suggestion("Live", names), "; did you mean Livestreams?");
}

TEST(Suggestion, IncludesThePrefixOfTheName) {
    EXPECT_EQ(suggestion("Shaw", names, "--"), "; did you mean --Show?");
}

TEST(Suggestion, IsNothingIfNoNameIsClose) {
    for (const std::string& word :
         {std::string(), std::string("x"), std::string("Nothing"), std::string(100'000, 'S')})
        EXPECT_EQ(suggestion(word, names), "") << word.substr(0, 10);
}

TEST(Alternatives, AreJoinedByCommasAndAnOr) {
    EXPECT_EQ(alternatives({}), "");
    EXPECT_EQ(alternatives(std::vector<std::string_view>{"a"}), "a");
    EXPECT_EQ(alternatives(std::vector<std::string_view>{"a", "b"}), "a or b");
    EXPECT_EQ(alternatives(std::vector<std::string_view>{"a", "b", "c"}), "a, b or c");
}

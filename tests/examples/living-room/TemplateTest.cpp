#include "Template.h"

#include <gtest/gtest.h>

namespace living_room {
namespace {

constexpr const char* script = "<script>alert('x')</script>\"&";
constexpr const char* escapedScript = "&lt;script&gt;alert(&#39;x&#39;)&lt;/script&gt;&quot;&amp;";

TEST(TemplateTest, EscapesValues) {
    EXPECT_EQ(rendered("notice", {{"title", script}, {"message", std::string("a\0b", 3)}}),
              "<p class=\"notice\" role=\"note\"><b>" + std::string(escapedScript) +
                  "</b> a\xEF\xBF\xBD"
                  "b</p>\n");
}

TEST(TemplateTest, RepeatsASectionForEachValueOfAList) {
    const std::string text = rendered("panel-lists", {{"swallowed", {"one", script, "three"}}});
    EXPECT_NE(text.find("<li>one</li><li>" + std::string(escapedScript) + "</li><li>three</li>"),
              std::string::npos);
    EXPECT_EQ(text.find("Nothing so far"), std::string::npos);
}

TEST(TemplateTest, ShowsAnInvertedSectionIfTheValueIsEmpty) {
    EXPECT_NE(rendered("panel-lists", {}).find("Nothing so far"), std::string::npos);
    EXPECT_NE(rendered("save", {{"show", 1}, {"isSaved", false}}).find("Save to my list"), std::string::npos);
}

TEST(TemplateTest, LooksUpNamesInTheInnermostSectionFirst) {
    const Value tile = {{"title", "inner"}, {"link", "/x"}};
    const Value row = {{"title", "outer"}, {"tiles", Value::array({tile})}, {"subtitle", "from outside"}};
    const std::string text = rendered("tiles", row);
    EXPECT_NE(text.find("<span class=\"title\">inner</span>"), std::string::npos);
    EXPECT_NE(text.find("from outside"), std::string::npos);
    EXPECT_EQ(text.find("outer"), std::string::npos);
}

TEST(TemplateTest, IncludesATemplateNamedByAValue) {
    const std::string text = rendered("page", {{"screen", "search"}, {"word", script}});
    EXPECT_NE(text.find("<body data-screen=\"search\">"), std::string::npos);
    EXPECT_NE(text.find("value=\"" + std::string(escapedScript) + "\""), std::string::npos);
    EXPECT_EQ(text.find("{{"), std::string::npos);
}

TEST(TemplateTest, AnUnknownTemplateIsEmpty) { EXPECT_EQ(rendered("no such", "x"), ""); }

// Escaped text is harmless only between tags and in attributes with double quotes.
TEST(TemplateTest, NoTemplateHasAGapInATagOutsideQuotes) {
    const std::string_view text = asset("templates");
    bool inTag = false;
    bool inQuotes = false;
    std::size_t gaps = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text.substr(i, 2) == "{{") {
            const bool isText = std::string_view("#^/>").find(text[i + 2]) == std::string_view::npos;
            gaps += isText ? 1 : 0;
            EXPECT_TRUE(!isText || !inTag || inQuotes) << text.substr(i, 40);
            i = text.find("}}", i) + 1;
            continue;
        }
        if (inTag && text[i] == '"') inQuotes = !inQuotes;
        if (!inQuotes && text[i] == '<') inTag = true;
        if (!inQuotes && text[i] == '>') inTag = false;
    }
    EXPECT_FALSE(inTag);
    EXPECT_GT(gaps, 50U);
}

TEST(TemplateTest, FilesOfTheHostAreFoundByTheirNames) {
    EXPECT_TRUE(asset("living-room.svg").starts_with("<svg"));
    EXPECT_EQ(asset("living-room.html"), "");
}

}  // namespace
}  // namespace living_room

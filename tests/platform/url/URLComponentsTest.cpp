#include <VanticRestKit/platform/url/URLComponents.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit {
namespace {

using Items = std::vector<URLQueryItem>;

URLComponents componentsOf(std::string_view text) {
    const auto components = URLComponents::make(text);
    EXPECT_TRUE(components) << text;
    return components ? *components : *URLComponents::make("unreadable");
}

std::optional<Items> itemsOf(std::string_view text) { return componentsOf(text).queryItems(); }

/// The URL `text` with `items` appended to its query items.
std::string withItems(std::string_view text, const Items& items) {
    URLComponents components = componentsOf(text);
    Items all = components.queryItems().value_or(Items());
    all.insert(all.end(), items.begin(), items.end());
    components.setQueryItems(all);
    const auto url = components.url();
    return url ? url->absoluteString() : "none";
}

TEST(URLComponents, ItsPartsAreDecoded) {
    const URLComponents components = componentsOf("lumeno://a%20b:80/c%20d%2Fe/?f=%20g#h");
    EXPECT_EQ(components.scheme(), "lumeno");
    EXPECT_EQ(components.host(), "a b");
    EXPECT_EQ(components.path(), "/c d/e/");
    EXPECT_EQ(components.query(), "f= g");
}

TEST(URLComponents, AnEmptyStringHasNoParts) {
    const URLComponents components = componentsOf("");
    EXPECT_EQ(components.scheme(), std::nullopt);
    EXPECT_EQ(components.host(), std::nullopt);
    EXPECT_EQ(components.path(), "");
    EXPECT_EQ(components.query(), std::nullopt);
    EXPECT_EQ(components.queryItems(), std::nullopt);
    EXPECT_FALSE(components.url());
}

TEST(URLComponents, AnEmptyHostIsPresent) {
    EXPECT_EQ(componentsOf("lumeno:///x").host(), "");
    EXPECT_EQ(componentsOf("lumeno:/x").host(), std::nullopt);
}

TEST(URLComponents, AColonAtTheBeginningBelongsToThePath) {
    EXPECT_EQ(componentsOf("://a/b").path(), "://a/b");
    EXPECT_EQ(componentsOf("://a/b").host(), std::nullopt);
    const auto ofURL = URLComponents::make(*URL::make("://a/b"), false);
    ASSERT_TRUE(ofURL);
    EXPECT_EQ(ofURL->path(), "://a/b");
    ASSERT_TRUE(ofURL->url());
    EXPECT_EQ(ofURL->url()->host(), "a");
}

TEST(URLComponents, APathThatNoURLCanStartWithGivesNoURL) {
    EXPECT_TRUE(URLComponents::make("://h:x/"));
    EXPECT_FALSE(componentsOf("://h:x/").url());
}

TEST(URLComponents, AreTheSameFromAURLAndFromItsString) {
    const auto url = URL::make("http://u:p@h:80/a%20b?c=d#e");
    ASSERT_TRUE(url);
    EXPECT_EQ(URLComponents::make(*url, false), componentsOf(url->absoluteString()));
    EXPECT_EQ(URLComponents::make(*url, true), URLComponents::make(*url, false));
    EXPECT_EQ(URLComponents::make(*url, false)->url(), url);
}

TEST(URLComponents, AQueryIsSplitAtEachAmpersandAndAtTheFirstEqualsSign) {
    EXPECT_EQ(itemsOf("?a=b=c&d&e=&=f&&g%26=%3D"),
              (Items{{"a", "b=c"}, {"d", {}}, {"e", ""}, {"", "f"}, {"", {}}, {"g&", "="}}));
}

TEST(URLComponents, AnEmptyQueryHasAnEmptyList) { EXPECT_EQ(itemsOf("x?"), Items()); }

TEST(URLComponents, APlusSignIsNotASpace) { EXPECT_EQ(itemsOf("?a+b=c+d"), (Items{{"a+b", "c+d"}})); }

TEST(URLComponents, AnItemWithoutAValueHasNoEqualsSign) {
    EXPECT_EQ(withItems("http://h/", {{"a", {}}, {"b", ""}, {"c", "d"}}), "http://h/?a&b=&c=d");
}

TEST(URLComponents, TheQueryOfTheBaseComesFirst) {
    EXPECT_EQ(withItems("http://h/p?x=1&y=2", {{"a", "1"}, {"b", "2"}}), "http://h/p?x=1&y=2&a=1&b=2");
}

TEST(URLComponents, AQueryThatIsNotSetStaysUnchanged) {
    EXPECT_EQ(componentsOf("http://h/?a=%41&&b+c").url()->absoluteString(), "http://h/?a=%41&&b+c");
}

TEST(URLComponents, SettingTheQueryEncodesItAgain) {
    EXPECT_EQ(withItems("http://h/?a=%41", {{"b", "c"}}), "http://h/?a=A&b=c");
}

TEST(URLComponents, DelimitersAreEncodedInsideItems) {
    EXPECT_EQ(withItems("http://h/", {{"a&=#", "b&=#%"}}), "http://h/?a%26%3D%23=b%26%3D%23%25");
    EXPECT_EQ(withItems("http://h/", {{"a;+?/:@", "'()*,!$~"}}), "http://h/?a;+?/:@='()*,!$~");
}

TEST(URLComponents, ASpaceAndANonASCIILetterAreEncoded) {
    EXPECT_EQ(withItems("http://h/", {{"appId", "lumeno \xC3\xA9"}}), "http://h/?appId=lumeno%20%C3%A9");
}

TEST(URLComponents, AnEmptyListGivesAnEmptyQueryAndNoListGivesNone) {
    URLComponents components = componentsOf("http://h/?a#f");
    components.setQueryItems(Items());
    EXPECT_EQ(components.url()->absoluteString(), "http://h/?#f");
    components.setQueryItems(std::nullopt);
    EXPECT_EQ(components.url()->absoluteString(), "http://h/#f");
    EXPECT_EQ(components.queryItems(), std::nullopt);
}

TEST(URLComponents, BytesThatAreNotUTF8SurviveInQueryItems) {
    EXPECT_EQ(itemsOf("?a=%FF"), (Items{{"a", "\xFF"}}));
    EXPECT_EQ(withItems("http://h/?a=%FF", {{"b", "c"}}), "http://h/?a=%FF&b=c");
    EXPECT_EQ(componentsOf("?a=%FF%41").query(), "a=%FF%41");
    EXPECT_EQ(componentsOf("x%FF").path(), "x%FF");
}

TEST(URLQueryItem, EqualsAnItemWithTheSameNameAndValue) {
    const URLQueryItem item{"a", "1"};
    EXPECT_EQ(item, (URLQueryItem{"a", "1"}));
    EXPECT_NE(item, (URLQueryItem{"a", "2"}));
    EXPECT_NE(item, (URLQueryItem{"b", "1"}));
    EXPECT_NE((URLQueryItem{"a", ""}), URLQueryItem{"a"});
}

TEST(URLComponents, ACopyIsIndependent) {
    const URLComponents first = componentsOf("http://h/");
    URLComponents second = first;
    second.setQueryItems(Items{{"a", "b"}});
    EXPECT_EQ(first.query(), std::nullopt);
    EXPECT_EQ(second.query(), "a=b");
    EXPECT_FALSE(first == second);
}

}  // namespace
}  // namespace VanticRestKit

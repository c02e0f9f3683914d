#include <gtest/gtest.h>
#include <VanticRestKit/Core/ResourceURI.h>
#include <VanticRestKit/lumeno/Search/SearchRoutes.h>

#include <type_traits>

namespace VanticRestKit {
namespace {

using Items = std::vector<URLQueryItem>;

void expectAGetWithoutABody(const ResourceURI& route) {
    EXPECT_EQ(route.httpMethod(), std::nullopt);
    EXPECT_EQ(route.postData(), std::nullopt);
}

TEST(RelatedShowsURI, AppendsTheSlugToThePathUnchanged) {
    EXPECT_EQ((RelatedShowsURI{.showSlug = "x", .channel = "c"}.path()), "v2/related/show/x");
    EXPECT_EQ(RelatedShowsURI{.showSlug = "a b/c?"}.path(), "v2/related/show/a b/c?");
    EXPECT_EQ(RelatedShowsURI{.showSlug = ""}.path(), "v2/related/show/");
}

TEST(RelatedShowsURI, SendsANonEmptyChannel) {
    EXPECT_EQ((RelatedShowsURI{.showSlug = "x", .channel = "c"}.queryItems()), (Items{{"channel", "c"}}));
    EXPECT_EQ((RelatedShowsURI{.showSlug = "x", .channel = std::nullopt}.queryItems()), Items());
}

TEST(RelatedShowsURI, OmitsAnEmptyChannel) {
    EXPECT_EQ((RelatedShowsURI{.showSlug = "x", .channel = ""}.queryItems()), Items());
}

TEST(RelatedShowsURI, IsAGetWithoutABody) {
    expectAGetWithoutABody(RelatedShowsURI{.showSlug = "x", .channel = "c"});
}

TEST(SearchURI, SearchesForItsKeyword) {
    const SearchURI route({.for_ = "river", .channel = "c"});
    EXPECT_EQ(route.keyword, "river");
    EXPECT_EQ(route.channel, "c");
    static_assert(!std::is_aggregate_v<SearchURI> && !std::is_default_constructible_v<SearchURI>);
}

TEST(SearchURI, HasAPathWithoutKeywordAndChannel) {
    EXPECT_EQ(SearchURI({.for_ = "river", .channel = "c"}).path(), "v2/search");
}

TEST(SearchURI, SendsTheUnchangedKeywordAndThenTheChannel) {
    EXPECT_EQ(SearchURI({.for_ = " a&b=%20", .channel = "c"}).queryItems(),
              (Items{{"keyword", " a&b=%20"}, {"channel", "c"}}));
    EXPECT_EQ(SearchURI({.for_ = "river", .channel = std::nullopt}).queryItems(),
              (Items{{"keyword", "river"}}));
}

TEST(SearchURI, SendsAnEmptyChannel) {
    EXPECT_EQ(SearchURI({.for_ = "river", .channel = ""}).queryItems(),
              (Items{{"keyword", "river"}, {"channel", ""}}));
}

TEST(SearchURI, SendsAnEmptyKeyword) {
    EXPECT_EQ(SearchURI({.for_ = "", .channel = std::nullopt}).queryItems(), (Items{{"keyword", ""}}));
}

TEST(SearchURI, IsAGetWithoutABody) { expectAGetWithoutABody(SearchURI({.for_ = "river", .channel = "c"})); }

}  // namespace
}  // namespace VanticRestKit

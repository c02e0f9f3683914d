#include <gtest/gtest.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/MixedCollection/MixedCollection.h>
#include <VanticRestKit/lumeno/Remap/Remap.h>
#include <VanticRestKit/lumeno/Search/RelatedShowList.h>
#include <VanticRestKit/lumeno/Search/SearchResults.h>
#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/lumeno/Show/ShowsIndex.h>

#include <lumeno/Endpoints/Sent.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {
namespace {

using test::sent;

TEST(EndpointShortForms, ShowRequestsWhatIsGiven) {
    EXPECT_EQ(sent([](const Context& c) { return Endpoint::Show({.showSlugOrId = "x"}, c); }),
              sent([](const Context& c) {
                  return Endpoint::Show({.showSlugOrId = "x",
                                         .selectedSeries = std::nullopt,
                                         .selectedVideo = std::nullopt,
                                         .embedSeries = false,
                                         .channel = std::nullopt},
                                        c);
              }));
    EXPECT_EQ(sent([](const Context& c) {
                  return Endpoint::Show({.showSlugOrId = "x", .selectedSeries = 111, .embedSeries = true}, c);
              }),
              sent([](const Context& c) {
                  return Endpoint::Show({.showSlugOrId = "x",
                                         .selectedSeries = 111,
                                         .selectedVideo = std::nullopt,
                                         .embedSeries = true,
                                         .channel = std::nullopt},
                                        c);
              }));
    EXPECT_EQ(sent([](const Context& c) {
                  return Endpoint::Show({.showSlugOrId = "x", .selectedVideo = "ZW1", .channel = "abc1"}, c);
              }),
              sent([](const Context& c) {
                  return Endpoint::Show({.showSlugOrId = "x",
                                         .selectedSeries = std::nullopt,
                                         .selectedVideo = "ZW1",
                                         .embedSeries = false,
                                         .channel = "abc1"},
                                        c);
              }));
}

TEST(EndpointShortForms, ShowIsDistinguishedFromTheHrefByItsLabel) {
    EXPECT_NE(sent([](const Context& c) { return Endpoint::Show({.showSlugOrId = "x"}, c); }),
              sent([](const Context& c) { return Endpoint::Show({.usingHref = "x"}, c); }));
}

TEST(EndpointShortForms, ShowsListRequestsWhatIsGiven) {
    EXPECT_EQ(sent([](const Context& c) { return Endpoint::ShowsList({}, c); }), sent([](const Context& c) {
                  return Endpoint::ShowsList({.channel = std::nullopt, .closedCaptionOnly = false}, c);
              }));
    EXPECT_EQ(sent([](const Context& c) { return Endpoint::ShowsList({.channel = "abc1"}, c); }),
              sent([](const Context& c) {
                  return Endpoint::ShowsList({.channel = "abc1", .closedCaptionOnly = false}, c);
              }));
    EXPECT_EQ(sent([](const Context& c) { return Endpoint::ShowsList({.closedCaptionOnly = true}, c); }),
              sent([](const Context& c) {
                  return Endpoint::ShowsList({.channel = std::nullopt, .closedCaptionOnly = true}, c);
              }));
}

TEST(EndpointShortForms, SearchAndRelatedShowsSendNoChannel) {
    EXPECT_EQ(sent([](const Context& c) { return Endpoint::Search({.keyword = "x"}, c); }),
              sent([](const Context& c) {
                  return Endpoint::Search({.keyword = "x", .channel = std::nullopt}, c);
              }));
    EXPECT_EQ(sent([](const Context& c) { return Endpoint::RelatedShows({.showSlug = "x"}, c); }),
              sent([](const Context& c) {
                  return Endpoint::RelatedShows({.showSlug = "x", .channel = std::nullopt}, c);
              }));
}

TEST(EndpointShortForms, CollectionEmbedsNoHighlightItem) {
    EXPECT_EQ(sent([](const Context& c) { return Endpoint::Collection({.collectionId = "7"}, c); }),
              sent([](const Context& c) {
                  return Endpoint::Collection({.collectionId = "7", .embedHighlightItem = false}, c);
              }));
}

TEST(EndpointShortForms, RemapSendsNoQueryItems) {
    EXPECT_EQ(sent([](const Context& c) { return Endpoint::Remap({.path = "x"}, c); }),
              sent([](const Context& c) {
                  return Endpoint::Remap({.path = "x", .queryItems = std::vector<URLQueryItem>{}}, c);
              }));
}

template <class Arguments>
concept LeavesOutTheRegion = requires {
    Arguments{};
};
static_assert(!LeavesOutTheRegion<Endpoint::LivestreamsArguments>,
              "the caller states that there is no region");

}  // namespace
}  // namespace VanticRestKit

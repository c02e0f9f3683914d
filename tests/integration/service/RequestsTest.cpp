#include "ServiceContext.h"

#include "support/SampleService.h"

#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Image/Image.h>
#include <VanticRestKit/lumeno/MixedCollection/MixedCollection.h>
#include <VanticRestKit/lumeno/Navigation/NavigationMainMenuList.h>
#include <VanticRestKit/lumeno/NowNext/LivestreamRegion.h>
#include <VanticRestKit/lumeno/Remap/Remap.h>
#include <VanticRestKit/lumeno/Search/RelatedShowList.h>
#include <VanticRestKit/lumeno/Search/SearchResults.h>
#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/lumeno/Show/ShowsIndex.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>

namespace VanticRestKit::test {

namespace {

std::vector<std::string> targetsOf(const SampleService& service) {
    std::vector<std::string> targets;
    for (const auto& request : service.log()) targets.push_back(request["target"]);
    return targets;
}

/// The value of a header of a logged request, empty if it has none.
std::string headerOf(const nlohmann::json& request, const std::string& name) {
    for (const auto& header : request["headers"]) {
        if (header["name"] == name) return header["value"];
    }
    return {};
}

TEST(SampleServiceRequests, UseTheUnchangedPathsOfTheirRoutes) {
    const SampleService service;
    const ServiceContext context(service.baseURL());
    outcomeOf(Endpoint::Time(context));
    outcomeOf(Endpoint::Avatars(context));
    outcomeOf(Endpoint::Video({.houseNumber = "a b/../c"}, context));
    outcomeOf(Endpoint::Video({.usingHref = "/video/HL0101"}, context));
    outcomeOf(Endpoint::Videos({.houseNumbers = std::vector<std::string>{"a", "b"}}, context));
    outcomeOf(Endpoint::Videos({.houseNumbers = std::vector<std::string>{}}, context));
    EXPECT_EQ(targetsOf(service),
              (std::vector<std::string>{"/v2/time", "/v3/image/avatar/", "/v2/video/a%20b/../c",
                                        "/v2//video/HL0101", "/v2/videos/a,b", "/v2/videos/"}));
}

TEST(SampleServiceRequests, ForTheCatalogueSendTheirQueryItemsInOrder) {
    const SampleService service;
    const ServiceContext context(service.baseURL());
    outcomeOf(Endpoint::Show({.showSlugOrId = "night-ferry",
                              .selectedSeries = std::optional<std::uint64_t>(151),
                              .selectedVideo = std::optional<std::string>(),
                              .embedSeries = true,
                              .channel = std::optional<std::string>("vantic-two")},
                             context));
    outcomeOf(
        Endpoint::ShowsList({.channel = std::optional<std::string>(""), .closedCaptionOnly = true}, context));
    outcomeOf(
        Endpoint::Search({.keyword = "salt & sea", .channel = std::optional<std::string>("")}, context));
    outcomeOf(Endpoint::RelatedShows({.showSlug = "night-ferry", .channel = std::optional<std::string>("")},
                                     context));
    outcomeOf(Endpoint::Collection({.collectionId = "1005", .embedHighlightItem = true}, context));
    outcomeOf(Endpoint::NavigationMainMenuList({.channels = "a,b"}, context));
    outcomeOf(Endpoint::Livestreams({.region = std::optional<LivestreamRegion>()}, context));
    const auto items = std::vector<URLQueryItem>{{"b", "1"}, {"a", std::nullopt}};
    outcomeOf(Endpoint::Remap({.path = "/video/x", .queryItems = items}, context));
    EXPECT_EQ(
        targetsOf(service),
        (std::vector<std::string>{"/v2/show/night-ferry/series/"
                                  "151?channel=vantic-two&embed=highlightVideo,selectedSeries,seriesList",
                                  "/v2/shows/cc", "/v2/search?keyword=salt%20%26%20sea&channel=",
                                  "/v2/related/show/night-ferry", "/v2/collection/1005?embed=highlightItem",
                                  "/v2/navigation/mobile?include=personalize&channel=a,b", "/v2/livestreams",
                                  "/v2/remap/video/x?b=1&a"}));
}

TEST(SampleServiceRequests, SendTheQueryOfTheBaseURL) {
    const SampleService service;
    outcomeOf(Endpoint::Time(ServiceContext(service.baseURL() + "/?b=1&a&c=")));
    EXPECT_EQ(targetsOf(service), std::vector<std::string>{"/v2/time?b=1&a&c="});
}

TEST(SampleServiceRequests, SendTheHeadersOfTheHostAndTheSession) {
    const SampleService service;
    ServiceContext context(service.baseURL());
    context.headers = {{"X-Host", "yes"}, {"User-Agent", "host/1"}};
    outcomeOf(Endpoint::Time(context));
    const auto request = service.log()[0];
    EXPECT_EQ(request["method"], "GET");
    EXPECT_EQ(headerOf(request, "X-Host"), "yes");
    EXPECT_EQ(headerOf(request, "User-Agent"), "host/1");
    EXPECT_EQ(headerOf(request, "Accept"), "*/*");
    EXPECT_EQ(headerOf(request, "Content-Type"), "");
    EXPECT_EQ(request["body"], "");
}

}  // namespace

}  // namespace VanticRestKit::test

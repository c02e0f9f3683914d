#include "Client.h"

#include <functional>
#include <map>
#include <set>

namespace VanticRestKit::test {

namespace {

using nlohmann::json;

const json* collectionsOf(const json& screen) {
    return screen.contains("_embedded") ? &screen["_embedded"]["collections"] : nullptr;
}

TEST(SampleScreens, TheHomeScreenHasAFeaturedCollectionAndEightRowsWithAllThreeKindsOfItems) {
    const SampleService service;
    const auto home = get(service, "/v2/home");
    ASSERT_TRUE(collectionsOf(home)) << home;
    EXPECT_EQ(home["_embedded"]["featuredCollection"]["type"], "featured");
    EXPECT_EQ(collectionsOf(home)->size(), 8U);
    std::set<std::string> entities, types;
    for (const auto& row : *collectionsOf(home)) {
        types.insert(row["type"]);
        EXPECT_GE(row["items"].size(), 5U) << row["title"];
        for (const auto& item : row["items"]) entities.insert(item["_entity"]);
    }
    EXPECT_EQ(entities, (std::set<std::string>{"show", "series", "video"}));
    EXPECT_EQ(types, (std::set<std::string>{"standard", "movie"}));
}

TEST(SampleScreens, EveryCategoryAndChannelHasAScreenWhoseCollectionsExist) {
    const SampleService service;
    std::size_t screens = 0;
    for (const char* type : {"channels", "categories"}) {
        const auto list = get(service, std::string("/v2/navigation/") + type);
        for (const auto& item : list["items"]) {
            const auto screen = get(service, "/v2" + item["_links"]["self"]["href"].get<std::string>());
            EXPECT_EQ(screen["title"], item["title"]);
            ASSERT_TRUE(collectionsOf(screen)) << screen;
            for (const auto& row : *collectionsOf(screen)) {
                EXPECT_EQ(get(service, "/v2" + row["_links"]["self"]["href"].get<std::string>()), row);
            }
            ++screens;
        }
    }
    EXPECT_EQ(screens, 12U);
    EXPECT_EQ(clientOf(service).Get("/v2/category/none")->status, 404);
    EXPECT_EQ(clientOf(service).Get("/v2/collection/none")->status, 404);
}

TEST(SampleScreens, EveryItemOfTheHomeScreenIsFoundByItsOwnLink) {
    const SampleService service;
    const auto home = get(service, "/v2/home");
    ASSERT_TRUE(collectionsOf(home));
    for (const auto& row : *collectionsOf(home)) {
        for (const auto& item : row["items"]) {
            const auto found = get(service, "/v2" + item["_links"]["self"]["href"].get<std::string>());
            EXPECT_EQ(found.value("id", json()), item["id"]) << item["_links"];
        }
    }
}

TEST(SampleScreens, TheIndexContainsFortyShowsWithSeriesAndEightFilms) {
    const SampleService service;
    std::map<std::string, int> types;
    std::set<std::string> slugs;
    const auto index = get(service, "/v2/shows");
    for (const auto& group : index["items"]) {
        for (const auto& show : group["items"]) {
            ++types[show["type"]];
            slugs.insert(show["slug"]);
        }
    }
    EXPECT_EQ(types, (std::map<std::string, int>{{"series", 40}, {"feature", 8}}));
    EXPECT_EQ(slugs.size(), 48U);
}

TEST(SampleScreens, AShowContainsOnlyWhatIsRequested) {
    const SampleService service;
    EXPECT_FALSE(get(service, "/v2/show/harbour-lights").contains("_embedded"));
    const auto all = get(service, "/v2/show/11?embed=highlightVideo,selectedSeries,seriesList")["_embedded"];
    EXPECT_EQ(all["seriesList"].size(), 2U);
    EXPECT_EQ(all["selectedSeries"]["id"], "112");
    EXPECT_EQ(all["highlightVideo"]["houseNumber"], "HL0201");
    EXPECT_EQ(all["videoExtras"].size(), 1U);
    const auto first = get(service, "/v2/show/harbour-lights/series/111?embed=highlightVideo,selectedSeries");
    EXPECT_EQ(first["_embedded"]["selectedSeries"]["_embedded"]["videoEpisodes"].size(), 3U);
    const auto video =
        get(service, "/v2/show/harbour-lights/video/HL0102?embed=highlightVideo,selectedSeries");
    EXPECT_EQ(video["_embedded"]["highlightVideo"]["houseNumber"], "HL0102");
    EXPECT_EQ(video["_embedded"]["selectedSeries"]["id"], "111");
}

TEST(SampleScreens, AShowIsNotFoundUnderAnotherChannelSeriesOrVideo) {
    const SampleService service;
    for (const char* path : {"/v2/show/none", "/v2/show/harbour-lights?channel=vantic-kids",
                             "/v2/show/harbour-lights/series/151", "/v2/show/harbour-lights/video/NF0101"}) {
        EXPECT_EQ(clientOf(service).Get(path)->status, 404) << path;
    }
}

TEST(SampleScreens, UnknownShowsSeriesAndRegionsAreNotFound) {
    const SampleService service;
    for (const char* path : {"/v2/series/1", "/v2/related/show/none", "/v2/show/harbour-lights/series/1",
                             "/v2/show/harbour-lights/video/none", "/v2/show/none/series/111",
                             "/v2/show/none/video/HL0101", "/v2/livestreams/none"}) {
        EXPECT_EQ(clientOf(service).Get(path)->status, 404) << path;
    }
    EXPECT_EQ(clientOf(service).Get("/v2/series/111")->status, 200);
    EXPECT_EQ(clientOf(service).Get("/v2/related/show/harbour-lights")->status, 200);
}

TEST(SampleScreens, ASeriesOrVideoIsNotFoundOnAnotherChannel) {
    const SampleService service;
    for (const char* path : {"/v2/show/harbour-lights/series/111", "/v2/show/harbour-lights/video/HL0101"}) {
        EXPECT_EQ(clientOf(service).Get(path)->status, 200) << path;
        EXPECT_EQ(clientOf(service).Get(path + std::string("?channel=vantic-kids"))->status, 404) << path;
    }
}

TEST(SamplePictures, EveryPictureOfTheHomeScreenIsServedAsSVGByTheRequestedHost) {
    const SampleService service;
    auto client = clientOf(service);
    const auto home = get(service, "/v2/home");
    std::size_t pictures = 0;
    const std::function<void(const json&)> visit = [&](const json& value) {
        if (value.is_structured()) {
            for (const auto& member : value) visit(member);
        } else if (value.is_string() && value.get<std::string>().ends_with(".svg")) {
            const auto address = value.get<std::string>();
            ASSERT_TRUE(address.starts_with(service.baseURL() + "/pictures/")) << address;
            const auto answer = client.Get(address.substr(service.baseURL().size()));
            ASSERT_TRUE(answer) << address;
            EXPECT_EQ(answer->status, 200) << address;
            EXPECT_EQ(answer->get_header_value("Content-Type"), "image/svg+xml");
            EXPECT_TRUE(answer->body.starts_with("<svg ") && answer->body.ends_with("</svg>\n"))
                << answer->body;
            ++pictures;
        }
    };
    visit(home);
    EXPECT_GT(pictures, 100U);
}

TEST(SamplePictures, ATitleIsDrawnWithEscapedMarkup) {
    const SampleService service;
    const auto answer = clientOf(service).Get("/pictures/show/copper-and-clay/landscape.svg");
    ASSERT_TRUE(answer);
    EXPECT_NE(answer->body.find("<title>Copper &amp; Clay</title>"), std::string::npos) << answer->body;
}

TEST(SamplePictures, UnknownNamesAndUnknownKindsAreNotFound) {
    const SampleService service;
    for (const char* path :
         {"/pictures/show/none/landscape.svg", "/pictures/show/harbour-lights/round.svg",
          "/pictures/show/harbour-lights/landscape.png", "/pictures/nothing/home/landscape.svg",
          "/pictures/series/none/landscape.svg", "/pictures/video/none/landscape.svg",
          "/pictures/collection/none/landscape.svg", "/pictures/avatar/none/landscape.svg"}) {
        EXPECT_EQ(clientOf(service).Get(path)->status, 404) << path;
    }
}

TEST(SamplePictures, HaveURLsOfTheRequestedHost) {
    const SampleService service;
    const auto answer = clientOf(service).Get(
        "/v2/video/HL0101", {{"Host", "service.example:81"}, {"X-Forwarded-Proto", "https"}});
    ASSERT_TRUE(answer);
    EXPECT_EQ(json::parse(answer->body)["thumbnail"],
              "https://service.example:81/pictures/video/HL0101/landscape.svg");
}

}  // namespace

}  // namespace VanticRestKit::test

#include "Client.h"

namespace VanticRestKit::test {

namespace {

using nlohmann::json;

std::vector<int> messages(const SampleService& service, const std::string& query) {
    std::vector<int> ids;
    for (const auto& message : get(service, "/v2/messages?" + query)) ids.push_back(message["id"]);
    return ids;
}

std::vector<std::string> found(const SampleService& service, const std::string& query) {
    std::vector<std::string> titles;
    const auto answer = get(service, "/v2/search?" + query);
    for (const auto& show : answer["results"]["items"]) titles.push_back(show["title"]);
    return titles;
}

TEST(SampleNotices, MessagesDependOnApplicationAndLogin) {
    const SampleService service;
    EXPECT_EQ(messages(service, "appId=lumeno&authStatus=false"), (std::vector<int>{501, 502}));
    EXPECT_EQ(messages(service, "appId=kids&authStatus=true"), (std::vector<int>{501, 503, 505}));
    EXPECT_EQ(messages(service, "appId=lumeno%20int&authStatus=true"), (std::vector<int>{501, 504, 505}));
}

TEST(SampleNotices, EveryReferencedAlertExists) {
    const SampleService service;
    for (const char* path : {"/v2/home", "/v2/shows", "/v2/show/harbour-lights", "/v2/show/night-ferry"}) {
        const std::string id = get(service, path)["_links"]["alert"]["id"];
        EXPECT_EQ(get(service, "/v2/alert/" + id)["id"], id) << path;
    }
    EXPECT_EQ(clientOf(service).Get("/v2/alert/none")->status, 404);
}

TEST(SampleSearch, FindsTitlesFirstThenOtherFieldsIgnoringCase) {
    const SampleService service;
    EXPECT_EQ(found(service, "keyword=LANTERN"), std::vector<std::string>{"Paper Lanterns"});
    EXPECT_EQ(found(service, "keyword=ferry"), std::vector<std::string>{"Night Ferry"});
    const auto harbour = found(service, "keyword=sea");
    EXPECT_NE(std::find(harbour.begin(), harbour.end(), "Harbour Lights"), harbour.end());
    EXPECT_EQ(found(service, "keyword=Quillfeather"), std::vector<std::string>{"The Wool Ghosts"});
    EXPECT_EQ(found(service, "keyword=slack%20water"), std::vector<std::string>{"Harbour Lights"});
}

TEST(SampleSearch, FindsNothingForAnUnknownWordAnotherChannelOrNoKeyword) {
    const SampleService service;
    EXPECT_TRUE(found(service, "keyword=zeppelin").empty());
    EXPECT_TRUE(found(service, "keyword=ferry&channel=vantic-kids").empty());
    EXPECT_TRUE(found(service, "keyword=").empty());
    EXPECT_EQ(get(service, "/v2/search?keyword=zeppelin")["_meta"]["keyword"], "zeppelin");
}

TEST(SampleRemap, MapsOldAndNewPagesToCurrentPaths) {
    const SampleService service;
    const auto show = get(service, "/v2/remap/programs/harbour-lights?video=HL0102");
    EXPECT_EQ(show["status"], "moved");
    EXPECT_EQ(show["_links"]["api"]["href"], "/show/harbour-lights/video/HL0102");
    EXPECT_EQ(show["_links"]["deeplink"]["href"], "vantic://show/harbour-lights/video/HL0102");
    EXPECT_EQ(get(service, "/v2/remap/video/HL0101")["status"], "ok");
    EXPECT_EQ(get(service, "/v2/remap/")["_links"]["api"]["href"], "/home");
    EXPECT_EQ(get(service, "/v2/remap/show/none"),
              json::parse(R"({"status":"unknown","_links":{"api":{},"deeplink":{}}})"));
}

TEST(SampleRemap, MapsOnlyPagesThatExist) {
    const SampleService service;
    const auto mapped = [&](const std::string& page) {
        return get(service, "/v2/remap/" + page)["_links"]["api"].value("href", "none");
    };
    EXPECT_EQ(mapped("home"), "/home");
    EXPECT_EQ(mapped("series/111"), "/series/111");
    EXPECT_EQ(mapped("watch/HL0101"), "/video/HL0101");
    EXPECT_EQ(mapped("channel/vantic-kids"), "/channel/vantic-kids");
    const std::string collection =
        get(service, "/v2/home")["_embedded"]["collections"][0]["collectionLink"]["href"];
    ASSERT_TRUE(collection.starts_with("/collection/")) << collection;
    EXPECT_EQ(mapped(collection.substr(1)), collection);
    for (const char* page : {"series/1", "watch/none", "video/none", "channel/none", "category/none",
                             "collection/none", "home/more", "show"}) {
        EXPECT_EQ(mapped(page), "none") << page;
    }
}

TEST(SampleNavigation, TheMenuShowsTheGivenChannelsOrAllIfNoneIsKnown) {
    const SampleService service;
    const auto channels = [&](const std::string& query) {
        return get(service, "/v2/navigation/mobile?" + query)["items"][1]["items"].size();
    };
    EXPECT_EQ(channels("channel=vantic-kids,vantic-news"), 2U);
    EXPECT_EQ(channels("channel=none"), 5U);
    EXPECT_EQ(get(service, "/v2/navigation/mobile")["items"].size(), 5U);
    EXPECT_EQ(get(service, "/v2/navigation/mobile?include=personalize")["items"].size(), 6U);
}

TEST(SampleFaults, UnknownEntitiesAreInEveryCollectionOfOneResponse) {
    const SampleService service;
    const auto plain = get(service, "/v2/home");
    service.addFault({{"path", "v2/home"}, {"fault", "oddities"}});
    const auto odd = get(service, "/v2/home");
    for (std::size_t i = 0; i < 8; ++i) {
        const auto& row = odd["_embedded"]["collections"][i];
        EXPECT_EQ(row["type"], "carousel");
        EXPECT_EQ(row["items"].size(), plain["_embedded"]["collections"][i]["items"].size() + 6);
        EXPECT_EQ(row["items"][0]["_entity"], "promo");
        EXPECT_EQ(row["items"][2]["_entity"], "game");
    }
    EXPECT_EQ(get(service, "/v2/home"), plain);
}

}  // namespace

}  // namespace VanticRestKit::test

#include "Client.h"

#include <set>

namespace VanticRestKit::test {

namespace {

const std::vector<std::string> houseNumbers{"HL0101", "QO0101", "CC0101", "SP0101",  "NF0101",
                                            "KW0101", "SR0001", "PL0001", "SRT0001", "LIVE0001"};

/// Every video of the catalogue, of all programmes.
std::vector<nlohmann::json> everyVideo(const SampleService& service) {
    std::vector<nlohmann::json> videos;
    for (const auto& first : houseNumbers) {
        std::string href = "/video/" + first;
        while (!href.empty()) {
            videos.push_back(get(service, "/v2" + href));
            const auto links = videos.back().value("_links", nlohmann::json::object());
            href = links.contains("nextEpisode") ? links["nextEpisode"]["href"].get<std::string>() : "";
        }
    }
    return videos;
}

TEST(SampleCatalogue, TheTimeIsAPlainNumber) {
    const SampleService service;
    EXPECT_TRUE(get(service, "/v2/time").is_number());
}

TEST(SampleCatalogue, TheAvatarsAreAnArrayAtAPathWithATrailingSlash) {
    const SampleService service;
    const auto avatars = get(service, "/v3/image/avatar/");
    ASSERT_TRUE(avatars.is_array());
    EXPECT_EQ(avatars.size(), 9U);
    EXPECT_EQ(clientOf(service).Get("/v3/image/avatar")->status, 404);
}

TEST(SampleCatalogue, AVideoIsFoundByItsHouseNumberAndByItsOwnLink) {
    const SampleService service;
    const auto video = get(service, "/v2/video/HL0101");
    EXPECT_EQ(video["houseNumber"], "HL0101");
    const auto href = video["_links"]["self"]["href"].get<std::string>();
    EXPECT_EQ(get(service, "/v2/" + href), video);
    EXPECT_EQ(get(service, "/v2" + href), video);
}

TEST(SampleCatalogue, AnUnknownHouseNumberIsNotFound) {
    const SampleService service;
    EXPECT_EQ(clientOf(service).Get("/v2/video/none")->status, 404);
    EXPECT_EQ(clientOf(service).Get("/v2/nonsense")->status, 404);
}

TEST(SampleCatalogue, ABatchContainsTheKnownVideosInTheRequestedOrder) {
    const SampleService service;
    const auto items = get(service, "/v2/videos/SP0102,none,HL0101")["items"];
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0]["houseNumber"], "SP0102");
    EXPECT_EQ(items[1]["houseNumber"], "HL0101");
    EXPECT_EQ(get(service, "/v2/videos/"), nlohmann::json::parse(R"({"items":[]})"));
}

TEST(SampleCatalogue, FortyVideosCoverEveryKeyTypeAndQuality) {
    const SampleService service;
    std::set<std::string> keys, types, items, qualities, themes;
    const auto videos = everyVideo(service);
    EXPECT_EQ(videos.size(), 40U);
    for (const auto& video : videos) {
        for (const auto& [key, value] : video.items()) keys.insert(key);
        types.insert(video["type"]);
        if (video.contains("status")) themes.insert(video["status"]["theme"].get<std::string>());
        if (!video.contains("_embedded")) continue;
        for (const auto& item : video["_embedded"]["playlist"]) {
            items.insert(item["type"]);
            for (const auto& [technology, stream] : item["streams"].items()) {
                for (const auto& [quality, address] : stream.items())
                    qualities.insert(technology + " " + quality);
            }
        }
    }
    EXPECT_EQ(keys.size(), 39U);
    EXPECT_EQ(types, (std::set<std::string>{"episode", "feature", "trailer", "livestream"}));
    EXPECT_EQ(items, (std::set<std::string>{"program", "rating", "va", "preroll", "livestream", "trailer"}));
    EXPECT_EQ(themes, (std::set<std::string>{"default", "live"}));
    EXPECT_EQ(qualities.size(), 15U);
}

}  // namespace

}  // namespace VanticRestKit::test

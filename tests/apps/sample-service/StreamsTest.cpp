#include "Client.h"

#include <string_view>

namespace VanticRestKit::test {

namespace {

std::string textAt(const SampleService& service, const std::string& path) {
    const auto answer = clientOf(service).Get(path);
    return answer && answer->status == 200 ? answer->body : std::string();
}

std::size_t countOf(std::string_view part, std::string_view text) {
    std::size_t count = 0;
    for (auto at = text.find(part); at != text.npos; at = text.find(part, at + part.size())) ++count;
    return count;
}

TEST(SampleStreams, TheMainPlaylistOffersTwoExistingQualities) {
    const SampleService service;
    const std::string main = textAt(service, "/hls/main.m3u8");
    EXPECT_EQ(countOf("#EXT-X-STREAM-INF", main), 2U);
    for (const std::string quality : {"large", "small"}) {
        EXPECT_NE(main.find('\n' + quality + ".m3u8\n"), main.npos);
        const std::string media = textAt(service, "/hls/" + quality + ".m3u8");
        EXPECT_EQ(countOf("#EXTINF:4,", media), 5U);
        EXPECT_EQ(countOf("#EXT-X-ENDLIST", media), 1U);
        for (const std::string file : {"-init.mp4", "-0.m4s", "-4.m4s"}) {
            EXPECT_NE(media.find(quality + file), media.npos) << file;
            EXPECT_GT(textAt(service, "/hls/" + quality + file).size(), 1'000U) << file;
        }
    }
}

TEST(SampleStreams, AVideosPlaylistLastsAsLongAsTheVideo) {
    const SampleService service;
    const auto seconds = get(service, "/v2/video/HL0102")["duration"].get<std::size_t>();
    const std::string playlist = textAt(service, "/hls/HL0102-720.m3u8");
    EXPECT_EQ(countOf("#EXTINF:4,", playlist), (seconds + 3) / 4);
    EXPECT_EQ(countOf("#EXT-X-DISCONTINUITY\n", playlist) + 1, countOf("#EXT-X-MAP", playlist));
}

TEST(SampleStreams, TheLowestLevelIsTheSmallPicture) {
    const SampleService service;
    EXPECT_EQ(countOf("large", textAt(service, "/hls/HL0102-sd-low.m3u8")), 0U);
    EXPECT_EQ(countOf("small", textAt(service, "/hls/HL0102-sd.m3u8")), 0U);
}

TEST(SampleStreams, APartOfASegmentIs206) {
    const SampleService service;
    const auto answer = clientOf(service).Get("/hls/large-0.m4s", {{"Range", "bytes=4-7"}});
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, 206);
    EXPECT_EQ(answer->body, "styp");
    EXPECT_EQ(answer->get_header_value("Content-Type"), "video/mp4");
    EXPECT_TRUE(answer->get_header_value("Content-Range").starts_with("bytes 4-7/"));
}

TEST(SampleStreams, CaptionsShowTheVideoAndTheTime) {
    const SampleService service;
    const auto answer = clientOf(service).Get("/captions/HL0102.vtt");
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->get_header_value("Content-Type"), "text/vtt; charset=utf-8");
    EXPECT_TRUE(
        answer->body.starts_with("WEBVTT\n\n00:00:00.000 --> 00:00:04.000\nSlack Water, 0 min 0 s\n"));
}

TEST(SampleStreams, AnUnknownStreamIsA404) {
    const SampleService service;
    for (const char* path : {"/hls/huge.m3u8", "/hls/large-5.m4s", "/captions/XX.vtt", "/captions/HL0102"}) {
        EXPECT_EQ(clientOf(service).Get(path)->status, 404) << path;
    }
}

TEST(SampleStreams, TheCatalogueUsesThisServiceForStreamsOnlyOnRequest) {
    const SampleService service;
    const SampleService own({"--own-streams"});
    const auto hlsOf = [](const SampleService& from) {
        const auto playlist = get(from, "/v2/video/HL0102")["_embedded"]["playlist"];
        return playlist.back()["streams"]["hls"]["720"].get<std::string>();
    };
    EXPECT_EQ(hlsOf(service), "https://media.vantic.example/hls/HL0102-720.m3u8");
    EXPECT_EQ(hlsOf(own), own.baseURL() + "/hls/HL0102-720.m3u8");
    EXPECT_FALSE(textAt(own, hlsOf(own).substr(own.baseURL().size())).empty());
}

}  // namespace

}  // namespace VanticRestKit::test

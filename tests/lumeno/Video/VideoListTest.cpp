#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>

#include <platform/json/FieldRules.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;

std::size_t countOf(const char* json) {
    const auto list = decoded<VideoList>(json);
    EXPECT_TRUE(list) << json;
    return list ? list->videos.size() : 1000;
}

TEST(VideoList, HasOneField) {
    const std::string value = valueText(VideoList{});
    EXPECT_EQ(value, R"({"videos":[]})");
    EXPECT_EQ(test::shown<VideoList>("{}"), value);
}

TEST(VideoList, HasTheVideosUnderItems) {
    const auto list =
        decoded<VideoList>(R"({"items":[{"id":"a","_links":{}},{"id":"b","_links":{},"_entity":"Video"}]})");
    ASSERT_TRUE(list);
    ASSERT_EQ(list->videos.size(), 2U);
    EXPECT_EQ(list->videos[0].videoId, "a");
    EXPECT_EQ(list->videos[1].videoId, "b");
    EXPECT_EQ(list->videos[1].playableVideo, DirectPlayableVideo{.id = "b"});
    EXPECT_EQ(countOf(R"({"videos":[{"_links":{}}]})"), 0U);
}

TEST(VideoList, HasNoVideosIfOneFails) {
    EXPECT_EQ(countOf(R"({"items":[{"_links":{}}]})"), 1U);
    EXPECT_EQ(countOf(R"({"items":[{"_links":{}},{}]})"), 0U);
    EXPECT_EQ(countOf(R"({"items":[{},{"_links":{}}]})"), 0U);
    EXPECT_EQ(countOf(R"({"items":[{"_links":{}},{"_entity":"show","_links":{}}]})"), 0U);
    EXPECT_EQ(countOf(R"({"items":[{"_links":{}},null]})"), 0U);
    EXPECT_EQ(countOf(R"({"items":[{"_links":{}},{"_links":{},"\ud800":1}]})"), 0U);
}

TEST(VideoList, HasNoVideosWithoutAList) {
    for (const char* const json : {"{}", R"({"items":null})", R"({"items":{}})", R"({"items":"x"})",
                                   R"({"items":1})", R"({"items":[]})", R"({"items":true})"}) {
        EXPECT_EQ(countOf(json), 0U) << json;
    }
}

TEST(VideoList, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<VideoList>); }

TEST(VideoList, CanBeInitializedWithItsVideos) {
    const VideoList list{.videos = {Video{.videoId = "a"}}};
    EXPECT_EQ(list.videos.at(0).videoId, "a");
    EXPECT_NE(list, VideoList{});
}

TEST(VideosByThemselves, FailWithThePathOfTheFaultyElement) {
    EXPECT_EQ(failureOf<std::vector<Video>>(R"([{"_links":{}},{}])"), R"(keyNotFound [1,"_links"])");
    EXPECT_EQ(failureOf<std::vector<Video>>("[null]"), "typeMismatch [0]");
    const test::Outcome outcome = test::outcomeOf(test::decodable<std::vector<Video>>,
                                                  R"([{"_links":{}},{"_entity":"Show","_links":{}}])");
    EXPECT_EQ(outcome.failure, R"(Video expects a "video" entity type, but found "Show")");
    EXPECT_EQ(outcome.path, "[1]");
}

}  // namespace
}  // namespace VanticRestKit

// Requests for pictures, videos and any href, and the handling of the responses.

#include <VanticRestKit/lumeno/Image/Image.h>
#include <VanticRestKit/lumeno/Link/LinkEndpoints.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>

#include <lumeno/Endpoints/Sent.h>

namespace VanticRestKit {
namespace {

using test::answered;
using test::CatalogueContext;
using test::sent;

TEST(EndpointAvatars, RequestsThePicturesOfProfiles) {
    EXPECT_EQ(sent([](const Context& context) { return Endpoint::Avatars(context); }),
              "GET https://api.example.test/v3/image/avatar/");
}

TEST(EndpointAvatars, DecodesAList) {
    const CatalogueContext context;
    const auto images =
        answered(context, Endpoint::Avatars(context), R"([{"id":1},{"id":"b","tags":["t"]}])");
    ASSERT_TRUE(images);
    EXPECT_EQ(*images, (std::vector<Image>{{.id = "1"}, {.id = "b", .tags = {"t"}}}));
}

TEST(EndpointAvatars, FailsToDecodeUnlessItIsAListOfObjects) {
    for (const char* const body : {"{}", "null", "[null]", "", "[{}"}) {
        const CatalogueContext context;
        const auto images = answered(context, Endpoint::Avatars(context), body);
        ASSERT_FALSE(images) << body;
        EXPECT_EQ(images.error().kind(), LoaderError::Kind::failedToDecode) << body;
    }
}

TEST(EndpointVideo, RequestsAHouseNumberOrAnHref) {
    EXPECT_EQ(sent([](const Context& context) { return Endpoint::Video({.houseNumber = "ZW1"}, context); }),
              "GET https://api.example.test/v2/video/ZW1");
    EXPECT_EQ(
        sent([](const Context& context) { return Endpoint::Video({.usingHref = "video/ZW1"}, context); }),
        "GET https://api.example.test/v2/video/ZW1");
    EXPECT_EQ(
        sent([](const Context& context) { return Endpoint::Video({.usingHref = "any/thing"}, context); }),
        "GET https://api.example.test/v2/any/thing");
}

TEST(EndpointVideo, DecodesAVideo) {
    const CatalogueContext context;
    const auto video =
        answered(context, Endpoint::Video({.houseNumber = "ZW1"}, context), R"({"id":"v","_links":{}})");
    ASSERT_TRUE(video);
    EXPECT_EQ(video->videoId, "v");
}

TEST(EndpointVideo, FailsToDecodeAnotherEntity) {
    const CatalogueContext context;
    const auto video = answered(context, Endpoint::Video({.usingHref = "show/s"}, context),
                                R"({"_entity":"show","_links":{}})");
    ASSERT_FALSE(video);
    EXPECT_EQ(video.error().kind(), LoaderError::Kind::failedToDecode);
}

TEST(EndpointVideos, RequestsAllHouseNumbersAtOnce) {
    EXPECT_EQ(sent([](const Context& context) {
                  return Endpoint::Videos({.houseNumbers = {"a", "b"}}, context);
              }),
              "GET https://api.example.test/v2/videos/a,b");
}

TEST(EndpointVideos, AcceptsAListOfAnyLength) {
    const CatalogueContext context;
    EXPECT_TRUE(Endpoint::Videos({.houseNumbers = std::vector<std::string>{}}, context));
}

TEST(EndpointVideos, DecodesAListOfVideos) {
    const CatalogueContext context;
    const auto list = answered(context, Endpoint::Videos({.houseNumbers = {"a", "b"}}, context),
                               R"({"items":[{"id":"a","_links":{}},{"id":"b","_links":{}}]})");
    ASSERT_TRUE(list);
    ASSERT_EQ(list->videos.size(), 2U);
    EXPECT_EQ(list->videos[1].videoId, "b");
}

TEST(EndpointResource, RequestsAPathFromTheService) {
    EXPECT_EQ(sent([](const Context& context) {
                  return Endpoint::Resource<Video>({.withHref = "show/x"}, context);
              }),
              "GET https://api.example.test/v2/show/x");
}

TEST(EndpointResource, DecodesIntoTheRequestedType) {
    const CatalogueContext context;
    const auto links = answered(context, Endpoint::Resource<std::vector<Link>>({.withHref = "x"}, context),
                                R"([{"href":"a"},{"href":"b","title":"t"}])");
    ASSERT_TRUE(links);
    EXPECT_EQ(*links, (std::vector<Link>{{.href = "a"}, {.title = "t", .href = "b"}}));
    const CatalogueContext other;
    const auto number = answered(other, Endpoint::Resource<double>({.withHref = "x"}, other), "1.5");
    ASSERT_TRUE(number);
    EXPECT_EQ(*number, 1.5);
}

TEST(EndpointsOfVideos, AreAbsentIfTheContextMakesNoRequest) {
    const test::NoRequestContext context;
    EXPECT_FALSE(Endpoint::Avatars(context));
    EXPECT_FALSE(Endpoint::Video({.houseNumber = "a"}, context));
    EXPECT_FALSE(Endpoint::Video({.usingHref = "a"}, context));
    EXPECT_FALSE(Endpoint::Videos({.houseNumbers = {"a"}}, context));
    EXPECT_FALSE(Endpoint::Resource<Video>({.withHref = "a"}, context));
}

}  // namespace
}  // namespace VanticRestKit

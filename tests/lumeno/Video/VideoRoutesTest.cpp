#include <gtest/gtest.h>
#include <VanticRestKit/Core/ResourceURI.h>
#include <VanticRestKit/lumeno/Video/VideoRoutes.h>

namespace VanticRestKit {
namespace {

void expectAPathAlone(const ResourceURI& route, const std::string& path) {
    EXPECT_EQ(route.path(), path);
    EXPECT_TRUE(route.queryItems().empty());
    EXPECT_EQ(route.postData(), std::nullopt);
    EXPECT_EQ(route.httpMethod(), std::nullopt);
}

TEST(VideoURI, AppendsTheHouseNumberToThePath) {
    expectAPathAlone(VideoURI{.houseNumber = "ZW1"}, "v2/video/ZW1");
}

TEST(VideoURI, NeitherEscapesNorValidatesTheHouseNumber) {
    expectAPathAlone(VideoURI{.houseNumber = ""}, "v2/video/");
    expectAPathAlone(VideoURI{.houseNumber = "a b/../c?d=%20"}, "v2/video/a b/../c?d=%20");
}

TEST(VideosURI, JoinsTheHouseNumbersWithCommas) {
    expectAPathAlone(VideosURI{.houseNumbers = {"a", "b"}}, "v2/videos/a,b");
    expectAPathAlone(VideosURI{.houseNumbers = {"a"}}, "v2/videos/a");
    expectAPathAlone(VideosURI{.houseNumbers = {"a", "", "b,c", "d e"}}, "v2/videos/a,,b,c,d e");
}

TEST(VideosURI, CanBeEmpty) {
    expectAPathAlone(VideosURI{}, "v2/videos/");
    expectAPathAlone(VideosURI{.houseNumbers = {""}}, "v2/videos/");
}

}  // namespace
}  // namespace VanticRestKit

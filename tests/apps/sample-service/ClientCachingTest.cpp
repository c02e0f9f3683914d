// The Cache-Control of the service's responses.

#include "Client.h"

#include <gtest/gtest.h>

#include <string>

namespace VanticRestKit::test {

namespace {

class ClientCaching : public testing::Test {
protected:
    static std::string controlOf(const SampleService& service, const std::string& path) {
        const auto answer = clientOf(service).Get(path);
        return answer ? answer->get_header_value("Cache-Control") : "no answer";
    }

    SampleService service;
};

TEST_F(ClientCaching, AllowsTheCatalogueForAMinute) {
    for (const char* path : {"/v2/home", "/v2/category/drama", "/v2/navigation/mobile", "/v2/browse",
                             "/v2/show/harbour-lights", "/v2/shows", "/v2/related/show/harbour-lights",
                             "/v2/video/HL0101", "/v2/videos/HL0101,HL0102", "/v3/image/avatar/"}) {
        const auto answer = clientOf(service).Get(path);
        ASSERT_TRUE(answer) << path;
        EXPECT_EQ(answer->status, 200) << path;
        EXPECT_EQ(answer->get_header_value("Cache-Control"), "private, max-age=60") << path;
        EXPECT_EQ(answer->get_header_value("Vary"), "Accept-Encoding, Accept-Language") << path;
        EXPECT_TRUE(answer->has_header("ETag")) << path;
        EXPECT_EQ(answer->get_header_value_count("ETag"), 1U) << path;
    }
}

TEST_F(ClientCaching, RequiresRevalidationOfShortLivedDocuments) {
    for (const char* path :
         {"/v2/nownext/ONE0001", "/v2/livestreams", "/v2/messages", "/v2/search?keyword=harbour"}) {
        EXPECT_EQ(controlOf(service, path), "private, no-cache") << path;
    }
}

TEST_F(ClientCaching, AllowsPicturesForADay) {
    EXPECT_EQ(controlOf(service, "/pictures/show/harbour-lights/landscape.svg"), "public, max-age=86400");
}

TEST_F(ClientCaching, ForbidsTheTimeAndUserData) {
    for (const char* path : {"/v2/time", "/v2/token?UID=ann&source=lumeno", "/v2/dataset/profile?UID=ann",
                             "/v2/history/video?UID=ann&slug=tv", "/v2/saved?UID=ann"}) {
        EXPECT_EQ(controlOf(service, path), "private, no-store") << path;
    }
}

TEST_F(ClientCaching, SendsNoCacheControlForFailures) {
    const auto answer = clientOf(service).Get("/v2/show/nothing");
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, 404);
    EXPECT_FALSE(answer->has_header("Cache-Control"));
    EXPECT_FALSE(answer->has_header("ETag"));
}

TEST_F(ClientCaching, RevalidatesOnlyAKnownTag) {
    const auto tag = clientOf(service).Get("/v2/show/harbour-lights")->get_header_value("ETag");
    for (const std::string& known : {tag, "W/" + tag, "\"a\", " + tag, tag + " , \"a\"", std::string("*")}) {
        const auto answer = clientOf(service).Get("/v2/show/harbour-lights", {{"If-None-Match", known}});
        ASSERT_TRUE(answer) << known;
        EXPECT_EQ(answer->status, 304) << known;
        EXPECT_EQ(answer->body, "") << known;
        EXPECT_EQ(answer->get_header_value("ETag"), tag) << known;
    }
    EXPECT_EQ(clientOf(service).Get("/v2/show/harbour-lights", {{"If-None-Match", "\"a\""}})->status, 200);
    EXPECT_EQ(clientOf(service).Get("/v2/show/copper-and-clay", {{"If-None-Match", tag}})->status, 200);
}

TEST_F(ClientCaching, SetsACookieOnTheHomeScreenForAClientWithoutOne) {
    const std::string cookie = clientOf(service).Get("/v2/home")->get_header_value("Set-Cookie");
    EXPECT_EQ(cookie.rfind("visitor=", 0), 0U) << cookie;
    EXPECT_NE(cookie.find("; HttpOnly"), std::string::npos) << cookie;
    const std::string own = cookie.substr(0, cookie.find(';'));
    EXPECT_FALSE(clientOf(service).Get("/v2/home", {{"Cookie", own}})->has_header("Set-Cookie"));
    EXPECT_FALSE(clientOf(service).Get("/v2/shows")->has_header("Set-Cookie"));
}

TEST(ClientCachingOfScenarios, RequiresRevalidationExceptForHomeScreenAndMenus) {
    const SampleService service({"--scenarios"});
    const auto controlOf = [&](const char* path) {
        return clientOf(service).Get(path)->get_header_value("Cache-Control");
    };
    EXPECT_EQ(controlOf("/v2/home"), "private, max-age=60");
    EXPECT_EQ(controlOf("/v2/show/harbour-lights"), "private, no-cache");
}

}  // namespace

}  // namespace VanticRestKit::test

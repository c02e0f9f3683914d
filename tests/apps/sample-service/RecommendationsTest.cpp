#include "UserClient.h"

#include <algorithm>

namespace VanticRestKit::test {

namespace {

constexpr const char* segments = "/api/v1/gigya/segments";
constexpr const char* recommendations = "/api/v2/recommendations/home";

httplib::Result post(const SampleService& service, const std::string& target, const nlohmann::json& body,
                     const httplib::Headers& headers = {}) {
    return clientOf(service).Post(target, headers, body.dump(), "application/json");
}

nlohmann::json segmentsOf(const SampleService& service, const std::string& uid) {
    const auto answer = post(service, segments, {{"sub_profile_id", uid}},
                             {{"x-api-key", "k"}, {"Authorization", "Bearer t"}});
    return nlohmann::json::parse(answer->body);
}

std::vector<std::string> recommended(const SampleService& service, const nlohmann::json& body) {
    const auto answer = post(service, std::string(recommendations) + "?apikey=k", body);
    return column(nlohmann::json::parse(answer->body)["recommendations"], "rid");
}

TEST(SampleSegments, DependOnTheHistoryAndIncludeUnknownOnes) {
    const SampleService service;
    EXPECT_EQ(segmentsOf(service, "ann"), nlohmann::json::parse(R"({"user_id":"ann",
        "active_audiences":["vantic_main_9"],"active_badges":["7832","1"]})"));
    UserClient ann(service, "ann");
    ann.ask("PATCH", "history/show/14/video/SP0101/progress/1", "&slug=watchlist");
    EXPECT_EQ(segmentsOf(service, "ann"), nlohmann::json::parse(R"({"user_id":"ann",
        "active_audiences":["vantic_main_9","vantic_main_127"],"active_badges":["7832"]})"));
}

TEST(SampleSegments, OfAUserWithoutVideosForChildrenHaveNoAudienceForThem) {
    const SampleService service;
    UserClient ann(service, "ann");
    ann.ask("PATCH", "history/show/11/video/HL0101/progress/1", "&slug=watchlist");
    ann.ask("PATCH", "history/show/11/video/none/progress/1", "&slug=watchlist");
    EXPECT_EQ(segmentsOf(service, "ann"), nlohmann::json::parse(R"({"user_id":"ann",
        "active_audiences":["vantic_main_9"],"active_badges":["7832"]})"));
}

TEST(SampleSegments, AreRejectedWithoutKeyTokenOrSubprofile) {
    const SampleService service;
    const nlohmann::json body{{"sub_profile_id", "ann"}};
    EXPECT_EQ(post(service, segments, body, {{"Authorization", "Bearer t"}})->status, 403);
    EXPECT_EQ(post(service, segments, body, {{"x-api-key", "k"}})->status, 401);
    const httplib::Headers good{{"X-API-Key", "k"}, {"Authorization", "Bearer t"}};
    EXPECT_EQ(post(service, segments, body, good)->status, 200);
    EXPECT_EQ(post(service, segments, nlohmann::json::object(), good)->status, 400);
    EXPECT_EQ(post(service, segments, nlohmann::json::array(), good)->status, 400);
    EXPECT_EQ(post(service, segments, {{"sub_profile_id", 5}}, good)->status, 400);
    EXPECT_EQ(clientOf(service).Get(segments)->status, 405);
}

TEST(SampleRecommendations, HaveManyKindsUpToTheLimit) {
    const SampleService service;
    const auto all = recommended(service, {{"limit", 1000}});
    EXPECT_GT(all.size(), 8U);
    for (const char* begin : {"lumeno://program/", "lumeno://video/", "coremedia://audioepisode/"}) {
        EXPECT_TRUE(std::any_of(all.begin(), all.end(), [&](const auto& uri) {
            return uri.starts_with(begin);
        })) << begin;
    }
    EXPECT_EQ(recommended(service, {{"limit", 2}}), (std::vector<std::string>{all[0], all[1]}));
    EXPECT_TRUE(recommended(service, {{"limit", 0}}).empty());
}

TEST(SampleRecommendations, ObeyTheFilters) {
    const SampleService service;
    const auto all = recommended(service, {{"limit", 1000}});
    const nlohmann::json few{all[0], all[3]};
    EXPECT_EQ(recommended(service, {{"limit", 9}, {"contentfilter", {{"includes", few}}}}),
              (std::vector<std::string>{all[0], all[3]}));
    const auto others = recommended(service, {{"limit", 1000}, {"contentfilter", {{"excludes", few}}}});
    EXPECT_EQ(others.size(), all.size() - 2);
    EXPECT_EQ(others.front(), all[1]);
}

TEST(SampleRecommendations, IgnoreFiltersAndContextsOfOtherTypes) {
    const SampleService service;
    const auto all = recommended(service, {{"limit", 1000}});
    EXPECT_EQ(recommended(service, {{"limit", 1000}, {"contentfilter", {{"excludes", all[0]}}}}), all);
    EXPECT_EQ(recommended(service, {{"limit", 1000}, {"contentfilter", "none"}}), all);
    EXPECT_EQ(recommended(service, {{"limit", 1000}, {"context", 11}, {"userid", 5}}), all);
    const auto others =
        recommended(service, {{"limit", 1000}, {"contentfilter", {{"excludes", {5, all[0]}}}}});
    EXPECT_EQ(others, (std::vector<std::string>(all.begin() + 1, all.end())));
}

TEST(SampleRecommendations, OmitTheShownContentAndPreferItsKind) {
    const SampleService service;
    const auto items = recommended(service, {{"limit", 1000}, {"context", "lumeno://program/11"}});
    EXPECT_EQ(std::count(items.begin(), items.end(), "lumeno://program/11"), 0);
    EXPECT_EQ(items.front(), "lumeno://program/15") << "the other drama";
}

TEST(SampleRecommendations, ListWatchedContentLast) {
    const SampleService service;
    const auto before = recommended(service, {{"limit", 1}, {"userid", "ann"}});
    UserClient ann(service, "ann");
    const std::string id = before[0].substr(before[0].rfind('/') + 1);
    ann.ask("PATCH", "history/show/" + id + "/video/X/progress/1", "&slug=watchlist");
    EXPECT_NE(recommended(service, {{"limit", 1}, {"userid", "ann"}}), before);
    EXPECT_EQ(recommended(service, {{"limit", 1}, {"userid", "bob"}}), before);
    EXPECT_NE(recommended(service, {{"limit", 1}, {"userid", "bob"}, {"subprofileid", "ann"}}), before);
}

TEST(SampleRecommendations, ContainModuleAndVariant) {
    const SampleService service;
    const auto answer =
        clientOf(service).Put(std::string(recommendations) + "?apikey=k", R"({"limit":1})", "text/plain");
    auto module = nlohmann::json::parse(answer->body);
    EXPECT_EQ(module["recommendations"][0]["recipeid"], "recipe-home");
    module.erase("recommendations");
    EXPECT_EQ(module,
              nlohmann::json::parse(R"({"moduleid":"home","variantid":"newcomer","label":"Popular now"})"));
}

TEST(SampleRecommendations, AreRejectedWithoutAKeyOrALimit) {
    const SampleService service;
    EXPECT_EQ(post(service, recommendations, {{"limit", 1}})->status, 403);
    for (const char* body : {"{}", R"({"limit":-1})", "[]", R"({"limit":"1"})"}) {
        EXPECT_EQ(
            post(service, std::string(recommendations) + "?apikey=k", nlohmann::json::parse(body))->status,
            400)
            << body;
    }
}

}  // namespace

}  // namespace VanticRestKit::test

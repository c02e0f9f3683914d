#include <gtest/gtest.h>
#include <VanticRestKit/Core/ResourceURI.h>
#include <VanticRestKit/recs/RecsRoutes.h>

#include <limits>

namespace VanticRestKit {
namespace {

using Contents = std::vector<RecsModuleContext>;

/// A route with only its required arguments.
RecsModuleURI minimal() {
    return RecsModuleURI({.withModuleId = "m1",
                          .userId = std::nullopt,
                          .accountId = std::nullopt,
                          .subprofileId = std::nullopt,
                          .limit = 10,
                          .httpMethod = "POST",
                          .exclude = Contents{},
                          .include = Contents{},
                          .andModuleContext = std::nullopt});
}

std::string body(const RecsModuleURI& uri) {
    const std::optional<Data> data = uri.postData();
    return data ? std::string(data->view()) : "no body";
}

TEST(RecsModuleURI, StoresItsArguments) {
    const RecsModuleURI uri({.withModuleId = "m1",
                             .userId = std::optional<std::string>("u"),
                             .accountId = std::optional<std::string>("a"),
                             .subprofileId = std::optional<std::string>("s"),
                             .limit = 10,
                             .httpMethod = "PUT",
                             .exclude = {RecsModuleContext::withShowId("1")},
                             .include = {RecsModuleContext::withShowId("2")},
                             .andModuleContext = std::optional(RecsModuleContext::withShowId("3"))});
    EXPECT_EQ(uri.moduleId, "m1");
    EXPECT_EQ(uri.userId, "u");
    EXPECT_EQ(uri.accountId, "a");
    EXPECT_EQ(uri.subprofileId, "s");
    EXPECT_EQ(uri.moduleContext, RecsModuleContext::withShowId("3"));
    EXPECT_EQ(uri.limit, 10);
    EXPECT_EQ(uri.excludeFilter, Contents{RecsModuleContext::withShowId("1")});
    EXPECT_EQ(uri.includeFilter, Contents{RecsModuleContext::withShowId("2")});
    EXPECT_EQ(uri.httpMethod, "PUT");
}

TEST(RecsModuleURI, RequestsAModuleWithTheGivenMethodAndNoQueryItems) {
    const ResourceURI route = minimal();
    EXPECT_EQ(route.path(), "api/v2/recommendations/m1");
    EXPECT_TRUE(route.queryItems().empty());
    EXPECT_EQ(route.httpMethod(), "POST");
    RecsModuleURI other = minimal();
    other.moduleId = "a b/c";
    other.httpMethod = std::nullopt;
    EXPECT_EQ(ResourceURI(other).path(), "api/v2/recommendations/a b/c");
    EXPECT_EQ(ResourceURI(other).httpMethod(), std::nullopt);
}

TEST(RecsModuleURI, AlwaysSendsTheLimitAndOmitsAbsentFields) {
    EXPECT_EQ(body(minimal()), R"({"limit":10})");
    RecsModuleURI other = minimal();
    other.limit = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(body(other), R"({"limit":-9223372036854775808})");
}

TEST(RecsModuleURI, SendsEachPresentIdEvenIfEmpty) {
    RecsModuleURI uri = minimal();
    uri.userId = "u";
    EXPECT_EQ(body(uri), R"({"limit":10,"userid":"u"})");
    uri.accountId = "";
    EXPECT_EQ(body(uri), R"({"limit":10,"userid":"u","accountid":""})");
    uri.userId = std::nullopt;
    uri.subprofileId = "s";
    EXPECT_EQ(body(uri), R"({"limit":10,"accountid":"","subprofileid":"s"})");
}

TEST(RecsModuleURI, SendsTheURIOfTheShownContent) {
    RecsModuleURI uri = minimal();
    uri.moduleContext = RecsModuleContext::withArticleId("7");
    EXPECT_EQ(body(uri), R"({"limit":10,"context":"coremedia:\/\/audio\/7"})");
}

TEST(RecsModuleURI, SendsNoFilterWithoutContentsToFilter) {
    EXPECT_EQ(body(minimal()).find("contentfilter"), std::string::npos);
}

TEST(RecsModuleURI, SendsOnlyTheFilterThatHasContents) {
    RecsModuleURI uri = minimal();
    uri.includeFilter = {RecsModuleContext::withShowId("1"), RecsModuleContext::withAudioEpisodeId("2")};
    EXPECT_EQ(
        body(uri),
        R"({"limit":10,"contentfilter":{"includes":["lumeno:\/\/program\/1","coremedia:\/\/audioepisode\/2"]}})");
    uri.excludeFilter = std::exchange(uri.includeFilter, Contents{});
    EXPECT_EQ(
        body(uri),
        R"({"limit":10,"contentfilter":{"excludes":["lumeno:\/\/program\/1","coremedia:\/\/audioepisode\/2"]}})");
}

TEST(RecsModuleURI, SendsAllFieldsInAFixedOrder) {
    RecsModuleURI uri = minimal();
    uri.userId = "u";
    uri.accountId = "a";
    uri.subprofileId = "s";
    uri.moduleContext = RecsModuleContext::withShowId("3");
    uri.excludeFilter = {RecsModuleContext::withShowId("1")};
    uri.includeFilter = {RecsModuleContext::withShowId("2")};
    EXPECT_EQ(
        body(uri),
        R"({"limit":10,"userid":"u","accountid":"a","subprofileid":"s","context":"lumeno:\/\/program\/3",)"
        R"("contentfilter":{"excludes":["lumeno:\/\/program\/1"],"includes":["lumeno:\/\/program\/2"]}})");
}

TEST(RecsModuleURI, HasNoBodyIfAStringIsNotUTF8) {
    RecsModuleURI uri = minimal();
    uri.userId = "\xff";
    EXPECT_EQ(body(uri), "no body");
    uri.userId = std::nullopt;
    uri.includeFilter = {RecsModuleContext::withShowId("\xc3")};
    EXPECT_EQ(body(uri), "no body");
}

}  // namespace
}  // namespace VanticRestKit

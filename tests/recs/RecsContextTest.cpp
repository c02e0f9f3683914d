// Requests to the recommendation service through a host's context, and the handling of the responses.

#include <gtest/gtest.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/recs/RecommendationModule.h>
#include <VanticRestKit/recs/RecsContext.h>
#include <VanticRestKit/recs/RecsRoutes.h>

#include <Core/FakeContext.h>

namespace VanticRestKit {
namespace {

using Headers = std::map<std::string, std::string>;
using Items = std::vector<URLQueryItem>;
using Module = Result<RecommendationModule, LoaderError>;

class KeyedContext : public test::FakeContext, public RecsContext {
public:
    KeyedContext() { headers = {{"X-Own", "1"}, {"Accept", "application/json"}}; }

    std::string apiKey() const override { return key; }

    std::string key = "k&1";
};

Context::URLRequestArguments arguments(Items items, std::optional<double> timeout) {
    return {.usingPath = "a/b",
            .queryItems = std::move(items),
            .additionalHTTPHeaders = Headers{{"X-Given", "2"}},
            .httpMethod = std::optional<std::string>("PUT"),
            .timeout = timeout,
            .andPostData = std::optional<Data>(Data("body"))};
}

RecsModuleURI route() {
    return RecsModuleURI({.withModuleId = "m1",
                          .userId = std::optional<std::string>("u"),
                          .accountId = std::nullopt,
                          .subprofileId = std::nullopt,
                          .limit = 5,
                          .httpMethod = "POST",
                          .exclude = std::vector<RecsModuleContext>{},
                          .include = std::vector<RecsModuleContext>{},
                          .andModuleContext = std::nullopt});
}

Module answered(const KeyedContext& context, test::Reply reply) {
    Module outcome = Failure(LoaderError::unknowError());
    const auto resource = Resource<RecommendationModule>::make({.with = route()}, context);
    EXPECT_TRUE(resource);
    if (!resource) return outcome;
    resource->load({.with = [&outcome](Module result) { outcome = std::move(result); }});
    context.session->reply(std::move(reply));
    return outcome;
}

std::string urlOf(const std::optional<URLRequest>& request) {
    return request ? request->url()->absoluteString() : "no request";
}

TEST(RecsContext, AppendsItsKeyToTheItemsOfTheRoute) {
    const KeyedContext context;
    EXPECT_EQ(urlOf(context.generateURLRequest(arguments({{"x", "1"}, {"apikey", "theirs"}}, {}))),
              "https://api.example.test/a/b?x=1&apikey=theirs&apikey=k%261");
    EXPECT_EQ(urlOf(context.generateURLRequest(arguments({}, {}))),
              "https://api.example.test/a/b?apikey=k%261");
}

TEST(RecsContext, AppendsItsKeyToTheQueryOfTheBaseURL) {
    KeyedContext context;
    context.base = test::url("https://api.example.test/base?tenant=7");
    EXPECT_EQ(urlOf(context.generateURLRequest(arguments({}, {}))),
              "https://api.example.test/base/a/b?tenant=7&apikey=k%261");
    EXPECT_EQ(urlOf(context.generateURLRequest(arguments({{"x", "1"}}, {}))),
              "https://api.example.test/base/a/b?tenant=7&x=1&apikey=k%261");
}

TEST(RecsContext, SendsAnEmptyKey) {
    KeyedContext context;
    context.key = "";
    EXPECT_EQ(urlOf(context.generateURLRequest(arguments({}, {}))), "https://api.example.test/a/b?apikey=");
}

TEST(RecsContext, SendsOnlyTheGivenHeaders) {
    const KeyedContext context;
    const auto request = context.generateURLRequest(arguments({}, {}));
    ASSERT_TRUE(request);
    EXPECT_EQ(request->allHTTPHeaderFields(), (Headers{{"X-Given", "2"}}));
    EXPECT_EQ(request->httpMethod(), "PUT");
    EXPECT_EQ(request->httpBody(), Data("body"));
}

TEST(RecsContext, UsesItsOwnTimeoutOnlyIfNoneIsGiven) {
    KeyedContext context;
    context.timeout = 12.5;
    EXPECT_EQ(context.generateURLRequest(arguments({}, 5.0))->timeoutInterval().count(), 5.0);
    EXPECT_EQ(context.timeoutReads, 0);
    EXPECT_EQ(context.generateURLRequest(arguments({}, std::nullopt))->timeoutInterval().count(), 12.5);
    EXPECT_EQ(context.timeoutReads, 1);
}

TEST(RecommendationModules, AreRequestedWithTheKeyAndTheHeadersOfTheContext) {
    KeyedContext context;
    context.timeout = 12.5;
    (void)answered(context, test::answer(200, "{}"));
    ASSERT_EQ(context.session->requests().size(), 1U);
    const URLRequest request = context.session->requests().front();
    EXPECT_EQ(request.url()->absoluteString(),
              "https://api.example.test/api/v2/recommendations/m1?apikey=k%261");
    EXPECT_EQ(request.httpMethod(), "POST");
    EXPECT_EQ(request.allHTTPHeaderFields(), context.headers);
    EXPECT_EQ(request.timeoutInterval().count(), 12.5);
    ASSERT_TRUE(request.httpBody());
    EXPECT_EQ(request.httpBody()->view(), R"({"limit":5,"userid":"u"})");
}

TEST(RecommendationModules, DecodeTheirRecommendations) {
    const KeyedContext context;
    const Module module = answered(
        context,
        test::answer(
            200,
            R"({"moduleid":"m1","variantid":"v","label":"l","recommendations":[{"rid":"lumeno://video/5","recipeid":"r"}]})"));
    ASSERT_TRUE(module);
    EXPECT_EQ(*module,
              (RecommendationModule{.moduleid = "m1",
                                    .variantid = "v",
                                    .label = "l",
                                    .recommendations = {{.rid = "lumeno://video/5", .recipeid = "r"}}}));
}

TEST(RecommendationModules, FailToDecodeIfOneRidIsMissing) {
    const KeyedContext context;
    const Module module = answered(
        context,
        test::answer(
            200, R"({"moduleid":"m1","variantid":"v","label":"l","recommendations":[{"recipeid":"r"}]})"));
    ASSERT_FALSE(module);
    EXPECT_EQ(module.error().kind(), LoaderError::Kind::failedToDecode);
}

TEST(RecommendationModules, FailWithTheServersError) {
    const KeyedContext context;
    const Module module = answered(context, test::answer(404, "{}"));
    ASSERT_FALSE(module);
    EXPECT_TRUE(module.error().is404Error());
}

}  // namespace
}  // namespace VanticRestKit

#include <gtest/gtest.h>
#include <VanticRestKit/Core/URLBuilder.h>

#include <Core/FakeContext.h>
#include <support/Vectors.h>

namespace VanticRestKit {
namespace {

using Queries = std::vector<URLQueryItem>;
using Headers = std::map<std::string, std::string>;

std::optional<URLRequest> built(const char* base, const std::string& path, const Queries& queries = {}) {
    return URLBuilder::urlrequest({.usingBaseUrl = test::url(base),
                                   .pathComponents = path,
                                   .queries = queries,
                                   .HTTPHeaders = Headers(),
                                   .httpMethod = std::nullopt,
                                   .andPostData = std::nullopt});
}

std::string builtURL(const char* base, const std::string& path, const Queries& queries = {}) {
    const std::optional<URLRequest> request = built(base, path, queries);
    return request && request->url() ? request->url()->absoluteString() : "nothing";
}

URLRequest builtWith(const Headers& headers, std::optional<std::string> method, std::optional<Data> body,
                     double timeOut) {
    const std::optional<URLRequest> request =
        URLBuilder::urlrequest({.usingBaseUrl = test::url("https://a.test"),
                                .pathComponents = "x",
                                .queries = Queries(),
                                .HTTPHeaders = headers,
                                .httpMethod = std::move(method),
                                .andPostData = std::move(body),
                                .timeOut = timeOut});
    return request.value_or(URLRequest(test::url("https://nothing.test")));
}

TEST(URLBuilder, BuildsTheSameURLsAsThePlatform) {
    for (const auto& line : test::vectors("url_build.jsonl")) {
        const auto& in = line["in"];
        Queries queries;
        for (const auto& pair : in["query"]) {
            queries.push_back(
                {pair[0], pair[1].is_null() ? std::nullopt : std::optional<std::string>(pair[1])});
        }
        const std::string found = builtURL(in["base"].get<std::string>().c_str(), in["path"], queries);
        if (test::isFree(line)) continue;
        EXPECT_EQ(found, line["out"].is_null() ? "nothing" : line["out"].get<std::string>()) << line;
    }
}

TEST(URLBuilder, AnEmptyPathGivesTheBaseURLItself) {
    EXPECT_EQ(builtURL("https://api.example.test/root/", ""), "https://api.example.test/root/");
}

TEST(URLBuilder, SlashesInsideThePathSeparateSegments) {
    EXPECT_EQ(builtURL("https://api.example.test", "v2/video/ZW1"), "https://api.example.test/v2/video/ZW1");
}

TEST(URLBuilder, QueryItemsFollowTheBaseQueryInOrder) {
    EXPECT_EQ(builtURL("https://api.example.test/?k=v", "x", {{"b", "2"}, {"a", "1"}}),
              "https://api.example.test/x?k=v&b=2&a=1");
}

TEST(URLBuilder, TheBaseQueryIsKeptWithoutQueryItems) {
    EXPECT_EQ(builtURL("https://api.example.test/?k=v%26w", "x"), "https://api.example.test/x?k=v%26w");
}

TEST(URLBuilder, AnItemWithoutAValueHasNoEqualsSign) {
    EXPECT_EQ(builtURL("https://api.example.test", "x", {{"flag", std::nullopt}, {"empty", ""}}),
              "https://api.example.test/x?flag&empty=");
}

TEST(URLBuilder, ARequestHasTheDefaultCachePolicyAndIsAttributedToTheUser) {
    const std::optional<URLRequest> request = built("https://api.example.test", "x");
    ASSERT_TRUE(request);
    EXPECT_EQ(request->cachePolicy(), URLRequestCachePolicy::useProtocolCachePolicy);
    EXPECT_EQ(request->attribution(), URLRequestAttribution::user);
}

TEST(URLBuilder, TheTimeoutIsThirtySecondsUnlessItIsGiven) {
    const std::optional<URLRequest> request = built("https://api.example.test", "x");
    ASSERT_TRUE(request);
    EXPECT_EQ(request->timeoutInterval().count(), 30.0);
    EXPECT_EQ(builtWith({}, std::nullopt, std::nullopt, 4.5).timeoutInterval().count(), 4.5);
}

TEST(URLBuilder, NoHeaderIsAddedThatWasNotGiven) {
    EXPECT_TRUE(builtWith({}, "POST", Data("{}"), 30).allHTTPHeaderFields().empty());
    EXPECT_EQ(builtWith({{"Accept", "a"}, {"X-Key", "b"}}, "POST", Data("{}"), 30).allHTTPHeaderFields(),
              (Headers{{"Accept", "a"}, {"X-Key", "b"}}));
}

TEST(URLBuilder, HeaderNamesThatDifferInCaseAreJoinedByTheRequest) {
    const URLRequest request = builtWith({{"X-Key", "1"}, {"x-key", "2"}}, std::nullopt, std::nullopt, 30);
    EXPECT_EQ(request.value("X-KEY"), "1,2");
    EXPECT_EQ(request.allHTTPHeaderFields().size(), 1U);
}

TEST(URLBuilder, TheDefaultMethodIsGETEvenWithABody) {
    const URLRequest request = builtWith({}, std::nullopt, Data("body"), 30);
    EXPECT_EQ(request.httpMethod(), "GET");
    EXPECT_EQ(request.httpBody(), Data("body"));
}

TEST(URLBuilder, MethodAndBodyAreSentAsGiven) {
    const URLRequest request = builtWith({}, "PATCH", Data(""), 30);
    EXPECT_EQ(request.httpMethod(), "PATCH");
    EXPECT_EQ(request.httpBody(), Data(""));
    EXPECT_EQ(builtWith({}, "DELETE", std::nullopt, 30).httpBody(), std::nullopt);
}

}  // namespace
}  // namespace VanticRestKit

#include <VanticRestKit/kavro/KAVROSegmentsContext.h>
#include <VanticRestKit/trelvo/Common/TrelvoContextAuthDecorator.h>

#include <Core/RecordingObserver.h>
#include <trelvo/UserContext.h>

namespace VanticRestKit::test {
namespace {

using Headers = std::map<std::string, std::string>;

constexpr const char* form = "application/x-www-form-urlencoded";

TEST(TrelvoContextAuthDecorator, AddsTokenAndContentTypeToTheHeadersOfItsContext) {
    UserContext host;
    host.headers = {{"X-Host", "1"}};
    EXPECT_EQ(TrelvoContextAuthDecorator(host, "t").HTTPHeaderFields(),
              (Headers{{"X-Host", "1"}, {"Authorization", "Bearer t"}, {"Content-Type", form}}));
}

TEST(TrelvoContextAuthDecorator, OverwritesTheHostsHeadersWithTheseNames) {
    UserContext host;
    host.headers = {{"Authorization", "Basic x"}, {"Content-Type", "application/json"}};
    EXPECT_EQ(TrelvoContextAuthDecorator(host, "t").HTTPHeaderFields(),
              (Headers{{"Authorization", "Bearer t"}, {"Content-Type", form}}));
}

TEST(TrelvoContextAuthDecorator, ComparesHeaderNamesCaseSensitively) {
    UserContext host;
    host.headers = {{"authorization", "Basic x"}};
    EXPECT_EQ(TrelvoContextAuthDecorator(host, "t").HTTPHeaderFields(),
              (Headers{{"authorization", "Basic x"}, {"Authorization", "Bearer t"}, {"Content-Type", form}}));
}

/// A host object for two services.
class HostOfBoth final : public UserContext, public virtual KAVROSegmentsContext {
public:
    Headers HTTPHeaderFields() const override { return KAVROSegmentsContext::HTTPHeaderFields(); }
    std::string apiKey() const override { return "k"; }
    std::string accessToken() const override { return "segments"; }
};

TEST(TrelvoContextAuthDecorator, SendsTwoJoinedContentTypesForAHostOfBothServices) {
    const HostOfBoth host;
    const TrelvoContextAuthDecorator decorator(host, "t");
    EXPECT_EQ(decorator.HTTPHeaderFields(), (Headers{{"Authorization", "Bearer t"},
                                                     {"Content-Type", form},
                                                     {"content-type", "application/json"},
                                                     {"x-api-key", "k"}}));
    const std::optional<URLRequest> request =
        decorator.generateURLRequest({.usingPath = "v2/saved",
                                      .queryItems = std::vector<URLQueryItem>{},
                                      .additionalHTTPHeaders = decorator.HTTPHeaderFields(),
                                      .httpMethod = std::nullopt,
                                      .timeout = std::nullopt,
                                      .andPostData = std::nullopt});
    ASSERT_TRUE(request);
    EXPECT_EQ(request->value("Content-Type"), std::string(form) + ",application/json");
    EXPECT_EQ(request->value("Authorization"), "Bearer t");
}

TEST(TrelvoContextAuthDecorator, ChangesNoHeaderWithoutAToken) {
    UserContext host;
    host.headers = {{"Authorization", "Basic x"}, {"Content-Type", "application/json"}};
    EXPECT_EQ(TrelvoContextAuthDecorator(host, std::nullopt).HTTPHeaderFields(), host.headers);
    host.headers = {};
    EXPECT_EQ(TrelvoContextAuthDecorator(host, std::nullopt).HTTPHeaderFields(), Headers{});
}

TEST(TrelvoContextAuthDecorator, TreatsAnEmptyStringAsAToken) {
    EXPECT_EQ(TrelvoContextAuthDecorator(UserContext(), "").HTTPHeaderFields().at("Authorization"),
              "Bearer ");
}

TEST(TrelvoContextAuthDecorator, IsObservedIfItsContextIs) {
    const UserContext plain;
    EXPECT_EQ(TrelvoContextAuthDecorator(plain, "t").asObservable(), nullptr);
    const Observed<UserContext> observed;
    EXPECT_EQ(TrelvoContextAuthDecorator(observed, "t").asObservable(), &observed);
    EXPECT_EQ(TrelvoContextAuthDecorator(TrelvoContextAuthDecorator(observed, "a"), "b").asObservable(),
              &observed);
}

TEST(TrelvoContextAuthDecorator, ForwardsEverythingElseExceptTheLogHook) {
    UserContext host;
    host.user = "somebody";
    host.timeout = 3;
    host.base = "https://other.example.test/x";
    host.log = [](const Error&) {};
    const TrelvoContextAuthDecorator decorator(host, "t");
    EXPECT_EQ(decorator.bearerToken(), "t");
    EXPECT_EQ(&decorator.decoratedContext(), &host);
    EXPECT_EQ(decorator.uid(), "somebody");
    EXPECT_EQ(decorator.source(), SourceSystem::lumeno);
    EXPECT_EQ(decorator.baseURL(), host.baseURL());
    EXPECT_EQ(decorator.requestTimeout(), 3.0);
    EXPECT_TRUE(host.logError());
    EXPECT_FALSE(decorator.logError()) << "no log hook is forwarded";
    host.user = std::nullopt;
    EXPECT_EQ(decorator.uid(), std::nullopt);
}

TEST(TrelvoContextAuthDecorator, ForwardsRequestArgumentsUnchanged) {
    class Recording final : public UserContext {
    public:
        std::optional<URLRequest> generateURLRequest(URLRequestArguments arguments) const override {
            EXPECT_EQ(arguments.usingPath.value(), "p");
            EXPECT_EQ(arguments.queryItems.value(), (std::vector<URLQueryItem>{{"a", "1"}}));
            EXPECT_EQ(arguments.additionalHTTPHeaders.value(), (Headers{{"H", "v"}}));
            EXPECT_EQ(arguments.httpMethod.value(), "PATCH");
            EXPECT_EQ(arguments.timeout.value(), 9.0);
            EXPECT_EQ(arguments.andPostData.value(), Data("body"));
            ++calls;
            return UserContext::generateURLRequest(std::move(arguments));
        }
        mutable int calls = 0;
    };
    const Recording host;
    const auto request = TrelvoContextAuthDecorator(host, "t").generateURLRequest(
        {.usingPath = "p",
         .queryItems = {{"a", "1"}},
         .additionalHTTPHeaders = Headers{{"H", "v"}},
         .httpMethod = "PATCH",
         .timeout = 9.0,
         .andPostData = Data("body")});
    EXPECT_EQ(host.calls, 1);
    ASSERT_TRUE(request);
    EXPECT_EQ(request->allHTTPHeaderFields(), (Headers{{"H", "v"}})) << "its own headers are not read here";
}

TEST(TrelvoContextAuthDecorator, GetsItsServiceFromItsContext) {
    class Recording final : public UserContext {
    public:
        std::shared_ptr<Serviceable> service(ServiceArguments arguments) const override {
            EXPECT_EQ(arguments.withURLRequest.value().url()->absoluteString(), "https://x.test/");
            return made;
        }
        std::shared_ptr<Serviceable> made =
            NetworkServiceble::make({.with = *URL::make("https://y.test/"), .logError = LogError()});
    };
    const Recording host;
    EXPECT_EQ(TrelvoContextAuthDecorator(host, "t").service(
                  {.withURLRequest = URLRequest(*URL::make("https://x.test/"))}),
              host.made);
}

}  // namespace
}  // namespace VanticRestKit::test

#include <gtest/gtest.h>
#include <VanticRestKit/Core/Context.h>

#include <Core/FakeContext.h>

namespace VanticRestKit {
namespace {

using Headers = std::map<std::string, std::string>;

std::optional<URLRequest> generated(const Context& context, const Headers& additional = {},
                                    std::optional<double> timeout = std::nullopt) {
    return context.generateURLRequest({.usingPath = "v2/time",
                                       .queryItems = std::vector<URLQueryItem>{},
                                       .additionalHTTPHeaders = additional,
                                       .httpMethod = std::nullopt,
                                       .timeout = timeout,
                                       .andPostData = std::nullopt});
}

TEST(Context, OnlyTheBaseURLIsMandatory) {
    const test::MinimalContext context;
    EXPECT_TRUE(context.HTTPHeaderFields().empty());
    EXPECT_EQ(context.requestTimeout(), 30.0);
    EXPECT_FALSE(context.logError());
    const std::optional<URLRequest> request = generated(context);
    ASSERT_TRUE(request);
    EXPECT_EQ(request->url()->absoluteString(), "https://api.example.test/v2/time");
    EXPECT_EQ(request->timeoutInterval().count(), 30.0);
}

TEST(Context, AnAdditionalHeaderReplacesTheContextsHeader) {
    test::FakeContext context;
    context.headers = {{"X-Key", "context"}, {"X-Other", "context"}};
    const std::optional<URLRequest> request = generated(context, {{"X-Key", "additional"}});
    ASSERT_TRUE(request);
    EXPECT_EQ(request->allHTTPHeaderFields(), (Headers{{"X-Key", "additional"}, {"X-Other", "context"}}));
}

TEST(Context, HeadersThatDifferOnlyInCaseBothReachTheRequest) {
    test::FakeContext context;
    context.headers = {{"x-key", "context"}};
    const std::optional<URLRequest> request = generated(context, {{"X-Key", "additional"}});
    ASSERT_TRUE(request);
    EXPECT_EQ(request->value("x-key"), "additional,context");
}

TEST(Context, TheContextsTimeoutIsUsedIfNoneIsGiven) {
    test::FakeContext context;
    context.timeout = 12;
    const std::optional<URLRequest> request = generated(context);
    ASSERT_TRUE(request);
    EXPECT_EQ(request->timeoutInterval().count(), 12.0);
}

TEST(Context, AGivenTimeoutIsUsedAndTheContextsIsNotRead) {
    test::FakeContext context;
    context.timeout = 12;
    const std::optional<URLRequest> request = generated(context, {}, 5.0);
    ASSERT_TRUE(request);
    EXPECT_EQ(request->timeoutInterval().count(), 5.0);
    EXPECT_EQ(context.timeoutReads, 0);
}

TEST(Context, TheDefaultMethodIsGETEvenWithABody) {
    const std::optional<URLRequest> request =
        test::MinimalContext().generateURLRequest({.usingPath = "x",
                                                   .queryItems = {{"flag", std::nullopt}},
                                                   .additionalHTTPHeaders = Headers(),
                                                   .httpMethod = std::nullopt,
                                                   .timeout = std::nullopt,
                                                   .andPostData = Data("body")});
    ASSERT_TRUE(request);
    EXPECT_EQ(request->httpMethod(), "GET");
    EXPECT_EQ(request->httpBody(), Data("body"));
    EXPECT_EQ(request->url()->absoluteString(), "https://api.example.test/x?flag");
}

TEST(Context, TheDefaultServiceReportsToTheContextsFailureHook) {
    class Reporting : public test::MinimalContext {
    public:
        LogError logError() const override {
            return [this](const Error&) { ++reports; };
        }
        mutable int reports = 0;
    };
    const Reporting context;
    const URLRequest request(test::url("https://api.example.test/x"));
    const auto service =
        std::static_pointer_cast<NetworkServiceble>(context.service({.withURLRequest = request}));
    EXPECT_EQ(service->urlRequest(), request);
    ASSERT_TRUE(service->logError());
    service->logError()(NetworkError::internalSDKError("x"));
    EXPECT_EQ(context.reports, 1);
}

TEST(Context, OneObjectCanImplementSeveralContexts) {
    class First : public virtual Context {};
    class Second : public virtual Context {};
    class Both : public First, public Second {
    public:
        URL baseURL() const override { return test::url("https://both.test"); }
    };
    const Both both;
    const Context& context = both;
    EXPECT_EQ(context.baseURL(), test::url("https://both.test"));
    EXPECT_TRUE(generated(both));
}

}  // namespace
}  // namespace VanticRestKit

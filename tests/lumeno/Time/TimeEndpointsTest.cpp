#include <gtest/gtest.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Time/TimeRoutes.h>

#include <Core/FakeContext.h>
#include <Core/FakeSession.h>

namespace VanticRestKit {
namespace {

static_assert(std::is_default_constructible_v<Endpoint>);

/// What `Endpoint::Time` makes of `body`. The reply ends when the completion has returned.
Result<double, LoaderError> timeOf(const char* body) {
    const test::FakeContext context;
    const std::optional<Resource<double>> resource = Endpoint::Time(context);
    Result<double, LoaderError> outcome = Failure(LoaderError::unknowError());
    EXPECT_TRUE(resource);
    if (!resource) return outcome;
    resource->load({.with = [&outcome](Result<double, LoaderError> result) { outcome = std::move(result); }});
    context.session->reply(test::answer(200, body));
    EXPECT_EQ(context.session->requests().at(0).url()->absoluteString(), "https://api.example.test/v2/time");
    EXPECT_EQ(context.session->requests().at(0).httpMethod(), "GET");
    return outcome;
}

TEST(TimeURI, AsksForThePathAlone) {
    const ResourceURI route = TimeURI{};
    EXPECT_EQ(route.path(), "v2/time");
    EXPECT_TRUE(route.queryItems().empty());
    EXPECT_EQ(route.postData(), std::nullopt);
    EXPECT_EQ(route.httpMethod(), std::nullopt);
}

TEST(EndpointTime, ABareNumberIsTheTime) {
    const Result<double, LoaderError> time = timeOf("1732.5");
    ASSERT_TRUE(time);
    EXPECT_EQ(*time, 1732.5);
}

TEST(EndpointTime, AnObjectFailsToDecode) {
    const Result<double, LoaderError> time = timeOf("{\"time\":1732.5}");
    ASSERT_FALSE(time);
    EXPECT_EQ(time.error().kind(), LoaderError::Kind::failedToDecode);
}

TEST(EndpointTime, IsNothingWhereTheContextMakesNoRequest) {
    class NoRequest final : public test::MinimalContext {
    public:
        std::optional<URLRequest> generateURLRequest(URLRequestArguments) const override { return {}; }
    };
    EXPECT_FALSE(Endpoint::Time(NoRequest()));
}

}  // namespace
}  // namespace VanticRestKit

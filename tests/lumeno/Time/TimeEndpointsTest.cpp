#include <gtest/gtest.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Time/TimeRoutes.h>
#include <VanticRestKit/Testing/Scripted.h>

#include <chrono>

namespace VanticRestKit {
namespace {

static_assert(std::is_default_constructible_v<Endpoint>);

/// The outcome of `Endpoint::Time` for a response with `body`.
Result<double, LoaderError> timeOf(const char* body) {
    Testing::ScriptedService service;
    service.expect("GET /v2/time").answer(body);
    const Testing::Scripted<Testing::TestContext> context(service);
    const std::optional<Resource<double>> resource = Endpoint::Time(context);
    EXPECT_TRUE(resource);
    if (!resource) return Failure(LoaderError::unknowError());
    Result<double, LoaderError> outcome = resource->wait({.deadline = std::chrono::seconds(30)});
    EXPECT_EQ(service.problems(), "");
    return outcome;
}

TEST(TimeURI, HasOnlyAPath) {
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

TEST(EndpointTime, IsAbsentIfTheContextMakesNoRequest) {
    class NoRequest final : public Testing::TestContext {
    public:
        std::optional<URLRequest> generateURLRequest(URLRequestArguments) const override { return {}; }
    };
    EXPECT_FALSE(Endpoint::Time(NoRequest()));
}

}  // namespace
}  // namespace VanticRestKit

// Requests to the segments service through a host's context, and the handling of the responses.

#include <gtest/gtest.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/kavro/KAVRORoutes.h>
#include <VanticRestKit/kavro/KAVROSegmentsContext.h>
#include <VanticRestKit/kavro/KAVROSegmentsModel.h>
#include <VanticRestKit/Testing/Scripted.h>

#include <chrono>

namespace VanticRestKit {
namespace {

using Headers = std::map<std::string, std::string>;
using Segments = Result<KAVROSegmentsModel, LoaderError>;

/// Supplies the key and the token, and keeps the default headers.
class SegmentsContext : public virtual KAVROSegmentsContext {
public:
    URL baseURL() const override { return URL("https://api.example.test"); }
    double requestTimeout() const override { return 12.5; }
    std::string apiKey() const override { return "the key"; }
    std::string accessToken() const override { return "t0k"; }
};

/// Also replaces the headers.
class OwnHeadersContext : public SegmentsContext {
public:
    Headers HTTPHeaderFields() const override { return {{"x-own", "1"}}; }
};

/// Loads the segments of subprofile "12" and records the request.
template <class HostContext = SegmentsContext>
class SegmentsLoad {
public:
    explicit SegmentsLoad(const Testing::Answer& answer) {
        Testing::ScriptedService service;
        service.answerNext(answer);
        const Testing::Scripted<HostContext> context(service);
        const auto resource = Resource<KAVROSegmentsModel>::make(
            {.with = KAVROSegmentsURI({.withSubprofileID = "12"})}, context);
        EXPECT_TRUE(resource);
        if (resource) outcome = resource->wait({.deadline = std::chrono::seconds(30)});
        EXPECT_EQ(service.asked().size(), 1U);
        if (!service.asked().empty()) request = service.asked().front().request;
    }

    Segments outcome = Failure(LoaderError::unknowError());
    URLRequest request{URL("https://not.asked")};
};

TEST(KAVROSegmentsContext, HasThreeHeadersByDefault) {
    EXPECT_EQ(SegmentsContext().HTTPHeaderFields(), (Headers{{"content-type", "application/json"},
                                                             {"x-api-key", "the key"},
                                                             {"Authorization", "Bearer t0k"}}));
}

TEST(KAVROSegments, AreRequestedWithTheHeadersOfTheContext) {
    const URLRequest request = SegmentsLoad<>("{}").request;
    EXPECT_EQ(request.url()->absoluteString(), "https://api.example.test/api/v1/gigya/segments");
    EXPECT_EQ(request.httpMethod(), "POST");
    EXPECT_EQ(request.allHTTPHeaderFields(), SegmentsContext().HTTPHeaderFields());
    EXPECT_EQ(request.timeoutInterval().count(), 12.5);
    ASSERT_TRUE(request.httpBody());
    EXPECT_EQ(request.httpBody()->view(), R"({"sub_profile_id":"12"})");
}

TEST(KAVROSegments, AreRequestedWithTheHeadersOfAHostThatReplacesThem) {
    EXPECT_EQ(SegmentsLoad<OwnHeadersContext>("{}").request.allHTTPHeaderFields(), (Headers{{"x-own", "1"}}));
}

TEST(KAVROSegments, ContainTheKnownAudiencesAndBadges) {
    const Segments segments =
        SegmentsLoad<>(
            R"({"active_audiences":["vantic_main_127","x"],"active_badges":["7832"],"user_id":"u"})")
            .outcome;
    ASSERT_TRUE(segments);
    EXPECT_EQ(*segments, (KAVROSegmentsModel{
                             .activeAudiences = {KAVROActiveAudiences::lumenoGenreFavourite180DVanticKids},
                             .activeBadges = {KAVROActiveBadges::iOSUser},
                             .userId = "u"}));
}

TEST(KAVROSegments, FailToDecodeWithoutAUserId) {
    const Segments segments = SegmentsLoad<>(R"({"active_audiences":[],"active_badges":[]})").outcome;
    ASSERT_FALSE(segments);
    EXPECT_EQ(segments.error().kind(), LoaderError::Kind::failedToDecode);
}

TEST(KAVROSegments, FailWithTheServersError) {
    const Segments segments = SegmentsLoad<>(Testing::Answer(R"({"user_id":"u"})").withStatus(403)).outcome;
    ASSERT_FALSE(segments);
    EXPECT_EQ(segments.error().kind(), LoaderError::Kind::serverError);
    EXPECT_FALSE(segments.error().is404Error());
}

}  // namespace
}  // namespace VanticRestKit

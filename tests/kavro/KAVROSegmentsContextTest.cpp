// What is asked of the segments service over a host's context, and what becomes of the answers.

#include <gtest/gtest.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/kavro/KAVRORoutes.h>
#include <VanticRestKit/kavro/KAVROSegmentsContext.h>
#include <VanticRestKit/kavro/KAVROSegmentsModel.h>

#include <Core/FakeContext.h>

namespace VanticRestKit {
namespace {

using Headers = std::map<std::string, std::string>;
using Segments = Result<KAVROSegmentsModel, LoaderError>;

/// Supplies the key and the token, and takes the headers as they come.
class SegmentsContext : public test::FakeContext, public KAVROSegmentsContext {
public:
    Headers HTTPHeaderFields() const override { return KAVROSegmentsContext::HTTPHeaderFields(); }
    std::string apiKey() const override { return "the key"; }
    std::string accessToken() const override { return "t0k"; }
};

/// Replaces the headers too.
class OwnHeadersContext final : public SegmentsContext {
public:
    Headers HTTPHeaderFields() const override { return {{"x-own", "1"}}; }
};

/// Loads the segments of subprofile "12" and answers.
Segments answered(const test::FakeContext& context, test::Reply reply) {
    Segments outcome = Failure(LoaderError::unknowError());
    const auto resource =
        Resource<KAVROSegmentsModel>::make({.with = KAVROSegmentsURI({.withSubprofileID = "12"})}, context);
    EXPECT_TRUE(resource);
    if (!resource) return outcome;
    resource->load({.with = [&outcome](Segments result) { outcome = std::move(result); }});
    context.session->reply(std::move(reply));
    return outcome;
}

TEST(KAVROSegmentsContext, HasThreeHeadersByDefault) {
    EXPECT_EQ(SegmentsContext().HTTPHeaderFields(), (Headers{{"content-type", "application/json"},
                                                             {"x-api-key", "the key"},
                                                             {"Authorization", "Bearer t0k"}}));
}

TEST(KAVROSegments, ArePostedForWithTheHeadersOfTheContext) {
    SegmentsContext context;
    context.timeout = 12.5;
    (void)answered(context, test::answer(200, "{}"));
    ASSERT_EQ(context.session->requests().size(), 1U);
    const URLRequest request = context.session->requests().front();
    EXPECT_EQ(request.url()->absoluteString(), "https://api.example.test/api/v1/gigya/segments");
    EXPECT_EQ(request.httpMethod(), "POST");
    EXPECT_EQ(request.allHTTPHeaderFields(), context.HTTPHeaderFields());
    EXPECT_EQ(request.timeoutInterval().count(), 12.5);
    ASSERT_TRUE(request.httpBody());
    EXPECT_EQ(request.httpBody()->view(), R"({"sub_profile_id":"12"})");
}

TEST(KAVROSegments, ArePostedForWithAHostsOwnHeadersWhereItReplacesThem) {
    const OwnHeadersContext context;
    (void)answered(context, test::answer(200, "{}"));
    ASSERT_EQ(context.session->requests().size(), 1U);
    EXPECT_EQ(context.session->requests().front().allHTTPHeaderFields(), (Headers{{"x-own", "1"}}));
}

TEST(KAVROSegments, AreAnsweredWithTheAudiencesAndBadgesThatAreKnown) {
    const SegmentsContext context;
    const Segments segments = answered(
        context,
        test::answer(
            200, R"({"active_audiences":["vantic_main_127","x"],"active_badges":["7832"],"user_id":"u"})"));
    ASSERT_TRUE(segments);
    EXPECT_EQ(*segments, (KAVROSegmentsModel{
                             .activeAudiences = {KAVROActiveAudiences::lumenoGenreFavourite180DVanticKids},
                             .activeBadges = {KAVROActiveBadges::iOSUser},
                             .userId = "u"}));
}

TEST(KAVROSegments, FailToDecodeWithoutAUserId) {
    const SegmentsContext context;
    const Segments segments =
        answered(context, test::answer(200, R"({"active_audiences":[],"active_badges":[]})"));
    ASSERT_FALSE(segments);
    EXPECT_EQ(segments.error().kind(), LoaderError::Kind::failedToDecode);
}

TEST(KAVROSegments, FailWithTheServersError) {
    const SegmentsContext context;
    const Segments segments = answered(context, test::answer(403, R"({"user_id":"u"})"));
    ASSERT_FALSE(segments);
    EXPECT_EQ(segments.error().kind(), LoaderError::Kind::serverError);
    EXPECT_FALSE(segments.error().is404Error());
}

}  // namespace
}  // namespace VanticRestKit

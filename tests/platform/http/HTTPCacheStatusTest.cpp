#include <VanticRestKit/platform/http/HTTPCacheStatus.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>

using namespace VanticRestKit;

using Forwarding = HTTPCacheStatus::Forwarding;

TEST(HTTPCacheStatus, HasNoTextWithoutACache) {
    EXPECT_EQ((HTTPCacheStatus{.forwardedStatus = 200}).text(), std::nullopt);
}

TEST(HTTPCacheStatus, NamesTheReasonForForwarding) {
    const auto textOf = [](Forwarding forwarding) {
        return HTTPCacheStatus{.forwarding = forwarding, .hasCache = true}.text();
    };
    EXPECT_EQ(textOf(Forwarding::none), "VanticRestKit; hit");
    EXPECT_EQ(textOf(Forwarding::bypass), "VanticRestKit; fwd=bypass");
    EXPECT_EQ(textOf(Forwarding::method), "VanticRestKit; fwd=method");
    EXPECT_EQ(textOf(Forwarding::uriMiss), "VanticRestKit; fwd=uri-miss");
    EXPECT_EQ(textOf(Forwarding::varyMiss), "VanticRestKit; fwd=vary-miss");
    EXPECT_EQ(textOf(Forwarding::request), "VanticRestKit; fwd=request");
    EXPECT_EQ(textOf(Forwarding::stale), "VanticRestKit; fwd=stale");
    EXPECT_EQ(textOf(Forwarding::partial), "VanticRestKit; fwd=partial");
}

TEST(HTTPCacheStatus, AppendsTheParametersThatItHas) {
    HTTPCacheStatus status{.forwarding = Forwarding::stale, .hasCache = true, .forwardedStatus = 304};
    EXPECT_EQ(status.text(), "VanticRestKit; fwd=stale; fwd-status=304");
    status.isStored = true;
    EXPECT_EQ(status.text(), "VanticRestKit; fwd=stale; fwd-status=304; stored");
    status.timeToLive = std::chrono::seconds(-5);
    EXPECT_EQ(status.text(), "VanticRestKit; fwd=stale; fwd-status=304; stored; ttl=-5");
    status.forwarding = Forwarding::none;
    EXPECT_EQ(status.text(), "VanticRestKit; hit; ttl=-5");
}

TEST(HTTPCacheStatus, NamesTheSources) {
    EXPECT_STREQ(nameOf(AnswerSource::network), "network");
    EXPECT_STREQ(nameOf(AnswerSource::cache), "cache");
    EXPECT_STREQ(nameOf(AnswerSource::revalidated), "revalidated");
    EXPECT_STREQ(nameOf(AnswerSource::stale), "stale");
}

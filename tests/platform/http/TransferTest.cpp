#include <VanticRestKit/platform/http/detail/Transfer.h>
#include <VanticRestKit/platform/http/HTTPURLResponse.h>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

using namespace VanticRestKit;
using detail::Outcome;
using detail::Transfer;

namespace {

const URL& address() {
    static const URL url = URL::make("http://api.example.test/a").value();
    return url;
}

}  // namespace

TEST(Transfer, AResponseWithoutARequestHasMetricsWithItsSource) {
    std::vector<RequestMetrics> records;
    int completions = 0;
    Transfer transfer(
        URLRequest(address()), [&](const auto&, const auto&, const auto&) { ++completions; },
        [&](const RequestMetrics& record) {
            EXPECT_EQ(completions, 0);
            records.push_back(record);
        });
    ASSERT_TRUE(transfer.start());
    transfer.complete({.data = Data("answer"),
                       .response = std::make_shared<const HTTPURLResponse>(
                           address(), 200, HTTPURLResponse::HeaderFields(),
                           HTTPCacheStatus{.source = AnswerSource::cache})});
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(records[0].source, AnswerSource::cache);
    EXPECT_EQ(records[0].url, address().absoluteString());
    EXPECT_EQ(records[0].status, 200);
    EXPECT_EQ(records[0].bodyBytesDecoded, 6);
    EXPECT_EQ(records[0].bodyBytesReceived, 0);
}

TEST(Transfer, ReleasesItsReceiversOnCompletion) {
    const auto held = std::make_shared<int>(0);
    Transfer transfer(
        URLRequest(address()), [held](const auto&, const auto&, const auto&) {},
        [held](const RequestMetrics&) {});
    EXPECT_TRUE(transfer.isObserved());
    transfer.complete({});
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_FALSE(Transfer(URLRequest(address()), {}).isObserved());
}

TEST(Transfer, SourcesHaveNames) {
    EXPECT_STREQ(nameOf(AnswerSource::network), "network");
    EXPECT_STREQ(nameOf(AnswerSource::cache), "cache");
    EXPECT_STREQ(nameOf(AnswerSource::revalidated), "revalidated");
    EXPECT_STREQ(nameOf(AnswerSource::stale), "stale");
}

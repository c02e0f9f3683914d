#include <VanticRestKit/Core/detail/ToleranceSampler.h>

#include <Core/RecordingObserver.h>
#include <gtest/gtest.h>
#include <VanticRestKit/Core/FailableCodable.h>
#include <VanticRestKit/platform/json/Diagnosis.h>

#include <support/Event.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace VanticRestKit {
namespace {

using test::RecordingObserver;
using Clock = std::chrono::steady_clock;

/// An observer that samples a quarter of the documents. The test sets its random numbers and its clock.
struct Sampled {
    explicit Sampled(double share, std::uint64_t bytesPerMinute = 1000)
        : observer(std::make_shared<RecordingObserver>(ObserverOptions{
              .explainedShare = share,
              .explainedBytesPerMinute = bytesPerMinute,
              .random = [drawn = number]() { return drawn->load(); },
              .now = [seconds =
                          second]() { return Clock::time_point(std::chrono::seconds(seconds->load())); }})) {}

    /// Passes a document to the sampler and waits until it was explained or skipped.
    void explain(const std::string& document) const {
        const auto& sampler = observer->sampler();
        sampler->explain(
            observer, {.typeName = "T", .bodySize = document.size()}, Data(document),
            [](const Data& body) { return diagnose<std::vector<FailableCodable<double>>>(body); });
        // The sampler's queue is serial, so this block runs after the explanation.
        const test::Event done;
        sampler->afterAll([done] { done.signal(); });
        ASSERT_TRUE(done.wait());
    }

    std::shared_ptr<std::atomic<double>> number = std::make_shared<std::atomic<double>>(0.0);
    std::shared_ptr<std::atomic<int>> second = std::make_shared<std::atomic<int>>(0);
    std::shared_ptr<RecordingObserver> observer;
};

TEST(ToleranceSampler, IsAbsentByDefault) {
    EXPECT_EQ(RecordingObserver().sampler(), nullptr);
    EXPECT_EQ(ObserverOptions().explainedShare, 0);
    EXPECT_NE(Sampled(0.25).observer->sampler(), nullptr);
}

TEST(ToleranceSampler, ChoosesADocumentIfTheRandomNumberIsBelowTheShare) {
    const Sampled sampled(0.25);
    EXPECT_TRUE(sampled.observer->sampler()->choosesNext());
    *sampled.number = 0.2499;
    EXPECT_TRUE(sampled.observer->sampler()->choosesNext());
    *sampled.number = 0.25;
    EXPECT_FALSE(sampled.observer->sampler()->choosesNext());
}

TEST(ToleranceSampler, ChoosesAboutTheShareWithItsOwnRandomNumbers) {
    const RecordingObserver observer(ObserverOptions{.explainedShare = 0.25});
    int chosen = 0;
    for (int i = 0; i < 10'000; ++i) chosen += observer.sampler()->choosesNext() ? 1 : 0;
    // Ten standard deviations on either side.
    EXPECT_GT(chosen, 2500 - 433);
    EXPECT_LT(chosen, 2500 + 433);
    const RecordingObserver always(ObserverOptions{.explainedShare = 1});
    for (int i = 0; i < 1000; ++i) EXPECT_TRUE(always.sampler()->choosesNext());
}

TEST(ToleranceSampler, ListsTheDroppedValues) {
    const Sampled sampled(1);
    sampled.explain("[1,\"two\",3]");
    sampled.explain("[1]");
    const auto documents = sampled.observer->documents();
    ASSERT_EQ(documents.size(), 2U);
    EXPECT_EQ(documents[0].typeName, "T");
    ASSERT_EQ(documents[0].faults.size(), 1U);
    EXPECT_EQ(documents[0].faults[0].found, "string");
    EXPECT_EQ(documents[0].faults[0].path, CodingPath{CodingKey(std::size_t{1})});
    EXPECT_TRUE(documents[1].faults.empty());
}

TEST(ToleranceSampler, SkipsDocumentsBeyondTheLimitPerMinute) {
    const Sampled sampled(1, 10);
    sampled.explain("[1,2,3]");
    sampled.explain("[1,2,3]");
    EXPECT_EQ(sampled.observer->documents().size(), 1U);
    sampled.explain("[1]");
    EXPECT_EQ(sampled.observer->documents().size(), 2U) << "it fits into the rest of the limit";
    *sampled.second = 59;
    sampled.explain("[1]");
    EXPECT_EQ(sampled.observer->documents().size(), 2U);
    *sampled.second = 60;
    sampled.explain("[1,2,3]");
    EXPECT_EQ(sampled.observer->documents().size(), 3U);
}

}  // namespace
}  // namespace VanticRestKit

#include <VanticRestKit/platform/http/detail/ProgressReporter.h>

#include <gtest/gtest.h>
#include <support/Event.h>

#include <chrono>
#include <memory>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::detail;
using namespace VanticRestKit::test;
using namespace std::chrono_literals;
using State = LoadProgress::State;

namespace {

/// A reporter whose reports are recorded. The test takes the role of the I/O thread.
class ProgressReporters : public testing::Test {
protected:
    void move(std::int64_t bytes, std::chrono::milliseconds at) {
        counts.received = bytes;
        reporter->moved(counts, ProgressReporter::TimePoint(1h + at));
    }
    /// Waits until all posted reports were delivered.
    std::vector<LoadProgress> reports() {
        const Event done;
        queue.async([done] { done.signal(); });
        EXPECT_TRUE(done.wait());
        return *received;
    }
    void end(bool isWhole) {
        queue.async([this, isWhole] { reporter->end(isWhole ? &counts : nullptr); });
    }

    ProgressCounts counts;
    DispatchQueue queue{"progress"};
    std::shared_ptr<std::vector<LoadProgress>> received = std::make_shared<std::vector<LoadProgress>>();
    std::shared_ptr<ProgressReporter> reporter = std::make_shared<ProgressReporter>(
        [received = received](const LoadProgress& progress) { received->push_back(progress); }, queue);
};

}  // namespace

TEST_F(ProgressReporters, ReportBytesAtMostTenTimesASecond) {
    for (int i = 0; i <= 1000; ++i) {
        move(i, std::chrono::milliseconds(i));
        // Keeps the queue empty, so that no report is delayed.
        if (i % 100 == 0) (void)reports();
    }
    const auto all = reports();
    ASSERT_EQ(all.size(), 10U);
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_EQ(all[i].bytesReceived, static_cast<std::int64_t>(i + 1) * 100);
    }
}

TEST_F(ProgressReporters, DoNotFloodABusyQueue) {
    const Event mayGoOn;
    queue.async([mayGoOn] { EXPECT_TRUE(mayGoOn.wait()); });
    for (int i = 0; i < 50; ++i) move(i, i * 1s);
    mayGoOn.signal();
    ASSERT_EQ(reports().size(), 1U);
    move(100, 100s);
    EXPECT_EQ(reports().back().bytesReceived, 100);
}

TEST_F(ProgressReporters, ReportEachStateChangeAtOnce) {
    counts.expectedToReceive = 7;
    reporter->changed(State::queued, 3, counts);
    reporter->changed(State::loading, 0, counts);
    reporter->changed(State::heldBack, 0, counts);
    const auto all = reports();
    ASSERT_EQ(all.size(), 3U);
    EXPECT_EQ(all[0], (LoadProgress{.state = State::queued, .queueLength = 3, .bytesExpectedToReceive = 7}));
    EXPECT_EQ(all[1].state, State::loading);
    EXPECT_EQ(all[2].state, State::heldBack);
}

TEST_F(ProgressReporters, ReportTheLastBytesOnlyAfterASuccess) {
    move(1, 0ms);
    end(true);
    ASSERT_EQ(reports().size(), 1U);
    EXPECT_EQ(reports().back().bytesReceived, 1);
    end(true);
    EXPECT_EQ(reports().size(), 1U) << "the receiver was released";
}

TEST_F(ProgressReporters, ReportNothingAfterAnErrorOrAStop) {
    move(1, 0ms);
    end(false);
    move(2, 1s);
    EXPECT_TRUE(reports().empty());

    reporter = std::make_shared<ProgressReporter>(
        [received = received](const LoadProgress& progress) { received->push_back(progress); }, queue);
    reporter->changed(State::queued, 1, counts);
    EXPECT_EQ(reports().size(), 1U);
    reporter->stop();
    reporter->changed(State::loading, 0, counts);
    move(3, 2s);
    move(4, 3s);
    end(true);
    EXPECT_EQ(reports().size(), 1U);
}

TEST_F(ProgressReporters, DoNotRepeatAReport) {
    move(1, 0ms);
    move(5, 1s);
    end(true);
    EXPECT_EQ(reports().size(), 1U);
}

TEST_F(ProgressReporters, DoNotReportTheEndOfALoadWithoutBytes) {
    counts.expectedToReceive = 100;
    end(true);
    EXPECT_TRUE(reports().empty());
}

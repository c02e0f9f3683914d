#include <VanticRestKit/platform/http/curl/detail/StoreReads.h>

#include <gtest/gtest.h>

#include <memory>

namespace VanticRestKit::detail {

namespace {

using std::chrono::milliseconds;

std::shared_ptr<Transfer> someTransfer() {
    return std::make_shared<Transfer>(URLRequest(URL("http://host.test/")), URLSession::Completion());
}

const TimePoint start = Clock::now();

TEST(StoreReads, ReturnTheWaitingTransferWhenTheStoreAnswers) {
    StoreReads reads;
    const auto first = someTransfer();
    const auto second = someTransfer();
    const auto one = reads.begin(first, start);
    const auto two = reads.begin(second, start);
    EXPECT_EQ(reads.end(two), second);
    EXPECT_EQ(reads.end(one), first);
    EXPECT_EQ(reads.next(), std::nullopt);
    EXPECT_EQ(first.use_count(), 1);
}

TEST(StoreReads, TimeOutInOrder) {
    StoreReads reads;
    const auto first = someTransfer();
    const auto second = someTransfer();
    reads.begin(first, start);
    reads.begin(second, start + milliseconds(1));
    EXPECT_EQ(reads.next(), start + StoreReads::limit);
    EXPECT_EQ(reads.takeOverdue(start + StoreReads::limit - milliseconds(1)), nullptr);
    EXPECT_EQ(reads.takeOverdue(start + StoreReads::limit), first);
    EXPECT_EQ(reads.takeOverdue(start + StoreReads::limit), nullptr);
    EXPECT_EQ(reads.next(), start + milliseconds(1) + StoreReads::limit);
}

TEST(StoreReads, AreStuckUntilAllTimedOutReadsAreAnswered) {
    StoreReads reads;
    const auto one = reads.begin(someTransfer(), start);
    const auto two = reads.begin(someTransfer(), start);
    EXPECT_FALSE(reads.isStuck());
    while (reads.takeOverdue(start + StoreReads::limit)) EXPECT_TRUE(reads.isStuck());
    EXPECT_EQ(reads.end(one), nullptr);
    EXPECT_TRUE(reads.isStuck());
    EXPECT_EQ(reads.end(two), nullptr);
    EXPECT_FALSE(reads.isStuck());
}

}  // namespace

}  // namespace VanticRestKit::detail

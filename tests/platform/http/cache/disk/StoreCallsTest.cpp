#include <VanticRestKit/platform/http/cache/disk/detail/StoreCalls.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::detail;

namespace {

using Kind = StoreCall::Kind;

StoreCall call(Kind kind, std::string key, std::size_t bytes = 0) {
    return {.kind = kind, .record = {std::move(key), {}, {}, Data(std::string(bytes, 'x'))}};
}

std::string keysOf(const std::vector<StoreCall>& calls) {
    std::string keys;
    for (const StoreCall& each : calls) {
        if (each.kind == Kind::removeRecord) keys += '-';
        keys += each.record.key;
    }
    return keys;
}

}  // namespace

TEST(StoreCalls, StartTheThreadOnlyIfTheQueueWasEmpty) {
    StoreCalls calls(1000'000);
    EXPECT_TRUE(calls.push(call(Kind::write, "a")));
    EXPECT_FALSE(calls.push(call(Kind::read, "b")));
    EXPECT_EQ(keysOf(calls.take()), "ab");
    EXPECT_FALSE(calls.push(call(Kind::remove, "c"))) << "the thread is still running";
    EXPECT_EQ(keysOf(calls.take()), "c");
    EXPECT_TRUE(calls.take().empty());
    EXPECT_TRUE(calls.push(call(Kind::write, "d")));
}

TEST(StoreCalls, BecomeRemovalsWhenDroppedAndKeepTheirPosition) {
    StoreCalls calls(10'000);
    calls.push(call(Kind::remove, "a"));
    calls.push(call(Kind::write, "b", 4000));
    calls.push(call(Kind::read, "c"));
    calls.push(call(Kind::write, "d", 4000));
    EXPECT_EQ(calls.dropped(), 0U);
    calls.push(call(Kind::write, "e", 4000));
    EXPECT_EQ(calls.dropped(), 1U);
    calls.push(call(Kind::write, "f", 4000));
    EXPECT_EQ(calls.dropped(), 2U);
    EXPECT_EQ(keysOf(calls.take()), "a-bc-def");
}

TEST(StoreCalls, DropAWriteLargerThanTheLimitAtOnce) {
    StoreCalls calls(10'000);
    calls.push(call(Kind::write, "a", 20'000));
    EXPECT_EQ(calls.dropped(), 1U);
    calls.push(call(Kind::write, "b", 4000));
    EXPECT_EQ(calls.dropped(), 1U);
    EXPECT_EQ(keysOf(calls.take()), "-ab");
}

TEST(StoreCalls, DropAWriteOfAHeadLikeThatOfARecord) {
    StoreCalls calls(10'000);
    calls.push(call(Kind::writeHead, "a", 4000));
    calls.push(call(Kind::write, "b", 8000));
    EXPECT_EQ(calls.dropped(), 1U);
    EXPECT_EQ(keysOf(calls.take()), "-ab");
}

TEST(StoreCalls, KeepCallsThatWriteNothingBeyondTheLimit) {
    StoreCalls calls(10'000);
    calls.push(call(Kind::write, "a", 4000));
    calls.push(call(Kind::remove, std::string(20'000, 'b')));
    calls.push(call(Kind::removeAll, "c"));
    EXPECT_EQ(calls.dropped(), 1U);
    EXPECT_EQ(keysOf(calls.take()), "-a" + std::string(20'000, 'b') + "c");
}

TEST(StoreCalls, CountABatchUntilTheNextIsTaken) {
    StoreCalls calls(10'000);
    calls.push(call(Kind::write, "a", 8000));
    EXPECT_EQ(keysOf(calls.take()), "a");
    calls.push(call(Kind::write, "b", 4000));
    EXPECT_EQ(calls.dropped(), 1U);
    EXPECT_EQ(keysOf(calls.take()), "-b");
    calls.push(call(Kind::write, "c", 4000));
    EXPECT_EQ(calls.dropped(), 1U);
}

TEST(StoreCalls, AreTakenInBatchesOfAFewMegabytes) {
    StoreCalls calls(100'000'000);
    for (const char* key : {"a", "b", "c"}) calls.push(call(Kind::write, key, 900'000));
    calls.push(call(Kind::write, "d", 9'000'000));
    EXPECT_EQ(keysOf(calls.take()), "ab");
    EXPECT_EQ(keysOf(calls.take()), "c");
    EXPECT_EQ(keysOf(calls.take()), "d") << "larger than one batch";
    EXPECT_TRUE(calls.take().empty());
    EXPECT_EQ(calls.dropped(), 0U);
}

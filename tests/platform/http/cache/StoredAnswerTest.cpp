#include "StoredResponses.h"

#include <VanticRestKit/platform/http/cache/detail/CacheRequest.h>
#include <VanticRestKit/platform/http/cache/detail/StoredAnswer.h>

#include <gtest/gtest.h>

#include <string>

namespace VanticRestKit::test {

namespace {

/// What the ten bytes "0123456789" in a cache answer to a Range; empty if the cache cannot cut it out.
std::string cutBy(const std::string& range) {
    const auto stored = storedOf({}, "0123456789");
    URLRequest request(*URL::make("http://host.test/"));
    request.setValue(range, "Range");
    const detail::CacheRequest wanted(request);
    if (!detail::hasRequestedPart(*stored, wanted)) return "";
    const detail::CachedAnswer answer = detail::answerOf(*stored, wanted, after({}));
    EXPECT_EQ(answer.status, 206);
    return std::string(answer.body.view());
}

TEST(StoredAnswer, IsCutToTheRangeRequested) {
    EXPECT_EQ(cutBy("bytes=0-0"), "0");
    EXPECT_EQ(cutBy("bytes=2-4"), "234");
    EXPECT_EQ(cutBy("bytes=7-"), "789");
    EXPECT_EQ(cutBy("bytes=-3"), "789");
    EXPECT_EQ(cutBy("bytes=7-900"), "789");
    EXPECT_EQ(cutBy("bytes=-900"), "0123456789");
}

TEST(StoredAnswer, IsNotCutToARangeThatItDoesNotHave) {
    for (const char* range : {"bytes=10-", "bytes=-0", "bytes=4-2", "bytes=", "bytes=-", "bytes=x-2",
                              "bytes=2-x", "bytes=1-2,4-5", "lines=1-2"}) {
        EXPECT_EQ(cutBy(range), "") << range;
    }
}

TEST(StoredAnswer, IsCutToARangeWithNumbersAboveFourGigabytes) {
    // Of 32 bits these would be 1, 2 and 3.
    EXPECT_EQ(cutBy("bytes=5-4294967297"), "56789");
    EXPECT_EQ(cutBy("bytes=-4294967298"), "0123456789");
    EXPECT_EQ(cutBy("bytes=4294967299-4294967300"), "");
    EXPECT_EQ(cutBy("bytes=8-18446744073709551615"), "89");
}

}  // namespace

}  // namespace VanticRestKit::test

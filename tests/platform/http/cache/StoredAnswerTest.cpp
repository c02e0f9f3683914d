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

TEST(StoredAnswer, IsNotCutIfTheBodyIsEmptyOrWasCoded) {
    URLRequest request(*URL::make("http://host.test/"));
    request.setValue("bytes=-3", "Range");
    const detail::CacheRequest wanted(request);
    EXPECT_TRUE(detail::hasRequestedPart(*storedOf({}, "0123"), wanted));
    EXPECT_FALSE(detail::hasRequestedPart(*storedOf({}, ""), wanted));
    EXPECT_FALSE(detail::hasRequestedPart(*storedOf({{"Content-Encoding", "gzip"}}, "0123"), wanted));
    EXPECT_FALSE(detail::hasRequestedPart(*storedOf({}, "0123", 203), wanted));
}

/// Whether a client with this condition already has the response with these fields.
bool isNotModified(const char* name, const std::string& value, detail::HeaderFields fields) {
    URLRequest request(*URL::make("http://host.test/"));
    request.setValue(value, name);
    return detail::isNotModified(*storedOf(std::move(fields)), detail::CacheRequest(request),
                                 std::chrono::floor<std::chrono::seconds>(receivedAt));
}

TEST(StoredAnswer, IsNotModifiedForOneOfItsEntityTags) {
    const detail::HeaderFields tagged{{"ETag", "\"a\""}};
    EXPECT_TRUE(isNotModified("If-None-Match", "\"b\", W/\"a\"", tagged));
    EXPECT_FALSE(isNotModified("If-None-Match", "\"b\"", tagged));
    EXPECT_TRUE(isNotModified("If-None-Match", "*", tagged));
    EXPECT_TRUE(isNotModified("If-None-Match", "*", {}));
    EXPECT_FALSE(isNotModified("If-None-Match", "\"a\"", {}));
    EXPECT_FALSE(isNotModified("If-None-Match", "W/", {}));
}

TEST(StoredAnswer, IsNotModifiedSinceItsLastModifiedOrItsDate) {
    const detail::HeaderFields modified{{"Date", dateAfter(0)}, {"Last-Modified", dateAfter(-60)}};
    EXPECT_TRUE(isNotModified("If-Modified-Since", dateAfter(-60), modified));
    EXPECT_FALSE(isNotModified("If-Modified-Since", dateAfter(-61), modified));
    EXPECT_FALSE(isNotModified("If-Modified-Since", "yesterday", modified));
    EXPECT_TRUE(isNotModified("If-Modified-Since", dateAfter(0), {{"Date", dateAfter(0)}}));
    EXPECT_FALSE(isNotModified("If-Modified-Since", dateAfter(-1), {{"Date", dateAfter(0)}}));
    // A Last-Modified that is not a date is ignored.
    EXPECT_TRUE(isNotModified("If-Modified-Since", dateAfter(0), {{"Last-Modified", "yesterday"}}));
    EXPECT_FALSE(isNotModified("If-Modified-Since", dateAfter(0), {{"Date", "yesterday"}}));
}

TEST(StoredAnswer, IsDescribedByFieldsThatDoNotContradictIt) {
    const auto stored = storedOf({{"ETag", "\"a\""}, {"Content-Length", "4"}});
    EXPECT_TRUE(detail::describesSame(*stored, {{"etag", "\"a\""}, {"content-length", "4"}}));
    EXPECT_TRUE(detail::describesSame(*stored, {}));
    EXPECT_TRUE(detail::describesSame(*stored, {{"Last-Modified", dateAfter(0)}}));
    EXPECT_FALSE(detail::describesSame(*stored, {{"ETag", "\"b\""}}));
    EXPECT_FALSE(detail::describesSame(*stored, {{"ETag", "\"a\""}, {"Content-Length", "5"}}));
}

}  // namespace

}  // namespace VanticRestKit::test

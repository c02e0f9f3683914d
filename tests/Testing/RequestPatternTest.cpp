#include <gtest/gtest.h>
#include <VanticRestKit/Testing/RequestPattern.h>

namespace VanticRestKit::Testing {
namespace {

AskedRequest asked(const char* url, const char* method = "GET", const char* body = "") {
    URLRequest request{*URL::make(url)};
    request.setHTTPMethod(method);
    request.setHTTPBody(Data(body));
    return {.request = request};
}

TEST(RequestPatternTest, APathThatEndsEarlyDoesNotMatch) {
    EXPECT_EQ(RequestPattern("/v2/video/*").mismatch(asked("https://a.test/v2/video")),
              "the path ends before \"*\"");
}

TEST(RequestPatternTest, APathThatContinuesDoesNotMatch) {
    EXPECT_EQ(RequestPattern("/v2/video").mismatch(asked("https://a.test/v2/video/1/2")),
              "the path continues with \"1\"");
}

TEST(RequestPatternTest, TwoStarsMatchTheRestOnlyAtTheEnd) {
    EXPECT_TRUE(RequestPattern("/v2/**").fits(asked("https://a.test/v2/video/1")));
    EXPECT_TRUE(RequestPattern("/v2/**").fits(asked("https://a.test/v2")));
    EXPECT_EQ(RequestPattern("/**/1").mismatch(asked("https://a.test/v2/1")),
              "the path has \"v2\" instead of \"**\"");
}

TEST(RequestPatternTest, DoubleSlashesCountAsOne) {
    EXPECT_TRUE(RequestPattern("//v2/video/").fits(asked("https://a.test/v2//video")));
}

TEST(RequestPatternTest, TheQueryMustContainEachItemInAnyOrder) {
    const AskedRequest request = asked("https://a.test/v2/search?a=1&b=2");
    EXPECT_TRUE(RequestPattern("/v2/search?b=2&a=1").fits(request));
    EXPECT_EQ(RequestPattern("/v2/search?b=2&c=3").mismatch(request), "the query \"a=1&b=2\" lacks \"c=3\"");
    EXPECT_FALSE(RequestPattern("/v2/search?b=22").fits(request));
}

TEST(RequestPatternTest, ARequiredHeaderMustHaveTheValue) {
    const RequestPattern pattern = RequestPattern("/v2/time").withHeader("X-Kind", "one");
    AskedRequest request = asked("https://a.test/v2/time");
    EXPECT_EQ(pattern.mismatch(request), "the header X-Kind is missing");
    request.request.setValue("two", "X-Kind");
    EXPECT_EQ(pattern.mismatch(request), "the header X-Kind is \"two\" instead of \"one\"");
    request.request.setValue("one", "x-kind");
    EXPECT_EQ(pattern.mismatch(request), std::nullopt);
}

TEST(RequestPatternTest, ARequiredBodyMustBeContained) {
    const RequestPattern pattern = RequestPattern("POST /v2/saved").withBody("slug=a").withBody("show=1");
    EXPECT_TRUE(pattern.fits(asked("https://a.test/v2/saved", "POST", "x=1&show=1&slug=a")));
    EXPECT_EQ(pattern.mismatch(asked("https://a.test/v2/saved", "POST", "slug=a")),
              "the body lacks \"show=1\"");
}

TEST(RequestPatternTest, RestrictingACopyDoesNotChangeTheOriginal) {
    const RequestPattern pattern("/v2/time");
    static_cast<void>(pattern.withHeader("X-Kind", "one").withBody("a"));
    EXPECT_TRUE(pattern.fits(asked("https://a.test/v2/time")));
    EXPECT_EQ(pattern.text(), "/v2/time");
}

TEST(RequestPatternTest, ItsTextContainsHeadersAndBodies) {
    EXPECT_EQ(RequestPattern("POST /v2/saved").withHeader("X-Kind", "one").withBody("slug=a").text(),
              "POST /v2/saved with X-Kind: one with a body that contains \"slug=a\"");
}

TEST(RequestPatternTest, AnotherMethodIsFurtherAwayThanATypingError) {
    const RequestPattern pattern("POST /v2/saved");
    EXPECT_EQ(pattern.distance(asked("https://a.test/v2/saved", "POST")), 0U);
    EXPECT_EQ(pattern.distance(asked("https://a.test/v2/save", "POST")), 2U);
    EXPECT_EQ(pattern.distance(asked("https://a.test/v2/saved", "GET")), 4U);
}

TEST(RequestPatternTest, ARequestWithoutAURLHasAnEmptyPathAndQuery) {
    AskedRequest request = asked("https://a.test/v2/time?a=1");
    request.request.setURL(std::nullopt);
    EXPECT_EQ(request.line(), "GET ");
    EXPECT_EQ(RequestPattern("/v2/time").mismatch(request), "the path ends before \"v2\"");
}

}  // namespace
}  // namespace VanticRestKit::Testing

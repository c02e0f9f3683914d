#include <VanticRestKit/platform/http/detail/HeaderCollector.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::detail;

namespace {

HeaderCollector collected(std::initializer_list<std::string_view> lines) {
    HeaderCollector collector;
    for (const std::string_view line : lines) collector.add(std::string(line) + "\r\n");
    return collector;
}

}  // namespace

TEST(HeaderCollector, IsCompleteAfterTheEmptyLine) {
    EXPECT_FALSE(collected({}).isComplete());
    EXPECT_FALSE(collected({"HTTP/1.1 200 OK", "A: b"}).isComplete());
    const HeaderCollector whole = collected({"HTTP/1.1 200 OK", "A: b", ""});
    EXPECT_TRUE(whole.isComplete());
    EXPECT_EQ(whole.status(), 200);
    EXPECT_EQ(whole.value("a"), "b");
    EXPECT_FALSE(whole.isMultiplexed());
}

TEST(HeaderCollector, SkipsInterimResponses) {
    const HeaderCollector whole = collected(
        {"HTTP/1.1 100 Continue", "A: early", "", "HTTP/1.1 103 Hints", "", "HTTP/2 404 ", "B: late", ""});
    EXPECT_TRUE(whole.isComplete());
    EXPECT_EQ(whole.status(), 404);
    EXPECT_EQ(whole.value("a"), std::nullopt);
    EXPECT_EQ(whole.value("b"), "late");
    EXPECT_TRUE(whole.isMultiplexed());
    EXPECT_FALSE(collected({"HTTP/1.1 100 Continue", ""}).isComplete());
}

TEST(HeaderCollector, KeepsNothingOfAnInterimResponse) {
    const HeaderCollector whole = collected({"HTTP/2 103 Early", "Location: /early", "Content-Length: 7", "",
                                             "HTTP/1.1 OK", " goes on", "B: late", ""});
    EXPECT_EQ(whole.location(), std::nullopt);
    EXPECT_EQ(whole.contentLength(), std::nullopt);
    EXPECT_EQ(whole.status(), 0) << "this response has no status";
    EXPECT_FALSE(whole.isMultiplexed());
    EXPECT_EQ(whole.fields().size(), 1U);
}

TEST(HeaderCollector, TreatsSwitchingProtocolsAsAFinalResponse) {
    EXPECT_TRUE(collected({"HTTP/1.1 101 Switching", ""}).isComplete());
    EXPECT_FALSE(collected({"HTTP/1.1 102 Processing", ""}).isComplete());
}

TEST(HeaderCollector, SkipsLinesThatAreNotHeaders) {
    const HeaderCollector whole =
        collected({"Before: the status", "HTTP/3 200", " goes on from nothing", "no colon", "A: b", ""});
    EXPECT_TRUE(whole.isComplete());
    EXPECT_TRUE(whole.isMultiplexed());
    EXPECT_EQ(whole.fields().size(), 1U);
    EXPECT_EQ(whole.value("a"), "b");
    EXPECT_EQ(whole.fault(), std::nullopt);
}

TEST(HeaderCollector, SkipsTrailers) {
    EXPECT_EQ(collected({"HTTP/1.1 200 OK", "", "X: trailer"}).value("x"), std::nullopt);
}

TEST(HeaderCollector, JoinsFieldsWithTheSameNameAndUnfoldsLines) {
    const HeaderCollector whole =
        collected({"HTTP/1.1 200 OK", "Vary: a", "vary:b", "Long: one", "  two", "\tthree", "Empty:", ""});
    EXPECT_EQ(whole.value("VARY"), "a, b");
    EXPECT_EQ(whole.value("long"), "one two three");
    EXPECT_EQ(whole.value("empty"), "");
    EXPECT_EQ(whole.fields().size(), 3U);
}

TEST(HeaderCollector, ReadsTheLengthAndRejectsTwo) {
    EXPECT_EQ(collected({"HTTP/1.1 200 OK", "Content-Length: 5", ""}).contentLength(), 5U);
    EXPECT_EQ(collected({"HTTP/1.1 200 OK", "Content-Length: 5, 5", ""}).fault(), std::nullopt);
    for (const std::string_view line : {"Content-Length: 6", "content-length: 5, 6", "Content-Length: +5",
                                        "Content-Length: 5 5", "Content-Length: ,", "Content-Length: 0x5"}) {
        const HeaderCollector broken = collected({"HTTP/1.1 200 OK", "Content-Length: 5", line, ""});
        ASSERT_TRUE(broken.fault().has_value()) << line;
        EXPECT_EQ(broken.fault()->code, URLErrorCode::cannotParseResponse);
    }
}

TEST(HeaderCollector, KeepsALengthOfMoreThan32BitsAndRefusesOneOfMoreThan64) {
    const auto withLength = [](const std::string& length) {
        return collected({"HTTP/1.1 200 OK", "Content-Length: " + length, ""});
    };
    EXPECT_EQ(withLength("4294967297").contentLength(), (std::uint64_t{1} << 32) + 1);
    EXPECT_EQ(withLength("18446744073709551615").contentLength(), std::numeric_limits<std::uint64_t>::max());
    ASSERT_TRUE(withLength("18446744073709551616").fault().has_value());
    EXPECT_EQ(withLength("18446744073709551616").fault()->code, URLErrorCode::cannotParseResponse);
}

TEST(HeaderCollector, UsesTheFirstLocation) {
    EXPECT_EQ(collected({"HTTP/1.1 302 Found", "Location: /a", "location: /b", ""}).location(), "/a");
}

TEST(HeaderCollector, AcceptsLinesUpToItsLimit) {
    HeaderCollector collector;
    collector.add("HTTP/1.1 200 OK\r\n");
    for (std::size_t i = 1; i < defaultLimits.maxHeadLines; ++i)
        collector.add("h" + std::to_string(i) + ":\r\n");
    ASSERT_EQ(collector.fault(), std::nullopt);
    EXPECT_EQ(collector.fields().size(), defaultLimits.maxHeadLines - 1);
    collector.add("\r\n");
    ASSERT_TRUE(collector.fault().has_value());
    EXPECT_EQ(collector.fault()->code, URLErrorCode::dataLengthExceedsMaximum);
}

TEST(HeaderCollector, AcceptsALineUpToItsLengthLimit) {
    constexpr auto maxBytes = static_cast<std::size_t>(defaultLimits.maxHeaderLineBytes);
    for (const std::size_t more : {std::size_t{0}, std::size_t{1}}) {
        const std::string line = "X:" + std::string(maxBytes - 4 + more, 'x') + "\r\n";
        HeaderCollector collector;
        collector.add("HTTP/1.1 200 OK\r\n");
        collector.add(line);
        EXPECT_EQ(collector.fault().has_value(), more == 1);
    }
}

TEST(HeaderCollector, CountsInterimResponsesAndTrailersTowardsItsLimits) {
    const std::string line = "X: " + std::string(1000, 'x') + "\r\n";
    for (const bool isTrailer : {false, true}) {
        HeaderCollector collector;
        std::size_t size = 0;
        for (const std::string& each : {std::string("HTTP/1.1 200 OK\r\n"), std::string("\r\n")}) {
            if (isTrailer) collector.add(each);
        }
        for (; !collector.fault() && size < 2 * defaultLimits.maxHeadBytes; size += line.size()) {
            if (!isTrailer) collector.add("HTTP/1.1 103 Early Hints\r\n");
            collector.add(line);
            if (!isTrailer) collector.add("\r\n");
        }
        ASSERT_TRUE(collector.fault().has_value()) << isTrailer;
        EXPECT_EQ(collector.fault()->code, URLErrorCode::dataLengthExceedsMaximum);
        EXPECT_LE(size, defaultLimits.maxHeadBytes + line.size());
    }
}

TEST(HeaderCollector, KeepsTheSetCookieLinesSeparate) {
    const HeaderCollector whole =
        collected({"HTTP/1.1 103 Hints", "Set-Cookie: early=1", "", "HTTP/1.1 200 OK", "Set-Cookie: a=1, b=2",
                   "X: y", "set-cookie: c=3;", "\tPath=/", " Secure", "Y: z", " folded", ""});
    EXPECT_EQ(whole.setCookies(), (std::vector<std::string>{"a=1, b=2", "c=3; Path=/ Secure"}));
    EXPECT_EQ(whole.value("set-cookie"), "a=1, b=2, c=3; Path=/ Secure");
    EXPECT_TRUE(collected({"HTTP/1.1 200 OK", ""}).setCookies().empty());
}

TEST(HeaderCollector, AcceptsInterimResponsesUpToItsLimit) {
    const URLSessionLimits limits{.maxInterimAnswers = 2};
    HeaderCollector collector(limits);
    for (int i = 0; i < 2; ++i) {
        collector.add("HTTP/1.1 103 Early Hints\r\n");
        collector.add("\r\n");
    }
    EXPECT_EQ(collector.fault(), std::nullopt);
    collector.add("HTTP/1.1 100 Continue\r\n");
    collector.add("\r\n");
    ASSERT_TRUE(collector.fault().has_value());
    EXPECT_EQ(collector.fault()->reason, "The answer has more than 2 interim answers (maxInterimAnswers).");
}

#include <VanticRestKit/platform/http/detail/BodyCollector.h>

#include <gtest/gtest.h>
#include <support/Codings.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

using namespace VanticRestKit;
using namespace VanticRestKit::detail;
using namespace VanticRestKit::test;

namespace {

constexpr std::size_t megabyte = 1024 * 1024;

/// Adds a piece and decodes it completely.
std::optional<TransportFault> addAll(BodyCollector& body, std::string_view piece) {
    std::size_t budget = std::numeric_limits<std::size_t>::max();
    auto fault = body.add(piece, budget);
    while (!fault && body.hasMore()) {
        std::this_thread::yield();
        fault = body.decode(budget);
    }
    return fault;
}

std::string reasonOf(const std::optional<TransportFault>& fault) {
    if (!fault) return "no fault";
    EXPECT_EQ(fault->code, URLErrorCode::dataLengthExceedsMaximum);
    return fault->reason;
}

}  // namespace

TEST(BodyCollector, CollectsPieces) {
    BodyCollector body;
    body.expect(6, {});
    EXPECT_FALSE(addAll(body, "one").has_value());
    EXPECT_FALSE(addAll(body, "two").has_value());
    EXPECT_FALSE(body.finish().has_value());
    EXPECT_EQ(body.take().view(), "onetwo");
}

TEST(BodyCollector, ReturnsAnEmptyBody) {
    BodyCollector body;
    body.expect(std::nullopt, decodingFor("gzip"));
    EXPECT_FALSE(body.finish().has_value());
    EXPECT_EQ(body.take().size(), 0U);
}

TEST(BodyCollector, DoesNotAllocateTheDeclaredLength) {
    for (const char* coding : {"", "gzip"}) {
        BodyCollector body;
        body.expect(std::numeric_limits<std::uint64_t>::max(), decodingFor(coding));
        body.expect(std::uint64_t{1} << 40, decodingFor(coding));
    }
}

TEST(BodyCollector, KeepsABodyLargerThanItsDeclaredLength) {
    const std::string text = sampleText(100 * 1000);
    BodyCollector body;
    body.expect(1, {});
    for (std::size_t at = 0; at < text.size(); at += 777) {
        ASSERT_FALSE(addAll(body, std::string_view(text).substr(at, 777)).has_value());
    }
    const Data data = body.take();
    EXPECT_TRUE(data.view() == text);
    EXPECT_EQ(std::string_view(data.data() + data.size(), Data::padding), std::string(Data::padding, '\0'));
}

TEST(BodyCollector, DecodesSeveralCodingsInReverseOrder) {
    const std::string text = sampleText(200 * 1000);
    const std::string coded = brotlied(gzipped(text));
    BodyCollector body;
    body.expect(coded.size(), decodingFor("gzip, br"));
    for (std::size_t at = 0; at < coded.size(); at += 1000) {
        ASSERT_FALSE(addAll(body, std::string_view(coded).substr(at, 1000)).has_value());
    }
    EXPECT_FALSE(body.finish().has_value());
    EXPECT_TRUE(body.take().view() == text);
}

TEST(BodyCollector, ReportsAMalformedOrTruncatedCoding) {
    BodyCollector broken;
    broken.expect(std::nullopt, decodingFor("gzip"));
    ASSERT_TRUE(addAll(broken, "no gzip at all").has_value());
    BodyCollector cut;
    cut.expect(std::nullopt, decodingFor("gzip"));
    ASSERT_FALSE(addAll(cut, std::string_view(gzipped("text")).substr(0, 12)).has_value());
    ASSERT_TRUE(cut.finish().has_value());
    EXPECT_EQ(cut.finish()->code, URLErrorCode::cannotDecodeContentData);
}

TEST(BodyCollector, AcceptsAPlainBodyUpToItsLimit) {
    const URLSessionLimits limits{.maxBodyBytes = 10};
    BodyCollector body(limits);
    EXPECT_EQ(addAll(body, "ten bytes."), std::nullopt);
    EXPECT_EQ(reasonOf(addAll(body, "+")), "The body of the answer is larger than 10 bytes (maxBodyBytes).");
}

TEST(BodyCollector, RejectsADeclaredLengthAboveTheLimitOnTheWire) {
    const URLSessionLimits limits{.maxBodyBytesOnWire = 2048};
    BodyCollector body(limits);
    body.expect(2049, {});
    EXPECT_EQ(reasonOf(addAll(body, "x")),
              "The body of the answer is larger than 2 KB (maxBodyBytesOnWire).");
}

TEST(BodyCollector, RejectsADeclaredLengthAboveTheAddressSpaceWhateverTheLimit) {
    constexpr URLSessionLimits none{.maxBodyBytesOnWire = URLSessionLimits::unlimited,
                                    .maxBodyBytes = URLSessionLimits::unlimited};
    // Truncated to 32 bits, five gigabytes would become one.
    constexpr std::uint64_t fiveGigabytes = std::uint64_t{5} << 30;
    constexpr std::uint64_t addressable = std::numeric_limits<std::ptrdiff_t>::max();
    for (const std::uint64_t length :
         {std::max(fiveGigabytes, addressable + 1), URLSessionLimits::unlimited}) {
        for (const char* coding : {"", "gzip"}) {
            BodyCollector body(none);
            body.expect(length, decodingFor(coding));
            EXPECT_NE(std::string::npos, reasonOf(addAll(body, "x")).find("maxBodyBytesOnWire")) << length;
        }
    }
}

TEST(BodyCollector, RejectsABodyThatExceedsALimitAfterDecoding) {
    const URLSessionLimits limits{.maxBodyBytes = 2 * megabyte,
                                  .maxDecodingRatio = URLSessionLimits::unlimited};
    for (const std::size_t size : {2 * megabyte, 2 * megabyte + 1}) {
        BodyCollector body(limits);
        body.expect(std::nullopt, decodingFor("br"));
        const auto fault = addAll(body, brotlied(std::string(size, 'x')));
        EXPECT_EQ(fault.has_value(), size > 2 * megabyte) << size;
        if (fault) {
            EXPECT_EQ(reasonOf(fault), "The body of the answer is larger than 2 MB (maxBodyBytes).");
        }
    }
}

TEST(BodyCollector, LimitsTheSizeBetweenTwoCodings) {
    const URLSessionLimits limits{.maxBodyBytes = megabyte};
    // The inner coding ignores data after its end.
    const std::string coded = gzipped(gzipped("short") + std::string(2 * megabyte, 'x'));
    BodyCollector body(limits);
    body.expect(std::nullopt, decodingFor("gzip, gzip"));
    EXPECT_EQ(reasonOf(addAll(body, coded)), "The body of the answer is larger than 1 MB (maxBodyBytes).");
}

TEST(BodyCollector, RejectsARatioAboveTheLimitOnlyAfterTheFirstMegabyte) {
    BodyCollector small;
    small.expect(std::nullopt, decodingFor("br"));
    EXPECT_EQ(addAll(small, brotlied(std::string(megabyte, 'x'))), std::nullopt);
    BodyCollector large;
    large.expect(std::nullopt, decodingFor("br"));
    EXPECT_EQ(reasonOf(addAll(large, brotlied(std::string(3 * megabyte, 'x')))),
              "The body of the answer decodes to more than 200 times its size (maxDecodingRatio).");
    EXPECT_LT(large.take().size(), 2 * megabyte);
}

TEST(BodyCollector, DecodesNoMoreThanItsBudgetAtATime) {
    const std::string text = std::string(megabyte / 8, 'x') + sampleText(10'000);
    const std::string coded = gzipped(brotlied(text)) + "what follows the end is dropped";
    BodyCollector body;
    body.expect(std::nullopt, decodingFor("br, gzip"));
    std::size_t budget = 1000;
    ASSERT_EQ(body.add(coded, budget), std::nullopt);
    int slices = 1;
    for (; body.hasMore(); ++slices) {
        EXPECT_EQ(budget, 0U);
        budget = 1000;
        ASSERT_EQ(body.decode(budget), std::nullopt);
    }
    EXPECT_GT(slices, 100);
    EXPECT_EQ(body.finish(), std::nullopt);
    EXPECT_TRUE(body.take().view() == text);
}

TEST(BodyCollector, DecodesCodingsIncludingThoseDecodedOnAnotherThread) {
    const std::string text = std::string(3 * megabyte, 'x') + sampleText(megabyte);
    const std::string coded = brotlied(gzipped(brotlied(text)));
    const URLSessionLimits limits{.maxDecodingRatio = URLSessionLimits::unlimited};
    BodyCollector body(limits);
    body.expect(std::nullopt, decodingFor("br, gzip, br"));
    for (std::size_t at = 0; at < coded.size(); at += 5000) {
        ASSERT_EQ(addAll(body, std::string_view(coded).substr(at, 5000)), std::nullopt);
    }
    EXPECT_FALSE(body.isBeingDecoded());
    EXPECT_EQ(body.finish(), std::nullopt);
    EXPECT_TRUE(body.take().view() == text);
}

TEST(BodyCollector, CanBeDestroyedWhileAnotherThreadDecodes) {
    const std::string coded = brotlied(std::string(8 * megabyte, 'x'));
    for (int i = 0; i < 20; ++i) {
        BodyCollector body;
        body.expect(std::nullopt, decodingFor("br"));
        std::size_t budget = megabyte;
        ASSERT_EQ(body.add(coded, budget), std::nullopt);
        ASSERT_TRUE(body.hasMore());
    }
}

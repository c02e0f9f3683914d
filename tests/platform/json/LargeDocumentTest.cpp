// Decodes a document of 100 MB within its memory limit.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/DecodingError.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>
#include <VanticRestKit/platform/json/Table.h>

#include <support/Sanitized.h>
#include <sys/resource.h>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {
namespace {

struct Page {
    std::uint64_t number{};
    std::optional<std::string> text{};
};

}  // namespace

template <>
const TypePlan& planOf<Page>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Page>(
        required<&Page::number>("number"),
        lenient<&Page::text>("text"));
    // clang-format on
    return plan;
}

namespace {

constexpr std::size_t megabyte = 1024 * 1024;
constexpr std::size_t documentSize = 100 * megabyte;

/// The peak memory of this process, in bytes.
std::size_t peakMemory() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<std::size_t>(usage.ru_maxrss) * 1024;
}

/// A list of pages, about `documentSize` long; `last` is its last element.
Data book(const std::string& last) {
    std::string text;
    text.reserve(documentSize + megabyte);
    text = "[";
    const std::string words(1000, 'w');
    for (std::uint64_t number = 0; text.size() < documentSize; ++number) {
        text += "{\"number\":" + std::to_string(number) + ",\"other\":[[],{\"a\":null}],\"text\":\"" + words +
                "\"},";
    }
    return Data(std::move(text += last + "]"));
}

TEST(ADocumentOfAHundredMegabytes, DecodesWithinTwiceItsOwnMemory) {
#ifdef VRK_IS_SANITIZED
    GTEST_SKIP() << "a sanitizer multiplies the time and the memory that this test is about";
#endif
    const Data document = book("{\"number\":7}");
    const std::size_t before = peakMemory();
    const Result<std::vector<Page>, Error> pages = JSONDecoder().decode<std::vector<Page>>(document);
    ASSERT_TRUE(pages);
    EXPECT_EQ(pages->back().number, 7U);
    EXPECT_EQ((*pages)[pages->size() - 2].number, pages->size() - 2);
    EXPECT_EQ(pages->front().text, std::string(1000, 'w'));
    EXPECT_LE(peakMemory() - before, 2 * documentSize);
}

TEST(ADocumentOfAHundredMegabytes, ReportsAFaultAtItsEnd) {
#ifdef VRK_IS_SANITIZED
    GTEST_SKIP() << "a sanitizer multiplies the time and the memory that this test is about";
#endif
    const Data document = book("{\"number\":-7}");
    const Result<std::vector<Page>, Error> pages = JSONDecoder().decode<std::vector<Page>>(document);
    ASSERT_FALSE(pages);
    const DecodingError* const error = pages.error().as<DecodingError>();
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->kind(), DecodingError::Kind::dataCorrupted);
    ASSERT_EQ(error->codingPath().size(), 2U);
    EXPECT_EQ(error->codingPath()[1], CodingKey("number"));
}

}  // namespace
}  // namespace VanticRestKit

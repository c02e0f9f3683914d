// Documents of any depth on a thread with a small stack.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/Table.h>

#include <platform/json/Decoding.h>
#include <platform/json/Nested.h>
#include <support/SmallStack.h>
#include <string>

namespace VanticRestKit {

template <>
const TypePlan& planOf<test::Nest>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<test::Nest>(
        required<&test::Nest::inside>("inside"));
    // clang-format on
    return plan;
}

namespace {

using test::decodable;
using test::Nest;
using test::Outcome;

Outcome outcomeOnASmallStack(const test::DecodableType& type, const std::string& document) {
    Outcome outcome;
    test::onASmallStack([&] { outcome = test::decodeByBoth(type, Data(document)); });
    EXPECT_EQ(outcome.difference, "");
    return outcome;
}

/// `levels` alternating arrays and objects, with `core` in the innermost array.
std::string nest(std::size_t levels, const std::string& core) {
    std::string text;
    for (std::size_t i = 0; i < levels; ++i) text += i % 2 == 0 ? "[" : "{\"inside\":";
    text += core;
    for (std::size_t i = levels; i > 0; --i) text += i % 2 != 0 ? "]" : "}";
    return text;
}

TEST(ASmallStack, SufficesForATypedDocumentOfMaximumDepth) {
    const Outcome outcome = outcomeOnASmallStack(decodable<std::vector<Nest>>, nest(511, ""));
    EXPECT_EQ(outcome.failure, "");
    EXPECT_EQ(outcome.value, nest(511, ""));
}

TEST(ASmallStack, SufficesForAFailureAtMaximumDepth) {
    const Outcome outcome = outcomeOnASmallStack(decodable<std::vector<Nest>>, nest(511, "1"));
    EXPECT_EQ(outcome.failure.substr(0, 28), "typeMismatch [0,\"inside\",0,\"");
}

TEST(ASmallStack, SufficesForAnIgnoredDocumentOfAnyDepth) {
    constexpr std::size_t levels = 1'000'000;
    for (const char bracket : {'[', '{'}) {
        std::string text;
        for (std::size_t i = 0; i < levels; ++i) text += bracket == '[' ? "[" : "{\"a\":";
        const Outcome broken = outcomeOnASmallStack(decodable<std::vector<Nest>>, text);
        EXPECT_EQ(broken.failure, "dataCorrupted []");
        text += bracket == '[' ? "" : "1";
        text.append(levels, bracket == '[' ? ']' : '}');
        const Outcome whole = outcomeOnASmallStack(decodable<Nest>, text);
        EXPECT_EQ(whole.failure, "dataCorrupted []");
        EXPECT_EQ(outcomeOnASmallStack(decodable<Nest>, "{\"inside\":[],\"x\":" + text + "}").failure,
                  "dataCorrupted []");
    }
}

}  // namespace
}  // namespace VanticRestKit

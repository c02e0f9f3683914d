#include <gtest/gtest.h>
#include <VanticRestKit/platform/text/detail/Format.h>

#include <string>

#include "support/Vectors.h"

namespace VanticRestKit::detail {
namespace {

TEST(ZeroFractionFormat, MatchesEveryVector) {
    for (const auto& line : test::vectors("format.jsonl")) {
        const auto number = std::stoull(line.at("in").at("value").get<std::string>());
        EXPECT_EQ(detail::zeroFractionFormat(number), line.at("out").get<std::string>()) << line;
    }
}

}  // namespace
}  // namespace VanticRestKit::detail

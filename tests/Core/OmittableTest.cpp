#include <gtest/gtest.h>
#include <VanticRestKit/Core/Omittable.h>

#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>

namespace VanticRestKit {
namespace {

static_assert(!std::is_convertible_v<double, Omittable<std::uint64_t>>);
static_assert(!std::is_convertible_v<std::optional<int>, Omittable<std::uint64_t>>);

struct Page {
    Omittable<std::uint64_t> first{};
    Omittable<std::string> title{};
};

TEST(Omittable, IsEmptyByDefault) {
    EXPECT_EQ(Page{}.first.value(), std::nullopt);
    EXPECT_EQ(Page{.title = "x"}.first.value(), std::nullopt);
    EXPECT_EQ(Page{.first = std::nullopt}.first.value(), std::nullopt);
}

TEST(Omittable, AcceptsASignedConstant) { EXPECT_EQ(Page{.first = 3}.first.value(), 3U); }

TEST(Omittable, AcceptsWhatConvertsToItsElementType) {
    const std::uint64_t count = 10;
    const std::optional<std::uint64_t> none;
    EXPECT_EQ(Page{.first = count}.first.value(), 10U);
    EXPECT_EQ(Page{.first = none}.first.value(), std::nullopt);
    EXPECT_EQ(Page{.title = "x"}.title.value(), "x");
}

}  // namespace
}  // namespace VanticRestKit

#include <gtest/gtest.h>
#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>

#include <functional>
#include <map>
#include <optional>
#include <type_traits>
#include <vector>

namespace VanticRestKit {
namespace {

struct Named {
    Required<std::string> name;
    std::optional<std::string> title{};
};
struct NamedWithItems {
    Required<std::string> name;
    Required<std::vector<URLQueryItem>> items;
};
struct Referred {
    Required<std::string> usingHref;
};

std::string chosen(const Named&) { return "Named"; }
std::string chosen(const NamedWithItems&) { return "NamedWithItems"; }
std::string chosen(const Referred&) { return "Referred"; }

template <class T>
concept LeftOut = requires {
    T{};
};

static_assert(!std::is_default_constructible_v<Required<int>>);
static_assert(!std::is_default_constructible_v<Required<std::vector<URLQueryItem>>>);
static_assert(!LeftOut<Named> && !LeftOut<NamedWithItems>);

static_assert(std::is_convertible_v<int, Required<std::int64_t>>);
static_assert(!std::is_convertible_v<double, Required<int>>, "narrowing is refused");
static_assert(!std::is_convertible_v<const char*, Required<std::vector<std::string>>>);

using OptionalUnsigned = Required<std::optional<std::uint64_t>>;
static_assert(!std::is_convertible_v<double, OptionalUnsigned>,
              "narrowing is refused inside an optional too");
// A char has a sign on x86-64 and none on ARM.
static_assert(std::is_convertible_v<char, OptionalUnsigned> == std::is_unsigned_v<char>);
static_assert(!std::is_convertible_v<std::optional<int>, OptionalUnsigned>);
static_assert(!std::is_convertible_v<std::optional<double>, OptionalUnsigned>);
static_assert(std::is_convertible_v<unsigned, OptionalUnsigned>);
static_assert(std::is_convertible_v<std::uint64_t&, OptionalUnsigned>);
static_assert(std::is_convertible_v<std::optional<std::uint64_t>&, OptionalUnsigned>);
static_assert(std::is_convertible_v<std::optional<unsigned>, OptionalUnsigned>);
static_assert(std::is_convertible_v<std::nullopt_t, OptionalUnsigned>);
static_assert(std::is_convertible_v<const char*, Required<std::optional<std::string>>>);
static_assert(std::is_convertible_v<const char (&)[2], Required<std::optional<std::string>>>);
static_assert(!std::is_convertible_v<const char*, Required<std::optional<bool>>>);
static_assert(std::is_convertible_v<int, Required<std::optional<double>>>);
static_assert(std::is_convertible_v<std::optional<float>, Required<std::optional<double>>>);

TEST(Required, OverloadsAreSelectedByLabelOnly) {
    EXPECT_EQ(chosen({.name = "a"}), "Named");
    EXPECT_EQ(chosen({.name = "a", .title = "b"}), "Named");
    EXPECT_EQ(chosen({.name = "a", .items = std::vector<URLQueryItem>{}}), "NamedWithItems");
    EXPECT_EQ(chosen({.usingHref = "a"}), "Referred");
}

TEST(Required, AcceptsAListInBraces) {
    const NamedWithItems given{.name = "a", .items = {{"x", "1"}, {"y", std::nullopt}}};
    const std::vector<URLQueryItem> expected{{"x", "1"}, {"y", std::nullopt}};
    EXPECT_EQ(given.items.value(), expected);
}

TEST(Required, AcceptsADictionaryInBraces) {
    struct Headers {
        Required<std::map<std::string, std::string>> headers;
    };
    const Headers given{.headers = {{"a", "1"}}};
    EXPECT_EQ(given.headers.value().at("a"), "1");
}

TEST(Required, AcceptsAnEmptyOptional) {
    struct Timeout {
        Required<std::optional<double>> timeout;
    };
    EXPECT_EQ(Timeout{.timeout = std::nullopt}.timeout.value(), std::nullopt);
    EXPECT_EQ(Timeout{.timeout = 5}.timeout.value(), 5.0);
}

TEST(Required, AcceptsAMoveOnlyCallable) {
    struct Completing {
        Required<UniqueFunction<int()>> with;
    };
    Completing given{.with = [held = std::make_unique<int>(7)] { return *held; }};
    UniqueFunction<int()> taken = std::move(given.with);
    EXPECT_EQ(taken(), 7);
}

struct Page {
    Required<std::uint64_t> limit;
    Required<std::optional<std::uint64_t>> selected;
};

TEST(Required, AnUnsignedNumberAcceptsASignedConstant) {
    const Page page{.limit = 10, .selected = 111};
    EXPECT_EQ(page.limit.value(), 10U);
    EXPECT_EQ(page.selected.value(), 111U);
}

TEST(Required, AnUnsignedNumberAcceptsAnUnsignedVariable) {
    const std::uint64_t count = 10;
    const std::optional<std::uint64_t> none;
    const Page page{.limit = count, .selected = none};
    EXPECT_EQ(page.limit.value(), 10U);
    EXPECT_EQ(page.selected.value(), std::nullopt);
}

TEST(Required, ComparesLikeItsValue) {
    const Named named{.name = "x"};
    EXPECT_TRUE(named.name == "x");
    EXPECT_TRUE("x" == named.name);
    EXPECT_TRUE(named.name == std::string("x"));
    EXPECT_TRUE(named.name != "y");
    EXPECT_TRUE(named.name == Named{.name = "x"}.name);
}

TEST(Required, ComparesTwoEmptyOptionalsAsEqual) {
    const std::optional<std::uint64_t> none;
    const Page page{.limit = 10, .selected = none};
    EXPECT_TRUE(page.selected == none);
    EXPECT_TRUE(page.selected == std::nullopt);
    EXPECT_FALSE(page.selected == 5U);
    EXPECT_TRUE((Page{.limit = 10, .selected = 5}.selected == 5U));
}

}  // namespace
}  // namespace VanticRestKit

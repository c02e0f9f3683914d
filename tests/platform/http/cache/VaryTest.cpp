#include <VanticRestKit/platform/http/cache/detail/Vary.h>

#include <gtest/gtest.h>

namespace VanticRestKit::detail {

namespace {

URLRequest requestWith(std::initializer_list<std::pair<const char*, const char*>> fields) {
    URLRequest request(*URL::make("http://host.test/"));
    for (const auto& [name, value] : fields) request.setValue(value, name);
    return request;
}

bool fits(const char* vary, const URLRequest& stored, const URLRequest& asked) {
    const auto variant = variantOf(vary, stored);
    return variant && fitsVariant(*variant, asked);
}

TEST(Vary, MatchesARequestWithTheSameValues) {
    const URLRequest request = requestWith({{"Foo", "1"}, {"Bar", "a"}});
    EXPECT_TRUE(fits("Foo, bar", request, requestWith({{"foo", "1"}, {"BAR", "a"}, {"Baz", "7"}})));
    EXPECT_FALSE(fits("Foo, Bar", request, requestWith({{"Foo", "2"}, {"Bar", "a"}})));
    EXPECT_FALSE(fits("Foo, Bar", request, requestWith({{"Foo", "1"}})));
    EXPECT_TRUE(fits("Foo", requestWith({}), requestWith({})));
    EXPECT_FALSE(fits("Foo", requestWith({}), requestWith({{"Foo", ""}})));
}

TEST(Vary, WithAStarMatchesNothing) {
    for (const char* vary : {"*", ", *", "*, Foo", "Foo,*"}) EXPECT_FALSE(variantOf(vary, requestWith({})));
}

TEST(Vary, WithAnInvalidHeaderNameMatchesNothing) {
    using namespace std::string_view_literals;
    for (const std::string_view vary :
         {"Foo Bar"sv, "Foo, Bar:"sv, "Foo:1"sv, "\"Foo\""sv, "Foo, B\0r"sv, "F\xF6o"sv, "Foo;q=1"sv}) {
        EXPECT_FALSE(variantOf(vary, requestWith({{"Foo", "1"}}))) << vary;
    }
}

TEST(Vary, IgnoresSpacesAroundCommas) {
    EXPECT_TRUE(fits("Foo", requestWith({{"Foo", "1, 2"}}), requestWith({{"Foo", "1,2"}})));
    EXPECT_FALSE(fits("Foo", requestWith({{"Foo", "1, 2"}}), requestWith({{"Foo", "2, 1"}})));
    EXPECT_FALSE(fits("Foo", requestWith({{"Foo", "a"}}), requestWith({{"Foo", "A"}})));
}

TEST(Vary, IgnoresTheCaseOfLanguagesButNotTheirOrder) {
    const URLRequest request = requestWith({{"Accept-Language", "en-GB; q=1, de"}});
    EXPECT_TRUE(fits("Accept-Language", request, requestWith({{"Accept-Language", "EN-gb;q=1,de"}})));
    EXPECT_FALSE(fits("Accept-Language", request, requestWith({{"Accept-Language", "de, en-GB;q=1"}})));
}

TEST(Vary, IgnoresCaseAndSpacesInAllListsOfPreferences) {
    for (const char* name : {"Accept", "Accept-Charset", "Accept-Encoding", "Accept-Language"}) {
        const URLRequest request = requestWith({{name, "A;q=1,b"}});
        EXPECT_TRUE(fits(name, request, requestWith({{name, "a;\tq=1, B"}}))) << name;
    }
    EXPECT_FALSE(
        fits("Accept-Other", requestWith({{"Accept-Other", "A"}}), requestWith({{"Accept-Other", "a"}})));
}

TEST(Vary, MatchesNothingIfItsStoredFormIsCutOff) {
    const URLRequest request = requestWith({{"Foo", "1"}});
    EXPECT_TRUE(fitsVariant("foo:1\n", request));
    EXPECT_FALSE(fitsVariant("foo:1", request));
    EXPECT_FALSE(fitsVariant("foo:1\nb", request));
}

TEST(Vary, LeavesCredentialsToTheKey) {
    EXPECT_EQ(variantOf("Cookie, Authorization", requestWith({{"Cookie", "secret"}})), "");
}

}  // namespace

}  // namespace VanticRestKit::detail

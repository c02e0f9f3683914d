#include <VanticRestKit/platform/http/cookies/detail/SetCookie.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>

using namespace VanticRestKit;
using namespace VanticRestKit::detail;

namespace {

/// The cookie in `text`, or one without a name if there is none.
SetCookie read(std::string_view text) { return readSetCookie(text).value_or(SetCookie{}); }

}  // namespace

TEST(SetCookie, HasItsNameAndValueWithoutSurroundingSpaces) {
    EXPECT_EQ(read(" a\t= b c ; x").name, "a");
    EXPECT_EQ(read(" a\t= b c ; x").value, "b c");
    EXPECT_EQ(read("a=\"b=c\"").value, "\"b=c\"");
    EXPECT_EQ(read("a=").name, "a");
}

TEST(SetCookie, WithoutANameIsRejected) {
    for (const char* const text : {"", "  ", "a", "=a", " =a", ";a=b", "="})
        EXPECT_FALSE(readSetCookie(text)) << text;
}

TEST(SetCookie, HasItsAttributes) {
    const SetCookie cookie = read(
        "a=b; DOMAIN = .Example.org ;path=/x;secure; HttpOnly=no; Max-Age=-5; "
        "expires=Sun, 06 Nov 1994 08:49:37 GMT; SameSite=LAX; unknown=1;;=");
    EXPECT_EQ(cookie.domain, "Example.org");
    EXPECT_EQ(cookie.path, "/x");
    EXPECT_TRUE(cookie.isSecure);
    EXPECT_TRUE(cookie.isHTTPOnly);
    EXPECT_EQ(cookie.maxAge, -5);
    ASSERT_TRUE(cookie.expires);
    EXPECT_EQ(cookie.expires->time_since_epoch().count(), 784111777);
    EXPECT_EQ(cookie.sameSite, HTTPCookieSameSite::lax);
}

TEST(SetCookie, HasOnlyTheAttributesThatItLists) {
    const SetCookie cookie = read("a=b; \"secure\"; secure only; samesite=other; domainx=y");
    EXPECT_EQ(cookie.domain, "");
    EXPECT_EQ(cookie.path, "");
    EXPECT_FALSE(cookie.isSecure);
    EXPECT_FALSE(cookie.isHTTPOnly);
    EXPECT_FALSE(cookie.maxAge);
    EXPECT_FALSE(cookie.expires);
    EXPECT_FALSE(cookie.sameSite);
}

TEST(SetCookie, UsesTheLastOfEachAttribute) {
    EXPECT_EQ(read("a=b; path=/x; path=/y").path, "/y");
    EXPECT_EQ(read("a=b; path=/x; path=relative").path, "");
    EXPECT_EQ(read("a=b; domain=x.org; domain=").domain, "");
    EXPECT_EQ(read("a=b; samesite=strict; samesite=none").sameSite, HTTPCookieSameSite::none);
}

TEST(SetCookie, KeepsAValidAttributeIfAnInvalidOneFollows) {
    EXPECT_EQ(read("a=b; max-age=5; max-age=50,399").maxAge, 5);
    EXPECT_TRUE(read("a=b; expires=01 Jan 2020 00:00:00; expires=soon").expires);
}

TEST(SetCookie, AcceptsOnlyDigitsInMaxAge) {
    EXPECT_EQ(read("a=b; max-age=0060").maxAge, 60);
    for (const char* const text : {"", "-", "+5", "5s", "1.5", "--5"}) {
        EXPECT_FALSE(read(std::string("a=b; max-age=") + text).maxAge) << text;
    }
    const auto most = read("a=b; max-age=99999999999999999999999").maxAge;
    ASSERT_TRUE(most);
    EXPECT_GT(*most, std::numeric_limits<std::int64_t>::max() / 1000);
}

TEST(SetCookie, EndsAtALineBreakOrANulByte) {
    EXPECT_EQ(read("a=b\rc").value, "b");
    EXPECT_EQ(read("a=b\nc; secure").value, "b");
    EXPECT_EQ(read(std::string_view("a=b\0c", 5)).value, "b");
}

TEST(SetCookie, WithAnotherControlCharacterIsRejected) {
    EXPECT_FALSE(readSetCookie("a=b\x01"));
    EXPECT_FALSE(readSetCookie("a=b; path=/\x7F"));
    EXPECT_TRUE(hasControlCharacter("\x1F"));
    EXPECT_FALSE(hasControlCharacter("a\tb \xC3\xBC"));
}

TEST(SetCookie, LargerThanTheLimitIsRejected) {
    const std::string name = "name";
    EXPECT_TRUE(readSetCookie(name + "=" + std::string(maxCookieSize - name.size(), 'x')));
    EXPECT_FALSE(readSetCookie(name + "=" + std::string(maxCookieSize - name.size() + 1, 'x')));
}

TEST(SetCookie, IgnoresAnAttributeLargerThanTheLimit) {
    const std::string path = "/" + std::string(maxAttributeSize - 1, 'x');
    EXPECT_EQ(read("a=b; path=" + path).path, path);
    EXPECT_EQ(read("a=b; path=" + path + "x").path, "");
}

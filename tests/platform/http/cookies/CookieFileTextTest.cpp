#include <VanticRestKit/platform/http/cookies/detail/CookieFileText.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::detail;

namespace {

std::vector<HTTPCookie> several() {
    const Date end{std::chrono::duration<double>(1234567890.123)};
    return {
        {.name = "a", .value = "tab\tand \"quotes\" and ü", .domain = "example.org", .expiresDate = end},
        {.name = "b",
         .value = "",
         .domain = "xn--bcher-kva.example",
         .includesSubdomains = true,
         .path = "/p%20/",
         .expiresDate = end,
         .isSecure = true,
         .isHTTPOnly = true,
         .sameSite = HTTPCookieSameSite::none},
        {.name = "c", .value = "1", .domain = "::1", .expiresDate = end, .sameSite = HTTPCookieSameSite::lax},
        {.name = "d",
         .value = "1",
         .domain = "x.org",
         .expiresDate = end,
         .sameSite = HTTPCookieSameSite::strict}};
}

}  // namespace

TEST(CookieFileText, RoundTripsItsCookies) {
    EXPECT_EQ(readCookieFileText(cookieFileText(several())), several());
    EXPECT_EQ(readCookieFileText(cookieFileText({})), std::vector<HTTPCookie>());
}

TEST(CookieFileText, IsRejectedIfTruncatedAnywhere) {
    const std::string text = cookieFileText(several());
    for (std::size_t size = 0; size < text.size(); ++size) {
        EXPECT_FALSE(readCookieFileText(text.substr(0, size))) << size;
    }
}

TEST(CookieFileText, IsRejectedIfAnyByteHasChanged) {
    const std::string text = cookieFileText(several());
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::string changed = text;
        changed[i] = static_cast<char>(changed[i] ^ 1);
        EXPECT_FALSE(readCookieFileText(changed)) << i;
    }
}

TEST(CookieFileText, IsRejectedIfItHasAnotherFormat) {
    for (const char* const text :
         {"\n", "end 0\n", "# Netscape HTTP Cookie File\n", "VanticRestKit cookies 2\nend 0\n"}) {
        EXPECT_FALSE(readCookieFileText(text)) << text;
    }
}

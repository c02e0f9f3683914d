#include <VanticRestKit/platform/http/cookies/detail/CookieFileText.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <sstream>
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

std::uint32_t crc32Of(const std::string& text) {
    std::uint32_t sum = 0xFFFFFFFFU;
    for (const char c : text) {
        sum ^= static_cast<unsigned char>(c);
        for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1U) ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return ~sum;
}

/// How many cookies are read from a file of this line whose checksum is correct; -1 if it is rejected.
int countIn(const std::string& line) {
    const std::string text = "VanticRestKit cookies 1\n" + line + "\n";
    std::ostringstream sum;
    sum << std::hex << crc32Of(text);
    const auto cookies = readCookieFileText(text + "end " + sum.str() + "\n");
    return cookies ? static_cast<int>(cookies->size()) : -1;
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

TEST(CookieFileText, IsRejectedIfALineIsMalformed) {
    EXPECT_EQ(countIn("x.org\t/\tname\tvalue\t41d26580b487df3b\t-\t"), 1);
    for (const char* const line :
         {"", "x.org\t/\tname\tvalue\t41d26580b487df3b\t-", "x.org\t/\tname\tvalue\t41d26580b487df3b\t",
          "x.org\t/\tname\tvalue\t41d26580b487df3b\t-\tmore", "x.org\t/\tname\tvalue\t\t-\t",
          "x.org\t/\tname\tvalue\t41x\t-\t", "x.org\t/\tname\tvalue\t41d26580b487df3b0\t-\t"}) {
        EXPECT_EQ(countIn(line), -1) << line;
    }
}

#include <VanticRestKit/platform/http/cookies/detail/CookieRules.h>

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

using namespace VanticRestKit;
using namespace VanticRestKit::detail;

namespace {

const Date now{std::chrono::seconds(1'000'000)};

/// The cookie that a response from `url` sets with the header value `text`.
std::optional<HTTPCookie> accepted(std::string_view text,
                                   std::string_view url = "https://www.example.org/a/b") {
    const auto said = readSetCookie(text);
    return said ? acceptedCookie(*said, cookieTargetOf(*URL::make(url)), now) : std::nullopt;
}

}  // namespace

TEST(CookieRules, WithoutADomainTheCookieIsOnlyForTheHost) {
    const auto cookie = accepted("a=b");
    ASSERT_TRUE(cookie);
    EXPECT_EQ(*cookie, (HTTPCookie{.name = "a", .value = "b", .domain = "www.example.org", .path = "/a"}));
}

TEST(CookieRules, WithADomainTheCookieIsAlsoForSubdomains) {
    const auto cookie = accepted("a=b; domain=Example.ORG; path=/; httponly; secure; samesite=strict");
    ASSERT_TRUE(cookie);
    EXPECT_EQ(*cookie, (HTTPCookie{.name = "a",
                                   .value = "b",
                                   .domain = "example.org",
                                   .includesSubdomains = true,
                                   .isSecure = true,
                                   .isHTTPOnly = true,
                                   .sameSite = HTTPCookieSameSite::strict}));
}

TEST(CookieRules, ADomainThatIsNotTheSendersIsRejected) {
    for (const char* const domain :
         {"example.com", "ww.example.org", "a.www.example.org", "xample.org", "."}) {
        const auto cookie = accepted(std::string("a=b; domain=") + domain + "x");
        EXPECT_FALSE(cookie) << domain;
    }
}

TEST(CookieRules, APublicSuffixIsRejectedUnlessItIsTheSender) {
    EXPECT_FALSE(accepted("a=b; domain=org"));
    EXPECT_FALSE(accepted("a=b; domain=co.uk", "https://example.co.uk/"));
    const auto own = accepted("a=b; domain=co.uk", "https://co.uk/");
    ASSERT_TRUE(own);
    EXPECT_FALSE(own->includesSubdomains);
    EXPECT_TRUE(accepted("a=b; domain=localhost", "http://localhost/"));
}

TEST(CookieRules, AnIPAddressHasNoSubdomains) {
    const auto own = accepted("a=b; domain=127.0.0.1", "http://127.0.0.1/");
    ASSERT_TRUE(own);
    EXPECT_FALSE(own->includesSubdomains);
    EXPECT_FALSE(accepted("a=b; domain=0.0.1", "http://127.0.0.1/"));
}

TEST(CookieRules, ANonASCIIDomainIsTheSameInBothForms) {
    EXPECT_TRUE(accepted("a=b; domain=bücher.example", "http://www.xn--bcher-kva.example/"));
    EXPECT_TRUE(accepted("a=b; domain=xn--bcher-kva.example", "http://www.bücher.example/"));
}

TEST(CookieRules, MaxAgeTakesPrecedenceOverExpires) {
    const auto both = accepted("a=b; max-age=60; expires=Fri, 07 Aug 2037 08:04:19 GMT");
    ASSERT_TRUE(both && both->expiresDate);
    EXPECT_EQ(*both->expiresDate, now + std::chrono::seconds(60));
    const auto ended = accepted("a=b; max-age=0; expires=Fri, 07 Aug 2037 08:04:19 GMT");
    ASSERT_TRUE(ended && ended->expiresDate);
    EXPECT_LT(*ended->expiresDate, now);
    EXPECT_TRUE(accepted("a=b; max-age=99999999999999999999")->expiresDate > now);
}

TEST(CookieRules, SecureIsRejectedOverHttp) {
    EXPECT_TRUE(accepted("a=b; secure"));
    EXPECT_FALSE(accepted("a=b; secure", "http://www.example.org/"));
}

TEST(CookieRules, TheSecurePrefixRequiresSecure) {
    EXPECT_TRUE(accepted("__Secure-a=b; secure; domain=example.org"));
    EXPECT_FALSE(accepted("__Secure-a=b"));
    EXPECT_FALSE(accepted("__sEcUrE-a=b"));
}

TEST(CookieRules, TheHostPrefixRequiresSecureTheRootPathAndNoDomain) {
    EXPECT_TRUE(accepted("__Host-a=b; secure; path=/"));
    EXPECT_FALSE(accepted("__Host-a=b; path=/"));
    EXPECT_FALSE(accepted("__Host-a=b; secure"));
    EXPECT_FALSE(accepted("__Host-a=b; secure", "https://www.example.org/"));
    EXPECT_FALSE(accepted("__Host-a=b; secure; path=/a"));
    EXPECT_FALSE(accepted("__host-a=b; secure; path=/; domain=www.example.org"));
    EXPECT_FALSE(accepted("__Host-a=b; secure; path=/; domain=co.uk", "https://co.uk/"));
}

TEST(CookieRules, ACookieSetByTheApplicationGetsANormalizedDomain) {
    const auto cookie = canonicalCookie({.name = "a", .value = "b", .domain = ".BÜCHER.Example"});
    ASSERT_TRUE(cookie);
    EXPECT_EQ(cookie->domain, "xn--bcher-kva.example");
    EXPECT_TRUE(cookie->includesSubdomains);
}

TEST(CookieRules, ACookieThatCannotBeSentIsRejected) {
    const HTTPCookie good{.name = "a", .value = "b", .domain = "example.org"};
    ASSERT_TRUE(canonicalCookie(good));
    const auto refuses = [&good](auto change) {
        HTTPCookie cookie = good;
        change(cookie);
        return !canonicalCookie(std::move(cookie));
    };
    for (const char* const name : {"", "a=b", "a;b", "a\nb", " a"}) {
        EXPECT_TRUE(refuses([name](HTTPCookie& cookie) { cookie.name = name; })) << name;
    }
    for (const char* const value : {"a;b", "a\rb", "a "}) {
        EXPECT_TRUE(refuses([value](HTTPCookie& cookie) { cookie.value = value; })) << value;
    }
    for (const char* const path : {"", "a", "/a\nb", "/a "}) {
        EXPECT_TRUE(refuses([path](HTTPCookie& cookie) { cookie.path = path; })) << path;
    }
    for (const char* const domain : {"", ".", ".org", ".127.0.0.1", "a/b", "a\nb"}) {
        EXPECT_TRUE(refuses([domain](HTTPCookie& cookie) { cookie.domain = domain; })) << domain;
    }
    EXPECT_TRUE(refuses([](HTTPCookie& cookie) { cookie.value = std::string(maxCookieSize, 'x'); }));
    EXPECT_TRUE(refuses([](HTTPCookie& cookie) { cookie.domain = std::string(maxAttributeSize + 1, 'x'); }));
}

TEST(CookieRules, ASenderWithALeadingDotIsRejected) {
    EXPECT_FALSE(accepted("a=b", "http://.example.org/"));
    EXPECT_FALSE(accepted("a=b; domain=..example.org", "http://a..example.org/"));
}

TEST(CookieRules, ASenderWithoutAHostIsRejected) {
    EXPECT_FALSE(acceptedCookie(*readSetCookie("a=b"), {.host = "", .path = "/"}, now));
}

TEST(CookieRules, AnAcceptedCookieIsNormalized) {
    const std::string longPath = "/" + std::string(2000, 'x') + ";y/";
    for (const std::string url : {"http://example.org/a;b/c", "http://[::1]/", "http://example.org./"}) {
        const auto cookie = accepted("a=\tb\tc; path=/x y?#", url);
        ASSERT_TRUE(cookie) << url;
        EXPECT_EQ(canonicalCookie(*cookie), cookie) << url;
    }
    const auto cookie = accepted("a=b", "http://example.org" + longPath);
    ASSERT_TRUE(cookie);
    EXPECT_EQ(canonicalCookie(*cookie), cookie);
}

#include <VanticRestKit/platform/http/cookies/detail/CookieHost.h>

#include <gtest/gtest.h>

using namespace VanticRestKit;
using namespace VanticRestKit::detail;

TEST(CookieHost, IsComparedInLowerCaseASCII) {
    EXPECT_EQ(canonicalHost("WWW.Example.ORG"), "www.example.org");
    EXPECT_EQ(canonicalHost("www.BÜCHER.example"), "www.xn--bcher-kva.example");
    EXPECT_EQ(canonicalHost("xn--BCHER-kva.example"), "xn--bcher-kva.example");
    EXPECT_EQ(canonicalHost(""), "");
    EXPECT_EQ(canonicalHost("\xFF.example"), "\xFF.example");
}

TEST(CookieHost, MatchesItsDomainAndParentDomains) {
    EXPECT_TRUE(domainMatches("example.org", "example.org"));
    EXPECT_TRUE(domainMatches("www.example.org", "example.org"));
    EXPECT_FALSE(domainMatches("example.org", "www.example.org"));
    EXPECT_FALSE(domainMatches("badexample.org", "example.org"));
    EXPECT_FALSE(domainMatches("www.example.org", ""));
}

TEST(CookieHost, AnIPAddressMatchesOnlyItself) {
    EXPECT_TRUE(domainMatches("127.0.0.1", "127.0.0.1"));
    EXPECT_FALSE(domainMatches("127.0.0.1", "0.0.1"));
    for (const char* const address : {"127.0.0.1", "::1", "fe80::1", "127.1", "0x7f000001", "10.0.0.1."}) {
        EXPECT_TRUE(isIPAddress(address)) << address;
    }
    for (const char* const name : {"example.org", "1.example", "", "a1", "1.2.3.4-5"})
        EXPECT_FALSE(isIPAddress(name)) << name;
}

TEST(CookieHost, PathsMatchAtSlashes) {
    EXPECT_TRUE(pathMatches("/a/b", "/a"));
    EXPECT_TRUE(pathMatches("/a/b", "/a/"));
    EXPECT_TRUE(pathMatches("/a", "/a"));
    EXPECT_FALSE(pathMatches("/ab", "/a"));
    EXPECT_FALSE(pathMatches("/a", "/a/"));
    EXPECT_FALSE(pathMatches("/b", "/a"));
}

TEST(CookieHost, TheDefaultPathIsTheDirectoryOfTheURL) {
    EXPECT_EQ(defaultPath("/a/b"), "/a");
    EXPECT_EQ(defaultPath("/a/b/"), "/a/b");
    EXPECT_EQ(defaultPath("/a"), "/");
    EXPECT_EQ(defaultPath("/"), "/");
    EXPECT_EQ(defaultPath(""), "/");
    EXPECT_EQ(defaultPath("x/y"), "/");
}

TEST(CookieHost, TheTargetOfAURLHasItsEncodedPath) {
    const CookieTarget target = cookieTargetOf(*URL::make("HTTPS://[::1]:8080/f%6Fo/?q=/x#f"));
    EXPECT_EQ(target.host, "::1");
    EXPECT_EQ(target.path, "/f%6Fo/");
    EXPECT_TRUE(target.isSecure);
    EXPECT_EQ(cookieTargetOf(*URL::make("http://Example.org")).path, "/");
    EXPECT_EQ(cookieTargetOf(*URL::make("http://bücher.example/")).host, "xn--bcher-kva.example");
}

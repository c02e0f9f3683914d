#include <VanticRestKit/platform/http/detail/ProxyRule.h>

#include <gtest/gtest.h>

#include <string>

using namespace VanticRestKit;
using namespace VanticRestKit::detail;

namespace {

bool isExcepted(const char* exception, const char* host) {
    const URLSessionProxy proxy{.url = "http://proxy:3128", .exceptions = {"first.invalid", exception}};
    return !goesThrough(proxy, *URL::make(std::string("http://") + host + "/"));
}

}  // namespace

TEST(ProxyRule, AnExceptionCoversAHostAndItsSubdomains) {
    EXPECT_TRUE(isExcepted("example.org", "example.org"));
    EXPECT_TRUE(isExcepted("example.org", "WWW.Example.ORG"));
    EXPECT_TRUE(isExcepted(".example.org", "www.example.org"));
    EXPECT_TRUE(isExcepted("other.invalid", "first.invalid"));
    EXPECT_FALSE(isExcepted("example.org", "notexample.org"));
    EXPECT_FALSE(isExcepted("www.example.org", "example.org"));
    EXPECT_FALSE(isExcepted("", "example.org"));
}

TEST(ProxyRule, AnExceptionMatchesOnlyAWholeAddress) {
    EXPECT_TRUE(isExcepted("192.0.2.1", "192.0.2.1"));
    EXPECT_TRUE(isExcepted("2001:db8::1", "[2001:DB8::1]"));
    EXPECT_FALSE(isExcepted("2.1", "192.0.2.1"));
    EXPECT_FALSE(isExcepted("192.0.2.1", "192.0.2.10"));
}

TEST(ProxyRule, AStarMatchesEveryHost) { EXPECT_TRUE(isExcepted("*", "anything.invalid")); }

TEST(ProxyRule, AProxyIsIdentifiedByItsURLWithoutUserAndFragment) {
    EXPECT_EQ(absoluteTarget(*URL::make("http://a:b@host:81/x/../y?z#f")), "http://host:81/x/../y?z");
    EXPECT_EQ(absoluteTarget(*URL::make("http://host")), "http://host/");
}

TEST(ProxyRule, TheURLOfAProxyIsHttpOrHttps) {
    for (const char* good : {"http://proxy", "HTTPS://proxy:443", "http://[::1]:3128"}) {
        EXPECT_FALSE(whyUnusable(URLSessionProxy{.url = good})) << good;
    }
    for (const char* bad : {"", "proxy:3128", "socks5://proxy", "http://", "/path"}) {
        EXPECT_TRUE(whyUnusable(URLSessionProxy{.url = bad})) << bad;
    }
}

TEST(ProxyRule, AHostOfDigitsAndDashesIsNotAnAddress) { EXPECT_TRUE(isExcepted("3-4", "1-2.3-4")); }

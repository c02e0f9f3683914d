#include <VanticRestKit/platform/http/cookies/detail/PublicSuffix.h>

#include <gtest/gtest.h>

using VanticRestKit::detail::isPublicSuffix;
using VanticRestKit::detail::registrableDomain;

TEST(PublicSuffix, IsASuffixUnderWhichNamesCanBeRegistered) {
    EXPECT_TRUE(isPublicSuffix("org"));
    EXPECT_TRUE(isPublicSuffix("co.uk"));
    EXPECT_TRUE(isPublicSuffix("xn--p1ai"));
    EXPECT_TRUE(isPublicSuffix("a-name-of-one-part"));
    EXPECT_FALSE(isPublicSuffix("example.org"));
    EXPECT_FALSE(isPublicSuffix("example.co.uk"));
}

TEST(PublicSuffix, FindsTheRegisteredDomainOfAHost) {
    EXPECT_EQ(registrableDomain("a.b.example.co.uk"), "example.co.uk");
    EXPECT_EQ(registrableDomain("example.org"), "example.org");
    EXPECT_EQ(registrableDomain("org"), "org");
}

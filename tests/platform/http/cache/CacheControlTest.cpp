#include <VanticRestKit/platform/http/cache/detail/CacheControl.h>

#include <gtest/gtest.h>

#include <string>

namespace VanticRestKit::detail {

namespace {

using std::chrono::seconds;

TEST(CacheControl, ReadsDirectivesInAnyCase) {
    const CacheControl control = CacheControl::parse(
        "No-Store, PRIVATE,public , must-revalidate, must-understand, immutable, only-if-cached, max-stale");
    EXPECT_TRUE(control.noStore && control.isPrivate && control.isPublic && control.mustRevalidate);
    EXPECT_TRUE(control.mustUnderstand && control.isImmutable && control.onlyIfCached);
    EXPECT_EQ(control.maxStale, seconds::max());
    EXPECT_FALSE(control.noCache);
    EXPECT_FALSE(control.maxAge);
}

TEST(CacheControl, ReadsNumbersPlainAndQuoted) {
    const CacheControl control = CacheControl::parse(
        "max-age=003600, stale-while-revalidate=\"5\", stale-if-error=7, min-fresh=8, max-stale=9");
    EXPECT_EQ(control.maxAge, seconds(3600));
    EXPECT_EQ(control.staleWhileRevalidate, seconds(5));
    EXPECT_EQ(control.staleIfError, seconds(7));
    EXPECT_EQ(control.minFresh, seconds(8));
    EXPECT_EQ(control.maxStale, seconds(9));
}

TEST(CacheControl, ClampsALargeNumberToTheMaximum) {
    EXPECT_EQ(CacheControl::parse("max-age=99999999999999999999").maxAge, maxDeltaSeconds);
}

TEST(CacheControl, TreatsAMalformedMaxAgeAsZero) {
    for (const std::string text :
         {"-1", "1.5", "10a", "", "'10'", "\"10", "\"10\\", "\"10\"x", " 10", "abc"}) {
        EXPECT_EQ(CacheControl::parse("max-age=" + text).maxAge, seconds(0)) << text;
    }
    EXPECT_EQ(CacheControl::parse("max-age").maxAge, seconds(0));
    EXPECT_EQ(CacheControl::parse("max-age =10").maxAge, seconds(0));
}

TEST(CacheControl, IgnoresAMalformedPermission) {
    EXPECT_FALSE(CacheControl::parse("stale-while-revalidate=x").staleWhileRevalidate);
    EXPECT_FALSE(CacheControl::parse("max-stale=x").maxStale);
}

TEST(CacheControl, UsesTheFirstOfSeveral) {
    EXPECT_EQ(CacheControl::parse("max-age=1, max-age=1800").maxAge, seconds(1));
}

TEST(CacheControl, DoesNotReadInsideQuotedStrings) {
    const CacheControl control =
        CacheControl::parse("ext=\"max-age=3600, no-store, \\\", no-cache\", max-age=1");
    EXPECT_EQ(control.maxAge, seconds(1));
    EXPECT_FALSE(control.noStore || control.noCache);
}

TEST(CacheControl, ContinuesAfterAnUnclosedQuote) {
    EXPECT_TRUE(CacheControl::parse("ext=\"abc, no-store").noStore);
}

TEST(CacheControl, KeepsTheFieldsOfNoCacheSeparate) {
    const CacheControl named = CacheControl::parse("no-cache=\"a, b\"");
    EXPECT_FALSE(named.noCache);
    EXPECT_EQ(named.noCacheFields, (std::vector<std::string>{"a", "b"}));
    EXPECT_TRUE(CacheControl::parse("no-cache=\"\"").noCache);
    EXPECT_TRUE(CacheControl::parse("no-cache=\"a\", no-cache").noCache);
}

}  // namespace

}  // namespace VanticRestKit::detail

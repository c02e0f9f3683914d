#include <VanticRestKit/platform/http/detail/NameLookups.h>

#include <gtest/gtest.h>

#include <chrono>

using namespace VanticRestKit::detail;

namespace {

constexpr TimePoint now{std::chrono::seconds(1000)};
constexpr std::chrono::seconds minute{60};

}  // namespace

TEST(NameLookups, AllowsNoMoreLookupsThanItsLimit) {
    NameLookups lookups(2);
    NameLookups::Name one("http://one.test:80"), two("http://two.test:80"), three("http://three.test:80");
    NameLookups::Ticket first, second;
    lookups.begin(one, first, now);
    EXPECT_TRUE(lookups.mayBegin(two, now));
    lookups.begin(two, second, now);
    EXPECT_FALSE(lookups.mayBegin(three, now));
    lookups.end(one, first);
    EXPECT_TRUE(lookups.mayBegin(three, now));
    lookups.end(one, first);
    EXPECT_TRUE(lookups.mayBegin(three, now)) << "ending a ticket twice has no effect";
    EXPECT_FALSE(lookups.areAllTaken());
}

TEST(NameLookups, DoesNotCountIPAddresses) {
    NameLookups lookups(1);
    NameLookups::Name name("https://name.test:443"), v4("https://127.0.0.1:443"), v6("https://[::1]:443"),
        digits("https://1.test:443");
    NameLookups::Ticket ticket, other;
    lookups.begin(v4, other, now);
    EXPECT_TRUE(lookups.mayBegin(name, now));
    lookups.begin(name, ticket, now);
    EXPECT_TRUE(lookups.mayBegin(v4, now));
    EXPECT_TRUE(lookups.mayBegin(v6, now));
    EXPECT_FALSE(lookups.mayBegin(digits, now));
}

TEST(NameLookups, LooksUpAKnownNameAgainOnlyAfterItExpires) {
    NameLookups lookups(1);
    NameLookups::Name known("http://known.test:80"), other("http://other.test:80");
    NameLookups::Ticket first, second;
    lookups.begin(known, first, now);
    lookups.learn(known, now + minute);
    lookups.begin(other, second, now);
    EXPECT_TRUE(lookups.mayBegin(known, now));
    EXPECT_FALSE(lookups.mayBegin(known, now + minute));
}

TEST(NameLookups, EndsAllLookupsOfANameWhenItsAddressIsFound) {
    NameLookups lookups(3);
    NameLookups::Name name("http://name.test:80"), other("http://other.test:80");
    NameLookups::Ticket tickets[3];
    for (auto& ticket : tickets) lookups.begin(name, ticket, now);
    EXPECT_TRUE(lookups.areAllTaken());
    lookups.learn(name, now);
    for (auto& ticket : tickets) lookups.end(name, ticket);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(lookups.mayBegin(other, now)) << i;
        lookups.begin(other, tickets[i], now);
    }
    EXPECT_FALSE(lookups.mayBegin(name, now));
}

TEST(NameLookups, KnowsANameUntilItExpiresOrIsForgotten) {
    NameLookups lookups(1);
    NameLookups::Name name("http://name.test:80"), address("http://127.0.0.1:80");
    EXPECT_FALSE(NameLookups::knows(name, now));
    EXPECT_TRUE(NameLookups::knows(address, now));
    lookups.learn(name, now + minute);
    EXPECT_TRUE(NameLookups::knows(name, now));
    EXPECT_FALSE(NameLookups::knows(name, now + minute));
    NameLookups::forget(name);
    NameLookups::forget(address);
    EXPECT_FALSE(NameLookups::knows(name, now));
    EXPECT_TRUE(NameLookups::knows(address, now));
}

#include <VanticRestKit/platform/http/cookies/detail/CookieStore.h>

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::detail;

namespace {

const Date now{std::chrono::seconds(1'000'000)};
const Date later = now + std::chrono::seconds(10);
const CookieTarget root{.host = "example.org", .path = "/", .isSecure = false};

HTTPCookie cookie(const std::string& name, const std::string& domain = "example.org") {
    return {.name = name, .value = "1", .domain = domain};
}

HTTPCookie withPath(HTTPCookie made, const std::string& path) {
    made.path = path;
    return made;
}

HTTPCookie until(HTTPCookie made, Date end) {
    made.expiresDate = end;
    return made;
}

HTTPCookie secured(HTTPCookie made) {
    made.isSecure = true;
    return made;
}

HTTPCookie withSubdomains(HTTPCookie made) {
    made.includesSubdomains = true;
    return made;
}

std::string names(const std::vector<HTTPCookie>& cookies) {
    std::string text;
    for (const HTTPCookie& each : cookies) text += each.name + ' ';
    return text;
}

std::string sent(CookieStore& store, const CookieTarget& target = root, Date at = now) {
    std::string text;
    for (const HTTPCookie* const each : store.matching(target, at)) text += each->name + ' ';
    return text;
}

}  // namespace

TEST(CookieStore, SendsLongerPathsFirstThenOlderCookies) {
    CookieStore store;
    store.set(cookie("root"), now);
    store.set(withPath(cookie("deep"), "/a/b"), now);
    store.set(withPath(cookie("older"), "/x"), now);
    store.set(withPath(cookie("high"), "/a"), now);
    store.set(withSubdomains(cookie("above", "example.org")), now);
    EXPECT_EQ(sent(store, {.host = "example.org", .path = "/a/b/c"}), "deep high root above ");
    EXPECT_EQ(names(store.all(now)), "root deep older high above ");
}

TEST(CookieStore, AReplacedCookieKeepsItsPosition) {
    CookieStore store;
    store.set(cookie("a"), now);
    store.set(cookie("b"), now);
    HTTPCookie changed = cookie("a");
    changed.value = "2";
    EXPECT_TRUE(store.set(changed, now));
    EXPECT_EQ(sent(store), "a b ");
    EXPECT_EQ(store.all(now).front().value, "2");
    EXPECT_EQ(store.count(), 2U);
}

TEST(CookieStore, ACookieThatReplacesAnExpiredOneIsNew) {
    CookieStore store;
    store.set(until(cookie("a"), later), now);
    store.set(cookie("b"), now);
    store.set(cookie("a"), later);
    EXPECT_EQ(sent(store, root, later), "b a ");
}

TEST(CookieStore, AnExpiredCookieOnlyRemovesTheExistingOne) {
    CookieStore store;
    store.set(cookie("a"), now);
    EXPECT_FALSE(store.set(until(cookie("a"), now), now));
    EXPECT_EQ(store.count(), 0U);
    EXPECT_FALSE(store.set(until(cookie("b"), now), now));
    EXPECT_EQ(store.count(), 0U);
}

TEST(CookieStore, ACookieExpiresAtItsDate) {
    CookieStore store;
    store.set(until(cookie("a"), later), now);
    EXPECT_EQ(sent(store, root, later - std::chrono::seconds(1)), "a ");
    EXPECT_EQ(sent(store, root, later), "");
    EXPECT_TRUE(store.all(later).empty());
}

TEST(CookieStore, OnlyCookiesWithSubdomainsAreSentBelowTheirDomain) {
    CookieStore store;
    store.set(cookie("host"), now);
    store.set(withSubdomains(cookie("all")), now);
    EXPECT_EQ(sent(store), "host all ");
    EXPECT_EQ(sent(store, {.host = "a.b.example.org", .path = "/"}), "all ");
    EXPECT_EQ(sent(store, {.host = "org", .path = "/"}), "");
}

TEST(CookieStore, HostOnlyAndDomainCookiesAreDistinct) {
    CookieStore store;
    store.set(cookie("a"), now);
    store.set(withSubdomains(cookie("a")), now);
    EXPECT_EQ(store.count(), 2U);
    store.remove(cookie("a"));
    EXPECT_EQ(store.count(), 1U);
    EXPECT_TRUE(store.all(now).front().includesSubdomains);
}

TEST(CookieStore, SecureCookiesAreSentOverHttpsOnly) {
    CookieStore store;
    store.set(secured(cookie("a")), now);
    EXPECT_EQ(sent(store), "");
    EXPECT_EQ(sent(store, {.host = "example.org", .path = "/", .isSecure = true}), "a ");
}

TEST(CookieStore, ACookieHidesASecureOneForTheSameRequests) {
    CookieStore store;
    store.set(secured(withPath(withSubdomains(cookie("a")), "/x")), now);
    EXPECT_TRUE(store.wouldHideSecureCookie(withPath(cookie("a"), "/x/y"), now));
    EXPECT_TRUE(store.wouldHideSecureCookie(withPath(cookie("a", "www.example.org"), "/x"), now));
    EXPECT_TRUE(store.wouldHideSecureCookie(withPath(cookie("a", "org"), "/x"), now));
    EXPECT_FALSE(store.wouldHideSecureCookie(cookie("a"), now));
    EXPECT_FALSE(store.wouldHideSecureCookie(withPath(cookie("b"), "/x"), now));
    EXPECT_FALSE(store.wouldHideSecureCookie(withPath(cookie("a", "example.com"), "/x"), now));
    store.clear();
    store.set(cookie("a"), now);
    EXPECT_FALSE(store.wouldHideSecureCookie(cookie("a"), now));
    store.set(until(secured(cookie("a")), later), now);
    EXPECT_FALSE(store.wouldHideSecureCookie(cookie("a"), later));
}

TEST(CookieStore, RemovesOneOrAll) {
    CookieStore store;
    store.set(cookie("a"), now);
    store.set(cookie("b"), now);
    store.remove(cookie("c"));
    store.remove(cookie("a", "example.com"));
    EXPECT_EQ(store.count(), 2U);
    store.remove(cookie("a"));
    EXPECT_EQ(names(store.all(now)), "b ");
    store.clear();
    EXPECT_EQ(store.count(), 0U);
}

TEST(CookieStore, ADomainAboveItsLimitLosesTheLeastRecentlyUsedCookie) {
    CookieStore store({.perDomain = 3, .total = 100});
    for (const char* const path : {"/a", "/b", "/c"}) store.set(withPath(cookie(path), path), now);
    EXPECT_EQ(sent(store, {.host = "example.org", .path = "/a"}), "/a ");
    EXPECT_TRUE(store.set(withPath(cookie("/d"), "/d"), now));
    EXPECT_EQ(names(store.all(now)), "/a /c /d ");
}

TEST(CookieStore, ADomainAboveItsLimitLosesExpiredCookiesFirst) {
    CookieStore store({.perDomain = 3, .total = 100});
    store.set(cookie("old"), now);
    store.set(until(cookie("ended"), later), now);
    store.set(cookie("c"), now);
    store.set(cookie("d"), later);
    EXPECT_EQ(names(store.all(later)), "old c d ");
}

TEST(CookieStore, HttpCookiesDoNotEvictSecureOnes) {
    CookieStore store({.perDomain = 2, .total = 100});
    store.set(secured(cookie("a")), now);
    store.set(secured(cookie("b")), now);
    EXPECT_FALSE(store.set(cookie("c"), now));
    EXPECT_EQ(names(store.all(now)), "a b ");
}

TEST(CookieStore, AboveItsLimitLosesTheLeastRecentlyUsedCookieOfAnyDomain) {
    CookieStore store({.perDomain = 10, .total = 3});
    store.set(cookie("a", "a.org"), now);
    store.set(cookie("b", "b.org"), now);
    store.set(cookie("c", "c.org"), now);
    EXPECT_EQ(sent(store, {.host = "a.org", .path = "/"}), "a ");
    EXPECT_TRUE(store.set(cookie("d", "d.org"), now));
    EXPECT_EQ(names(store.all(now)), "a c d ");
    EXPECT_EQ(store.count(), 3U);
}

TEST(CookieStore, AboveItsLimitLosesExpiredCookiesFirst) {
    CookieStore store({.perDomain = 10, .total = 2});
    store.set(cookie("a", "a.org"), now);
    store.set(until(cookie("b", "b.org"), later), now);
    store.set(cookie("c", "c.org"), later);
    EXPECT_EQ(names(store.all(later)), "a c ");
}

TEST(CookieStore, HasTheLimitsOfTheStandardByDefault) {
    CookieStore store;
    for (int i = 0; i < 3100; ++i) {
        store.set(cookie("n" + std::to_string(i), "d" + std::to_string(i % 70) + ".org"), now);
    }
    EXPECT_EQ(store.count(), 3000U);
    for (int i = 0; i < 60; ++i) store.set(cookie("m" + std::to_string(i), "one.org"), now);
    EXPECT_EQ(store.matching({.host = "one.org", .path = "/"}, now).size(), 50U);
}

TEST(CookieStore, TracksChangesOfPersistentCookies) {
    CookieStore store;
    store.set(cookie("a"), now);
    EXPECT_FALSE(store.takePersistentChange());
    store.set(until(cookie("b"), later), now);
    EXPECT_TRUE(store.takePersistentChange());
    EXPECT_FALSE(store.takePersistentChange());
    store.set(cookie("b"), now);
    EXPECT_TRUE(store.takePersistentChange());
    store.remove(cookie("a"));
    EXPECT_FALSE(store.takePersistentChange());
    store.set(until(cookie("b"), later), now);
    static_cast<void>(store.takePersistentChange());
    store.clear();
    EXPECT_TRUE(store.takePersistentChange());
}

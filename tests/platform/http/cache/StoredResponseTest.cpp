#include "StoredResponses.h"

#include <gtest/gtest.h>

namespace VanticRestKit::test {

namespace {

using detail::HeaderFields;
using namespace std::chrono_literals;

TEST(StoredResponse, IsFreshForItsMaxAgeWhateverExpiresSays) {
    EXPECT_EQ(storedOf({{"Cache-Control", "max-age=60"}, {"Expires", dateAfter(-5)}})->lifetime(), 60s);
    EXPECT_EQ(storedOf({{"Cache-Control", "s-maxage=60, max-age=1"}})->lifetime(), 1s);
}

TEST(StoredResponse, IsFreshFromItsDateToItsExpires) {
    EXPECT_EQ(storedOf({{"Date", dateAfter(-10)}, {"Expires", dateAfter(20)}})->lifetime(), 30s);
    EXPECT_LE(storedOf({{"Date", dateAfter(400)}, {"Expires", dateAfter(300)}})->lifetime(), 0s);
    EXPECT_LE(storedOf({{"Expires", "0"}})->lifetime(), 0s);
}

TEST(StoredResponse, IsFreshForATenthOfTheTimeSinceItsChangeUpToADay) {
    EXPECT_EQ(storedOf({{"Date", dateAfter(0)}, {"Last-Modified", dateAfter(-1000)}})->lifetime(), 100s);
    EXPECT_EQ(storedOf({{"Last-Modified", dateAfter(-100'000'000)}})->lifetime(), 24h);
    EXPECT_EQ(storedOf({{"Last-Modified", dateAfter(1000)}})->lifetime(), 0s);
    EXPECT_EQ(storedOf({{"Last-Modified", dateAfter(-1000)}}, "", 503)->lifetime(), 0s);
    EXPECT_EQ(
        storedOf({{"Last-Modified", dateAfter(-1000)}, {"Cache-Control", "public"}}, "", 503)->lifetime(),
        100s);
}

TEST(StoredResponse, CountsItsAgeHeaderAndTheDelayOfTheResponse) {
    auto parts = partsOf({{"Age", "30"}});
    parts.received = after(2s);
    const detail::StoredResponse stored(parts);
    EXPECT_EQ(stored.age(after(2s)), 32s);
    EXPECT_EQ(stored.age(after(5s)), 35s);
}

TEST(StoredResponse, UsesTheFirstAgeOfAListAndIgnoresAMalformedOne) {
    EXPECT_EQ(storedOf({{"Age", "7200, 0"}})->age(after(0s)), 7200s);
    EXPECT_EQ(storedOf({{"Age", "-5"}})->age(after(0s)), 0s);
    EXPECT_EQ(storedOf({{"Age", "99999999999"}})->age(after(0s)), detail::maxDeltaSeconds);
}

TEST(StoredResponse, HasTheAgeOfItsDateIfThatIsGreater) {
    EXPECT_EQ(storedOf({{"Date", dateAfter(-40)}, {"Age", "10"}})->age(after(0s)), 40s);
}

TEST(StoredResponse, KeepsAgingIfTheClockIsSetBack) {
    const auto stored = storedOf({});
    const detail::CacheTime setBack{.wall = receivedAt - 1h, .steady = receivedAt + 5s};
    EXPECT_EQ(stored->age(setBack), 5s);
    const detail::CacheTime afterSleep{.wall = receivedAt + 1h, .steady = receivedAt + 5s};
    EXPECT_EQ(stored->age(afterSleep), 1h);
}

TEST(StoredResponse, FromAnEarlierProcessIsStaleIfItsTimeIsInTheFuture) {
    auto parts = partsOf({{"Cache-Control", "max-age=60"}});
    parts.requested = parts.received = {.wall = receivedAt, .steady = {}};
    const detail::StoredResponse stored(parts);
    const detail::CacheTime before{.wall = receivedAt - 1h, .steady = 5s};
    EXPECT_GT(stored.age(before), stored.lifetime());
    const detail::CacheTime later{.wall = receivedAt + 5s, .steady = 5h};
    EXPECT_EQ(stored.age(later), 5s);
}

TEST(StoredResponse, DropsConnectionHeadersAndAlwaysHasADate) {
    const auto stored = storedOf({{"Connection", "close, X-Hop"},
                                  {"Keep-Alive", "5"},
                                  {"Proxy-Authentication-Info", "a"},
                                  {"X-Hop", "1"},
                                  {"X-Own", "2"}});
    EXPECT_EQ(stored->fields(), (HeaderFields{{"Date", dateAfter(0)}, {"X-Own", "2"}}));
}

TEST(StoredResponse, DropsEveryHeaderThatIsForOneConnection) {
    for (const char* name :
         {"Connection", "keep-alive", "Proxy-Authenticate", "Proxy-Authentication-Info",
          "Proxy-Authorization", "Proxy-Connection", "TE", "Transfer-Encoding", "Upgrade"}) {
        EXPECT_EQ(storedOf({{name, "a"}, {"Date", dateAfter(0)}})->fields().size(), 1U) << name;
    }
    for (const char* name : {"Proxy-Status", "Trailer", "User-Agent", "Content-Type", "Key"}) {
        EXPECT_EQ(storedOf({{name, "a"}, {"Date", dateAfter(0)}})->fields().size(), 2U) << name;
    }
}

TEST(StoredResponse, DoesNotTakeConnectionHeadersOfAnUpdate) {
    const auto updated = detail::updated(
        *storedOf({}), {{"Connection", "X-Hop"}, {"X-Hop", "1"}, {"X-New", "2"}}, after({}), after({}));
    EXPECT_EQ(updated->fields(), (HeaderFields{{"Date", dateAfter(0)}, {"X-New", "2"}}));
}

TEST(StoredResponse, TakesTheHeadersOfAnUpdateExceptThoseOfTheBody) {
    const auto stored = storedOf({{"Age", "30"},
                                  {"Cache-Control", "max-age=1"},
                                  {"Content-Length", "4"},
                                  {"Date", dateAfter(-30)},
                                  {"X-Kept", "1"}});
    const HeaderFields fresh{{"cache-control", "max-age=9"},
                             {"Content-Encoding", "gzip"},
                             {"Content-Length", "0"},
                             {"ETag", "\"b\""}};
    const auto updated = detail::updated(*stored, fresh, after(10s), after(10s));
    EXPECT_EQ(updated->fields(), (HeaderFields{{"Cache-Control", "max-age=9"},
                                               {"Content-Length", "4"},
                                               {"Date", dateAfter(10)},
                                               {"ETag", "\"b\""},
                                               {"X-Kept", "1"}}));
    EXPECT_EQ(updated->body(), stored->body());
    EXPECT_EQ(updated->age(after(12s)), 2s);
}

TEST(StoredResponse, HasACostOfAtLeastItsSize) {
    const std::string large(10'000, 'x');
    EXPECT_GT(storedOf({}, large)->cost(), storedOf({}, "")->cost() + large.size());
    EXPECT_GT(storedOf({{"X-Large", large}})->cost(), storedOf({})->cost() + large.size());
}

}  // namespace

}  // namespace VanticRestKit::test

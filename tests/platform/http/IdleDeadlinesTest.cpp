#include <VanticRestKit/platform/http/detail/IdleDeadlines.h>

#include <gtest/gtest.h>

#include <array>
#include <limits>

using namespace VanticRestKit::detail;
using std::chrono::duration;
using std::chrono::seconds;

namespace {

const TimePoint start{seconds(1000)};

Idler idlerOf(seconds interval) {
    Idler idler;
    idler.setInterval(interval);
    return idler;
}

}  // namespace

TEST(IdleDeadlines, ExpireAfterTheInterval) {
    IdleDeadlines deadlines;
    Idler idler = idlerOf(seconds(10));
    deadlines.watch(idler, start);
    EXPECT_EQ(deadlines.next(), start + seconds(10));
    EXPECT_EQ(deadlines.takeExpired(start + seconds(9)), nullptr);
    EXPECT_EQ(deadlines.takeExpired(start + seconds(10)), &idler);
    EXPECT_EQ(deadlines.takeExpired(start + seconds(10)), nullptr) << "once";
    EXPECT_EQ(deadlines.next(), std::nullopt);
}

TEST(IdleDeadlines, ActivityRestartsTheInterval) {
    IdleDeadlines deadlines;
    Idler idler = idlerOf(seconds(10));
    deadlines.watch(idler, start);
    idler.moved(start + seconds(9));
    idler.moved(start + seconds(3));
    EXPECT_EQ(deadlines.takeExpired(start + seconds(18)), nullptr);
    EXPECT_EQ(deadlines.next(), start + seconds(19)) << "recomputed";
    EXPECT_EQ(deadlines.takeExpired(start + seconds(19)), &idler);
}

TEST(IdleDeadlines, ExpireInOrder) {
    IdleDeadlines deadlines;
    std::array<Idler, 3> idlers{idlerOf(seconds(30)), idlerOf(seconds(10)), idlerOf(seconds(10))};
    for (Idler& idler : idlers) deadlines.watch(idler, start);
    deadlines.forget(idlers[2]);
    EXPECT_EQ(deadlines.takeExpired(start + seconds(60)), &idlers[1]);
    EXPECT_EQ(deadlines.takeExpired(start + seconds(60)), &idlers[0]);
    EXPECT_EQ(deadlines.takeExpired(start + seconds(60)), nullptr);
    deadlines.forget(idlers[0]);
}

TEST(IdleDeadlines, ExpireInOrderOfTimeWhateverTheOrderOfInsertion) {
    IdleDeadlines deadlines;
    std::array<Idler, 5> idlers{idlerOf(seconds(20)), idlerOf(seconds(50)), idlerOf(seconds(10)),
                                idlerOf(seconds(40)), idlerOf(seconds(30))};
    for (Idler& idler : idlers) deadlines.watch(idler, start);
    deadlines.forget(idlers[3]);
    deadlines.forget(idlers[3]);
    for (const std::size_t next : {2U, 0U, 4U, 1U}) {
        EXPECT_EQ(deadlines.next(), idlers[next].deadline());
        EXPECT_EQ(deadlines.takeExpired(start + seconds(60)), &idlers[next]);
    }
    EXPECT_EQ(deadlines.next(), std::nullopt);
}

TEST(IdleDeadlines, AnExpiredIdlerCanBeWatchedAgainAfterActivity) {
    IdleDeadlines deadlines;
    Idler idler = idlerOf(seconds(10));
    deadlines.watch(idler, start);
    ASSERT_EQ(deadlines.takeExpired(start + seconds(10)), &idler);
    idler.moved(start + seconds(8));
    deadlines.resume(idler);
    EXPECT_EQ(deadlines.takeExpired(start + seconds(17)), nullptr);
    EXPECT_EQ(deadlines.takeExpired(start + seconds(18)), &idler);
}

TEST(IdleInterval, IsTheRequestsOrOtherwiseTheSessions) {
    const auto interval = [](double own, double fallback) {
        return duration<double>(idleInterval(duration<double>(own), duration<double>(fallback))).count();
    };
    EXPECT_DOUBLE_EQ(interval(12.5, 30), 12.5);
    EXPECT_DOUBLE_EQ(interval(0, 30), 30);
    EXPECT_DOUBLE_EQ(interval(-1, 30), 30);
    EXPECT_DOUBLE_EQ(interval(std::numeric_limits<double>::quiet_NaN(), 30), 30);
    EXPECT_DOUBLE_EQ(interval(0, 0), 60);
    EXPECT_DOUBLE_EQ(interval(1e-12, 30), 0.001);
}

TEST(IdleInterval, OfAnyLengthCanBeAddedToATimePoint) {
    for (const double length : {1e18, 1e300, std::numeric_limits<double>::infinity()}) {
        Idler idler;
        idler.setInterval(idleInterval(duration<double>(length), seconds(30)));
        idler.moved(Clock::now());
        EXPECT_GT(idler.deadline(), Clock::now() + std::chrono::hours(24 * 365));
    }
}

TEST(IdleDeadlines, AreShortenedOnlyWhileWatchedAndNeverExtended) {
    IdleDeadlines deadlines;
    Idler idler = idlerOf(seconds(10));
    deadlines.shorten(idler, seconds(5));
    EXPECT_EQ(idler.interval(), seconds(10));
    deadlines.watch(idler, start);
    deadlines.shorten(idler, seconds(20));
    EXPECT_EQ(deadlines.next(), start + seconds(10));
    deadlines.shorten(idler, seconds(5));
    EXPECT_EQ(deadlines.next(), start + seconds(5));
    EXPECT_EQ(idler.lastMoved(), start);
}

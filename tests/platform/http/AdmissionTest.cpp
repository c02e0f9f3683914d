#include <VanticRestKit/platform/http/detail/Admission.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

using namespace VanticRestKit::detail;

namespace {

/// Admits all that may start now. Returns how many.
int admitAll(Admission& admission) {
    int count = 0;
    while (admission.admitNext() != nullptr) ++count;
    return count;
}

}  // namespace

TEST(Admission, AdmitsAsManyAsThereAreConnections) {
    Admission admission(6);
    std::vector<Applicant> applicants(20);
    for (Applicant& applicant : applicants) admission.enqueue(applicant, "http://host:80");
    for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(admission.admitNext(), &applicants[i]);
    EXPECT_EQ(admission.admitNext(), nullptr);
    EXPECT_TRUE(applicants[6].isWaiting());
    admission.leave(applicants[3]);
    EXPECT_EQ(admission.admitNext(), &applicants[6]) << "first come, first served";
    EXPECT_EQ(admission.admitNext(), nullptr);
}

TEST(Admission, EachOriginHasItsOwnQueue) {
    Admission admission(1);
    std::vector<Applicant> applicants(4);
    admission.enqueue(applicants[0], "a");
    admission.enqueue(applicants[1], "a");
    admission.enqueue(applicants[2], "b");
    admission.enqueue(applicants[3], "b");
    EXPECT_EQ(admitAll(admission), 2);
    EXPECT_TRUE(applicants[1].isWaiting());
    EXPECT_TRUE(applicants[3].isWaiting());
}

TEST(Admission, AdmitsNoMoreThanItsLimitOverAllOrigins) {
    Admission admission(6, 10);
    std::vector<Applicant> applicants(40);
    for (std::size_t i = 0; i < applicants.size(); ++i) {
        admission.enqueue(applicants[i], "origin " + std::to_string(i));
    }
    EXPECT_EQ(admitAll(admission), 10);
    admission.leave(applicants[0]);
    EXPECT_EQ(admission.admitNext(), &applicants[10]);
    EXPECT_EQ(admission.admitNext(), nullptr);
    admission.learn(applicants[1], Carriage::many);
    admission.setAside(applicants[1], true);
    EXPECT_EQ(admission.admitNext(), nullptr) << "a request that is set aside still counts";
    admission.leave(applicants[1]);
    EXPECT_EQ(admitAll(admission), 1);
}

TEST(Admission, OriginsTakeTurns) {
    Admission admission(6, 4);
    std::vector<Applicant> crowd(20);
    for (Applicant& applicant : crowd) admission.enqueue(applicant, "crowded");
    Applicant single;
    admission.enqueue(single, "single");
    EXPECT_EQ(admission.admitNext(), &crowd[0]);
    EXPECT_EQ(admission.admitNext(), &single);
    EXPECT_EQ(admitAll(admission), 2);
    Applicant late;
    admission.enqueue(late, "late");
    admission.leave(crowd[0]);
    admission.leave(crowd[1]);
    const Applicant* const next = admission.admitNext();
    EXPECT_TRUE(next == &late || admission.admitNext() == &late)
        << "the crowded origin is not served first again";
}

TEST(Admission, AnOriginWithMultiplexingIsAllowedAHundred) {
    Admission admission(6);
    std::vector<Applicant> applicants(150);
    for (Applicant& applicant : applicants) admission.enqueue(applicant, "a");
    EXPECT_EQ(admitAll(admission), 6);
    EXPECT_EQ(admission.carriage(applicants[0]), Carriage::unknown);
    admission.learn(applicants[0], Carriage::many);
    EXPECT_EQ(admission.carriage(applicants[1]), Carriage::many);
    EXPECT_EQ(admitAll(admission), 94);
    admission.learn(applicants[0], Carriage::one);
    admission.leave(applicants[5]);
    EXPECT_EQ(admitAll(admission), 0) << "far more are in flight than are allowed now";
}

TEST(Admission, AnOriginThatRefusesConcurrentRequestsIsLimitedToItsConnections) {
    Admission admission(6);
    std::vector<Applicant> applicants(150);
    for (Applicant& applicant : applicants) admission.enqueue(applicant, "a");
    EXPECT_EQ(admitAll(admission), 6);
    admission.learn(applicants[0], Carriage::many);
    EXPECT_EQ(admitAll(admission), 94);
    admission.narrow(applicants[0]);
    for (std::size_t i = 0; i < 94; ++i) admission.leave(applicants[i]);
    EXPECT_EQ(admitAll(admission), 0) << "six are still in flight";
    admission.learn(applicants[99], Carriage::many);
    EXPECT_EQ(admitAll(admission), 0) << "one response does not raise the limit again";
    for (std::size_t i = 94; i < 100; ++i) admission.leave(applicants[i]);
    EXPECT_EQ(admitAll(admission), 6);
}

TEST(Admission, ARequestThatLeavesTheQueueIsNeverAdmitted) {
    Admission admission(1);
    std::vector<Applicant> applicants(3);
    for (Applicant& applicant : applicants) admission.enqueue(applicant, "a");
    EXPECT_EQ(admission.admitNext(), &applicants[0]);
    admission.leave(applicants[1]);
    admission.leave(applicants[1]);
    EXPECT_FALSE(applicants[1].isWaiting());
    admission.leave(applicants[0]);
    EXPECT_EQ(admission.admitNext(), &applicants[2]);
}

TEST(Admission, ARequestSetAsideFreesTheLimitForOtherConnections) {
    Admission admission(6);
    std::vector<Applicant> applicants(30);
    for (Applicant& applicant : applicants) admission.enqueue(applicant, "a");
    EXPECT_EQ(admitAll(admission), 6);
    admission.learn(applicants[0], Carriage::many);
    EXPECT_EQ(admitAll(admission), 24);
    for (std::size_t i = 0; i < 28; ++i) admission.setAside(applicants[i], true);
    EXPECT_TRUE(admission.hasSetAside(applicants[29]));
    std::vector<Applicant> more(10);
    for (Applicant& applicant : more) admission.enqueue(applicant, "a");
    EXPECT_EQ(admitAll(admission), 3) << "five other connections, two of them in use";
    for (std::size_t i = 0; i < 28; ++i) admission.setAside(applicants[i], false);
    EXPECT_FALSE(admission.hasSetAside(applicants[29]));
    EXPECT_EQ(admitAll(admission), 7);
}

TEST(Admission, ARequestSetAsideAndTakenBackCountsAsBefore) {
    Admission admission(3);
    std::vector<Applicant> applicants(6);
    for (Applicant& applicant : applicants) admission.enqueue(applicant, "a");
    admission.setAside(applicants[0], true);
    EXPECT_FALSE(admission.hasSetAside(applicants[0])) << "it waits";
    EXPECT_EQ(admitAll(admission), 3);
    admission.setAside(applicants[0], false);
    admission.setAside(applicants[0], true);
    EXPECT_TRUE(admission.hasSetAside(applicants[1]));
    EXPECT_EQ(admitAll(admission), 0) << "two other connections";
    admission.setAside(applicants[0], false);
    EXPECT_FALSE(admission.hasSetAside(applicants[1]));
    admission.leave(applicants[0]);
    EXPECT_EQ(admitAll(admission), 1);
    EXPECT_FALSE(admission.hasSetAside(applicants[0])) << "it has left";
}

TEST(Admission, ARequestThatHasLeftDoesNotAffectItsOrigin) {
    Admission admission(1);
    std::vector<Applicant> applicants(2);
    for (Applicant& applicant : applicants) admission.enqueue(applicant, "a");
    EXPECT_EQ(admitAll(admission), 1);
    admission.leave(applicants[0]);
    admission.learn(applicants[0], Carriage::many);
    admission.narrow(applicants[0]);
    admission.setAside(applicants[0], true);
    EXPECT_EQ(admission.carriage(applicants[0]), Carriage::unknown);
    EXPECT_EQ(admission.carriage(applicants[1]), Carriage::unknown);
    EXPECT_EQ(admitAll(admission), 1);
}

TEST(Admission, ForgetsOriginsThatAreIdle) {
    Admission admission(1);
    Applicant busy;
    admission.enqueue(busy, "busy");
    EXPECT_EQ(admitAll(admission), 1);
    Applicant aside;
    admission.enqueue(aside, "aside");
    EXPECT_EQ(admitAll(admission), 1);
    admission.learn(aside, Carriage::many);
    admission.setAside(aside, true);
    for (int i = 0; i < 2000; ++i) {
        Applicant passing;
        admission.enqueue(passing, "origin " + std::to_string(i));
        EXPECT_EQ(admission.admitNext(), &passing);
        admission.leave(passing);
    }
    Applicant second;
    admission.enqueue(second, "busy");
    EXPECT_EQ(admitAll(admission), 0) << "this origin is not forgotten";
    Applicant third;
    admission.enqueue(third, "aside");
    EXPECT_EQ(admission.carriage(third), Carriage::many) << "nor is this origin";
}

TEST(Admission, OriginsWaitIfTooManyLookupsAreInProgress) {
    Admission admission(6, 100, 2);
    std::vector<Applicant> applicants(4);
    for (std::size_t i = 0; i < 3; ++i)
        admission.enqueue(applicants[i], "http://host" + std::to_string(i) + ".test:80");
    EXPECT_EQ(admission.admitNext(), &applicants[0]);
    EXPECT_EQ(admission.admitNext(), &applicants[1]);
    EXPECT_EQ(admission.admitNext(), nullptr);
    admission.enqueue(applicants[3], "http://127.0.0.1:80");
    EXPECT_EQ(admission.admitNext(), &applicants[3]) << "an IP address needs no lookup";
    admission.endLookup(applicants[0]);
    EXPECT_EQ(admission.admitNext(), &applicants[2]);
    for (Applicant& applicant : applicants) admission.leave(applicant);
}

TEST(Admission, CountsTheRequestsThatWaitForAnOrigin) {
    Admission admission(1);
    std::vector<Applicant> applicants(3);
    EXPECT_EQ(admission.waitingFor("http://a"), 0U);
    for (Applicant& applicant : applicants) admission.enqueue(applicant, "http://a");
    EXPECT_EQ(admission.waitingFor("http://a"), 3U);
    EXPECT_EQ(admitAll(admission), 1);
    EXPECT_EQ(admission.waitingFor("http://a"), 2U);
    EXPECT_EQ(admission.waitingFor("http://b"), 0U);
    for (Applicant& applicant : applicants) admission.leave(applicant);
}

TEST(Admission, ARequestCanLeaveWhileItsOriginWaitsForALookup) {
    Admission admission(6, 100, 1);
    std::vector<Applicant> applicants(3);
    for (std::size_t i = 0; i < 3; ++i)
        admission.enqueue(applicants[i], "http://host" + std::to_string(i) + ".test:80");
    EXPECT_EQ(admission.admitNext(), &applicants[0]);
    EXPECT_EQ(admission.admitNext(), nullptr);
    admission.leave(applicants[1]);
    admission.leave(applicants[0]);
    EXPECT_EQ(admission.admitNext(), &applicants[2]);
    admission.learnAddress(applicants[2], TimePoint::max());
    admission.enqueue(applicants[1], "http://host1.test:80");
    EXPECT_EQ(admission.admitNext(), &applicants[1]);
    for (Applicant& applicant : applicants) admission.leave(applicant);
}

TEST(Admission, ChangesNothingForAnApplicantThatNeverEntered) {
    Admission admission(1, 1, 1);
    Applicant outside, inside;
    admission.endLookup(outside);
    admission.learnAddress(outside, TimePoint(std::chrono::hours(1)));
    admission.learn(outside, Carriage::many);
    admission.narrow(outside);
    admission.forgetAddress(outside);
    admission.setAside(outside, true);
    admission.leave(outside);
    EXPECT_FALSE(admission.knowsAddress(outside, TimePoint()));
    EXPECT_FALSE(admission.hasSetAside(outside));
    EXPECT_EQ(admission.carriage(outside), Carriage::unknown);
    admission.enqueue(inside, "http://host:80");
    EXPECT_EQ(admission.admitNext(), &inside);
}

#include "Client.h"

namespace VanticRestKit::test {

namespace {

using nlohmann::json;

constexpr long midnight = 1'790'035'200;  // 2026-09-22 00:00 UTC
constexpr long hour = 3'600;

void setClock(const SampleService& service, long now) {
    ASSERT_FALSE(service.control("PUT", "/_control/clock", json{{"now", now}}.dump()).is_null());
}

json schedule(const SampleService& service, const std::string& houseNumber, long now) {
    setClock(service, now);
    return get(service, "/v2/nownext/" + houseNumber);
}

TEST(SampleSchedule, IsTheSameAtTheSameTime) {
    const SampleService one, other;
    EXPECT_EQ(schedule(one, "ONE0001", midnight + 19 * hour),
              schedule(other, "ONE0001", midnight + 19 * hour));
}

TEST(SampleSchedule, TheNextProgrammeBecomesTheCurrentOneAllDay) {
    const SampleService service;
    long now = midnight + 6 * hour;
    for (auto current = schedule(service, "TWO0001", now); now < midnight + 31 * hour;) {
        ASSERT_TRUE(current.contains("next")) << current;
        ASSERT_LE(current["now"]["start"].get<long>(), now);
        ASSERT_GT(current["now"]["end"].get<long>(), now);
        ASSERT_EQ(current["now"]["duration"].get<long>(),
                  current["now"]["end"].get<long>() - current["now"]["start"].get<long>());
        ASSERT_EQ(current["next"]["start"], current["now"]["end"]);
        EXPECT_EQ(schedule(service, "TWO0001", current["now"]["end"].get<long>() - 1), current);
        now = current["next"]["start"].get<long>();
        const auto following = schedule(service, "TWO0001", now);
        EXPECT_EQ(following["now"], current["next"]);
        current = following;
    }
}

TEST(SampleSchedule, TheChildrensChannelIsClosedFromEightToSix) {
    const SampleService service;
    const auto night = schedule(service, "KIDS0001", midnight + 23 * hour);
    EXPECT_EQ(night["now"]["eventType"], "OFFAIR");
    EXPECT_EQ(night["now"]["start"], midnight + 20 * hour);
    EXPECT_EQ(night["now"]["end"], midnight + 30 * hour);
    EXPECT_EQ(night["next"]["eventType"], "ONAIR");
    EXPECT_EQ(schedule(service, "KIDS0001", midnight + 20 * hour - 1)["next"], night["now"]);
}

TEST(SampleSchedule, TheWestIsTwoHoursLater) {
    const SampleService service;
    const auto east = schedule(service, "LIVE0001", midnight + 12 * hour)["now"];
    const auto west = schedule(service, "LIVE0001WA", midnight + 14 * hour)["now"];
    EXPECT_EQ(west["displaySubtitle"], east["displaySubtitle"]);
    EXPECT_EQ(west["start"], east["start"].get<long>() + 2 * hour);
}

TEST(SampleSchedule, ExistsOnlyForLiveChannels) {
    const SampleService service;
    EXPECT_EQ(clientOf(service).Get("/v2/nownext/HL0101")->status, 404);
    EXPECT_EQ(clientOf(service).Get("/v2/nownext/none")->status, 404);
}

TEST(SampleClock, StopsAtTheSetTimeAndRunsAgainAfterAReset) {
    const SampleService service;
    setClock(service, midnight);
    EXPECT_EQ(get(service, "/v2/time"), json(static_cast<double>(midnight)));
    service.control("DELETE", "/_control/clock");
    EXPECT_NE(get(service, "/v2/time"), json(static_cast<double>(midnight)));
}

TEST(SampleClock, RejectsAnInvalidTime) {
    const SampleService service;
    for (const char* body : {"", "{}", "12", R"({"now":"noon"})", R"({"now":-1})"}) {
        EXPECT_TRUE(service.control("PUT", "/_control/clock", body).is_null()) << body;
    }
}

}  // namespace

}  // namespace VanticRestKit::test

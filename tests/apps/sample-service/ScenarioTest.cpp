#include "Client.h"

#include <support/Sockets.h>

#include <sstream>
#include <thread>

namespace VanticRestKit::test {

namespace {

/// A service with scenarios.
struct Scenarios : SampleService {
    Scenarios() : SampleService({"--scenarios"}) {}

    int choose(const std::string& name) const {
        const auto answer = clientOf(*this).Post("/control/fault?name=" + name);
        return answer ? answer->status : 0;
    }

    std::vector<nlohmann::json> records() const {
        std::istringstream lines(clientOf(*this).Get("/control/log")->body);
        std::vector<nlohmann::json> result;
        for (std::string line; std::getline(lines, line);) result.push_back(nlohmann::json::parse(line));
        return result;
    }
};

int statusOf(const SampleService& service, const std::string& path, const httplib::Headers& headers = {}) {
    const auto answer = clientOf(service).Get(path, headers);
    return answer ? answer->status : 0;
}

bool hasBroken(const nlohmann::json& items) {
    return std::any_of(items.begin(), items.end(), [](const auto& item) { return !item.is_object(); });
}

bool hasUnknown(const nlohmann::json& items) {
    return std::any_of(items.begin(), items.end(), [](const auto& item) {
        return item.is_object() && item.value("_entity", "") == "game";
    });
}

TEST(SampleScenario, IsOffByDefault) {
    const SampleService service;
    EXPECT_EQ(statusOf(service, "/control/fault"), 404);
    EXPECT_EQ(clientOf(service).Post("/control/fault?name=500")->status, 404);
    EXPECT_EQ(statusOf(service, "/control/log"), 404);
    EXPECT_EQ(statusOf(service, "/v2/time"), 200);
}

TEST(SampleScenario, LastsUntilAnotherIsChosen) {
    const Scenarios service;
    EXPECT_EQ(service.choose("500"), 200);
    EXPECT_EQ(get(service, "/control/fault")["name"], "500");
    for (int i = 0; i < 3; ++i) EXPECT_EQ(statusOf(service, "/v2/home"), 500);
    EXPECT_EQ(service.choose("none"), 200);
    EXPECT_EQ(statusOf(service, "/v2/home"), 200);
}

TEST(SampleScenario, AnInvalidNameOrDelayIsRejectedWithoutAChange) {
    const Scenarios service;
    service.choose("500");
    EXPECT_EQ(service.choose("nonsense"), 400);
    EXPECT_EQ(service.choose("slow&seconds=-1"), 400);
    EXPECT_EQ(service.choose("slow&seconds=nan"), 400);
    EXPECT_EQ(get(service, "/control/fault")["name"], "500");
}

TEST(SampleScenario, OfflineClosesTheConnectionWithoutAResponse) {
    const Scenarios service;
    service.choose("offline");
    EXPECT_EQ(statusOf(service, "/v2/time"), 0);
    EXPECT_EQ(statusOf(service, "/hls/main.m3u8"), 0);
    EXPECT_EQ(service.records().at(0)["status"], 0);
    EXPECT_EQ(service.records().at(0)["clientLeft"], false);
}

TEST(SampleScenario, ASlowResponseIsDelayed) {
    const Scenarios service;
    service.choose("slow&seconds=0.3");
    EXPECT_EQ(statusOf(service, "/v2/time"), 200);
    EXPECT_GE(service.records().at(0)["milliseconds"], 290);
}

TEST(SampleScenario, PicturesAndStreamsWorkIfDocumentsAreBroken) {
    const Scenarios service;
    for (const char* name : {"500", "not-json"}) {
        service.choose(name);
        EXPECT_EQ(statusOf(service, "/pictures/show/harbour-lights/portrait.svg"), 200);
        EXPECT_EQ(statusOf(service, "/hls/main.m3u8"), 200);
    }
    EXPECT_TRUE(get(service, "/v2/home").is_discarded());
}

TEST(SampleScenario, ARowLosesItsTitle) {
    const Scenarios service;
    service.choose("row-without-title");
    const auto rows = get(service, "/v2/home")["_embedded"]["collections"];
    EXPECT_TRUE(rows[1]["title"].is_null());
    EXPECT_TRUE(rows[0]["title"].is_string());
}

TEST(SampleScenario, UnknownEntitiesAndBrokenElementsAreSeparateScenarios) {
    const Scenarios service;
    const auto itemsOfARow = [&] { return get(service, "/v2/home")["_embedded"]["collections"][1]["items"]; };
    service.choose("unknown-entities");
    EXPECT_TRUE(hasUnknown(itemsOfARow()));
    EXPECT_FALSE(hasBroken(itemsOfARow()));
    service.choose("broken-elements");
    EXPECT_FALSE(hasUnknown(itemsOfARow()));
    EXPECT_TRUE(hasBroken(itemsOfARow()));
}

TEST(SampleScenario, AnExpiredTokenIsRejectedOnlyWhenUsed) {
    const Scenarios service;
    service.choose("expired-token");
    EXPECT_EQ(statusOf(service, "/v2/home"), 200);
    EXPECT_NE(statusOf(service, "/v2/token?UID=ann"), 401);
    EXPECT_EQ(statusOf(service, "/v2/home", {{"Authorization", "Bearer x"}}), 401);
}

TEST(SampleScenario, ARecordNotesThatTheClientDisconnectedEarly) {
    const Scenarios service;
    service.choose("slow&seconds=600");
    Socket client = connectToLoopback(service.port());
    const std::string request = "GET /v2/search?q=a HTTP/1.1\r\nHost: localhost\r\n\r\n";
    ASSERT_TRUE(sendAll(client.descriptor(), request.data(), request.size()));
    while (service.log().empty()) std::this_thread::yield();
    client.close();
    while (service.records().empty()) std::this_thread::yield();
    const auto record = service.records().at(0);
    EXPECT_EQ(record["target"], "/v2/search?q=a");
    EXPECT_EQ(record["method"], "GET");
    EXPECT_EQ(record["clientLeft"], true);
    EXPECT_EQ(clientOf(service).Delete("/control/log")->status, 200);
    EXPECT_TRUE(service.records().empty());
}

}  // namespace

}  // namespace VanticRestKit::test

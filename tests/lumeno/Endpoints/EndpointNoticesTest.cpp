// Requests for schedules, livestreams, messages, alerts and paths, and the handling of the responses.

#include <lumeno/Endpoints/Sent.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Message/Message.h>
#include <VanticRestKit/lumeno/Message/MessageRoutes.h>
#include <VanticRestKit/lumeno/NowNext/LivestreamRegion.h>
#include <VanticRestKit/lumeno/NowNext/NowNext.h>
#include <VanticRestKit/lumeno/ProductAlert/ProductAlert.h>
#include <VanticRestKit/lumeno/Remap/Remap.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>
#include <VanticRestKit/platform/host/HostInformation.h>

namespace VanticRestKit {
namespace {

using test::answered;
using test::CatalogueContext;
using test::expectErrors;
using test::sent;
using Items = std::vector<URLQueryItem>;

TEST(EndpointNowNext, RequestsTheScheduleOfAHouseNumber) {
    EXPECT_EQ(sent([](const Context& context) { return Endpoint::NowNext({.houseNumber = "N1"}, context); }),
              "GET https://api.example.test/v2/nownext/N1");
}

TEST(EndpointNowNext, DecodesASchedule) {
    const auto make = [](const Context& context) {
        return Endpoint::NowNext({.houseNumber = "N1"}, context);
    };
    const CatalogueContext context;
    const auto schedule = answered(
        context, make(context),
        R"({"next":{"houseNumber":"h","displayTitle":"t","displaySubtitle":"s","start":1,"end":2,"duration":3,)"
        R"("playable":true,"captions":false,"eventType":"OFFAIR","_entity":"e"}})");
    ASSERT_TRUE(schedule);
    EXPECT_EQ(schedule->now, std::nullopt);
    ASSERT_TRUE(schedule->next);
    EXPECT_EQ(schedule->next->eventType, NowNextContainer::EventType::OFFAIR);
    expectErrors(make, R"({"now":{}})");
}

TEST(EndpointLivestreams, RequestsARegionOrTheWholeCountry) {
    EXPECT_EQ(
        sent([](const Context& context) { return Endpoint::Livestreams({.region = std::nullopt}, context); }),
        "GET https://api.example.test/v2/livestreams");
    EXPECT_EQ(sent([](const Context& context) {
                  return Endpoint::Livestreams({.region = LivestreamRegion::NSW}, context);
              }),
              "GET https://api.example.test/v2/livestreams/nsw");
}

TEST(EndpointLivestreams, DecodesAListOfVideos) {
    const auto make = [](const Context& context) {
        return Endpoint::Livestreams({.region = LivestreamRegion::ACT}, context);
    };
    const CatalogueContext context;
    const auto list = answered(context, make(context), R"({"items":[{"id":"a","_links":{}}]})");
    ASSERT_TRUE(list);
    ASSERT_EQ(list->videos.size(), 1U);
    EXPECT_EQ(list->videos[0].videoId, "a");
    expectErrors(make, "[]");
}

class TestHost final : public HostInformation {
public:
    std::optional<std::string> applicationVersion() const override { return "1.2+3"; }
    std::string systemVersion() const override { return "17.0"; }
    std::string machine() const override { return "Box7,1"; }
};

TEST(EndpointMessages, DescribesApplicationAndDeviceWithAnEncodedSpaceInTheName) {
    HostInformation::supply(std::make_shared<TestHost>());
    EXPECT_EQ(sent([](const Context& context) {
                  return Endpoint::Messages({.appId = MessagesAppId::lumenoInternational, .loggedIn = true},
                                            context);
              }),
              "GET https://api.example.test/v2/messages?appId=lumeno%20int&appVersion=1.2+3&platform=ios"
              "&platformVersion=17.0&device=Box7,1&authStatus=true");
    EXPECT_EQ(sent([](const Context& context) {
                  return Endpoint::Messages({.appId = MessagesAppId::kidslumeno, .loggedIn = false}, context);
              }),
              "GET https://api.example.test/v2/messages?appId=kids&appVersion=1.2+3&platform=ios"
              "&platformVersion=17.0&device=Box7,1&authStatus=false");
    HostInformation::supply(nullptr);
}

TEST(EndpointMessages, DecodesAList) {
    const auto make = [](const Context& context) {
        return Endpoint::Messages({.appId = MessagesAppId::lumeno, .loggedIn = true}, context);
    };
    const CatalogueContext context;
    const auto messages = answered(context, make(context), R"([{},{"id":7,"title":"t"}])");
    ASSERT_TRUE(messages);
    EXPECT_EQ(*messages, (std::vector<Message>{{}, {.messageId = 7, .title = "t"}}));
    expectErrors(make, "[{},7]");
    expectErrors(make, "{}");
}

TEST(EndpointProductAlert, RequestsTheAlertById) {
    EXPECT_EQ(
        sent([](const Context& context) { return Endpoint::ProductAlert({.alertId = "a b"}, context); }),
        "GET https://api.example.test/v2/alert/a%20b");
}

TEST(EndpointProductAlert, DecodesAnAlert) {
    const auto make = [](const Context& context) {
        return Endpoint::ProductAlert({.alertId = "7"}, context);
    };
    const CatalogueContext context;
    const auto alert = answered(context, make(context), R"({"id":"7","title":"t","message":"m"})");
    ASSERT_TRUE(alert);
    EXPECT_EQ(*alert, (ProductAlert{.id = "7", .title = "t", .message = "m"}));
    expectErrors(make, R"({"id":"7","title":"t"})");
}

TEST(EndpointRemap, AppendsItsQueryItemsInOrderToTheQueryOfTheBaseURL) {
    for (const char* const path : {"/video/x", "video/x"}) {
        CatalogueContext context;
        context.base = URL("https://api.example.test/base?key=1");
        const Items items = {{"b", "2"}, {"a", "1&"}, {"none", std::nullopt}};
        EXPECT_EQ(test::sentFor(context, Endpoint::Remap({.path = path, .queryItems = items}, context)),
                  "GET https://api.example.test/base/v2/remap/video/x?key=1&b=2&a=1%26&none");
    }
    EXPECT_EQ(sent([](const Context& context) {
                  return Endpoint::Remap({.path = "", .queryItems = Items()}, context);
              }),
              "GET https://api.example.test/v2/remap/");
}

TEST(EndpointRemap, DecodesPaths) {
    const auto make = [](const Context& context) {
        return Endpoint::Remap({.path = "x", .queryItems = Items()}, context);
    };
    const CatalogueContext context;
    const auto remap = answered(context, make(context),
                                R"({"status":"ok","_links":{"api":{"href":"a"},"deeplink":{"href":"d"}}})");
    ASSERT_TRUE(remap);
    EXPECT_EQ(remap->status, "ok");
    EXPECT_EQ(remap->apiHref, "a");
    EXPECT_EQ(remap->deeplinkHref, "d");
    expectErrors(make, R"({"status":"ok","_links":{"api":{"href":"a"}}})");
}

TEST(EndpointsOfNotices, AreAbsentIfTheContextMakesNoRequest) {
    const test::NoRequestContext context;
    EXPECT_FALSE(Endpoint::NowNext({.houseNumber = "a"}, context));
    EXPECT_FALSE(Endpoint::Livestreams({.region = std::nullopt}, context));
    EXPECT_FALSE(Endpoint::Messages({.appId = MessagesAppId::lumeno, .loggedIn = true}, context));
    EXPECT_FALSE(Endpoint::ProductAlert({.alertId = "a"}, context));
    EXPECT_FALSE(Endpoint::Remap({.path = "a", .queryItems = Items()}, context));
}

}  // namespace
}  // namespace VanticRestKit

#include "ServiceContext.h"

#include "support/SampleService.h"

#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Message/Message.h>
#include <VanticRestKit/lumeno/Message/MessageRoutes.h>
#include <VanticRestKit/lumeno/NowNext/LivestreamRegion.h>
#include <VanticRestKit/lumeno/NowNext/NowNext.h>
#include <VanticRestKit/lumeno/ProductAlert/ProductAlert.h>
#include <VanticRestKit/lumeno/Remap/Remap.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>

#include <gmock/gmock.h>

namespace VanticRestKit::test {

namespace {

using ::testing::ElementsAre;

constexpr std::uint64_t noon = 1'790'078'400;  // 2026-09-22 12:00 UTC

class SampleServiceLive : public ::testing::Test {
protected:
    std::optional<NowNext> scheduleAt(std::uint64_t now, const std::string& houseNumber) const {
        service.control("PUT", "/_control/clock", nlohmann::json{{"now", now}}.dump());
        return valueOf(Endpoint::NowNext({.houseNumber = houseNumber}, context));
    }

    std::vector<std::string> livestreams(std::optional<LivestreamRegion> region) const {
        std::vector<std::string> houseNumbers;
        const auto list = valueOf(Endpoint::Livestreams({.region = region}, context));
        for (const auto& video : list ? list->videos : std::vector<Video>()) {
            EXPECT_EQ(video.subtype, LumenoSubtype::livestream);
            EXPECT_TRUE(video.playable);
            houseNumbers.push_back(video.houseNumber.value_or("-"));
        }
        return houseNumbers;
    }

    SampleService service;
    ServiceContext context{service.baseURL()};
};

TEST_F(SampleServiceLive, TheNextProgrammeLaterBecomesTheCurrentOne) {
    const auto before = scheduleAt(noon, "TWO0001");
    ASSERT_TRUE(before && before->now && before->next);
    EXPECT_LE(before->now->start, noon);
    EXPECT_GT(before->now->end, noon);
    EXPECT_EQ(before->now->duration, before->now->end - before->now->start);
    EXPECT_EQ(before->next->start, before->now->end);
    const auto after = scheduleAt(before->next->start, "TWO0001");
    ASSERT_TRUE(after && after->now);
    EXPECT_EQ(after->now, before->next);
    EXPECT_NE(after->now->displayTitle + after->now->displaySubtitle,
              before->now->displayTitle + before->now->displaySubtitle);
}

TEST_F(SampleServiceLive, AClosedChannelReportsThat) {
    const auto night = scheduleAt(noon + 10 * 3'600, "KIDS0001");
    ASSERT_TRUE(night && night->now && night->next);
    EXPECT_EQ(night->now->eventType, NowNextContainer::EventType::OFFAIR);
    EXPECT_FALSE(night->now->playable);
    EXPECT_FALSE(night->now->description);
    EXPECT_EQ(night->next->eventType, NowNextContainer::EventType::ONAIR);
}

TEST_F(SampleServiceLive, LivestreamsCoverTheCountryOrARegion) {
    EXPECT_THAT(livestreams(std::nullopt),
                ElementsAre("LIVE0001", "ONE0001", "TWO0001", "PLUS0001", "KIDS0001"));
    for (const auto region :
         {LivestreamRegion::ACT, LivestreamRegion::SA, LivestreamRegion::NSW, LivestreamRegion::VIC,
          LivestreamRegion::WA, LivestreamRegion::NT, LivestreamRegion::QLD, LivestreamRegion::TAS}) {
        EXPECT_EQ(livestreams(region).size(), 5U);
    }
    EXPECT_EQ(livestreams(LivestreamRegion::WA).front(), "LIVE0001WA");
}

TEST_F(SampleServiceLive, MessagesDependOnTheApplicationAndTheUser) {
    const auto titles = [&](MessagesAppId appId, bool loggedIn) {
        std::vector<std::string> found;
        const auto messages = valueOf(Endpoint::Messages({.appId = appId, .loggedIn = loggedIn}, context));
        for (const auto& message : messages.value_or(std::vector<Message>())) {
            found.push_back(message.title.value_or("-"));
        }
        return found;
    };
    EXPECT_THAT(titles(MessagesAppId::lumeno, false), ElementsAre("The new home screen", "Keep your place"));
    EXPECT_THAT(titles(MessagesAppId::kidslumeno, true),
                ElementsAre("The new home screen", "Bedtime", "Your list"));
    EXPECT_THAT(titles(MessagesAppId::lumenoInternational, true),
                ElementsAre("The new home screen", "Watching abroad", "Your list"));
}

TEST_F(SampleServiceLive, AnAlertIsFoundByItsIdWithItsLink) {
    const auto storm = valueOf(Endpoint::ProductAlert({.alertId = "storm"}, context));
    ASSERT_TRUE(storm && storm->link);
    EXPECT_EQ(storm->title, "Storm warning for the coast");
    EXPECT_EQ(storm->status, "important");
    const auto video = valueOf(Endpoint::Video({.usingHref = storm->link->href}, context));
    EXPECT_EQ(video->houseNumber, "LIVE0001");
    const auto moved = valueOf(Endpoint::ProductAlert({.alertId = "moved"}, context));
    ASSERT_TRUE(moved);
    EXPECT_FALSE(moved->link);
}

TEST_F(SampleServiceLive, AWebPageIsMappedToAPathOfTheAPI) {
    const auto remapped = [&](const std::string& path, std::vector<URLQueryItem> items) {
        return valueOf(Endpoint::Remap({.path = path, .queryItems = std::move(items)}, context));
    };
    const auto show = remapped("/programs/harbour-lights", {{"from", "mail"}, {"video", "HL0102"}});
    ASSERT_TRUE(show);
    EXPECT_EQ(show->status, "moved");
    EXPECT_EQ(show->apiHref, "/show/harbour-lights/video/HL0102");
    EXPECT_EQ(show->deeplinkHref, "vantic://show/harbour-lights/video/HL0102");
    const auto unknown = remapped("show/nobody", {});
    ASSERT_TRUE(unknown);
    EXPECT_EQ(unknown->status, "unknown");
    EXPECT_EQ(unknown->apiHref, "");
}

}  // namespace

}  // namespace VanticRestKit::test

#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/NowNext/NowNext.h>
#include <VanticRestKit/platform/json/Diagnosis.h>

#include <platform/json/FieldRules.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;
using test::Strictness;

/// The members of a programme, each with a different value.
std::string programme(const std::string& more = "") {
    return R"({"houseNumber":"h","displayTitle":"t","displaySubtitle":"s","start":1,"end":2,"duration":3,)"
           R"("playable":true,"captions":false,"eventType":"ONAIR","_entity":"e")" +
           (more.empty() ? "" : "," + more) + "}";
}

NowNextContainer container() {
    return {.houseNumber = "h",
            .displayTitle = "t",
            .displaySubtitle = "s",
            .start = 1,
            .end = 2,
            .duration = 3,
            .playable = true,
            .captions = false,
            .eventType = NowNextContainer::EventType::ONAIR,
            .entity = "e"};
}

test::EntityRules containers() {
    return {.type = test::decodable<NowNextContainer>,
            .minimal = programme(),
            .fields = {{"houseNumber", "houseNumber", Strictness::required, test::text()},
                       {"displayTitle", "displayTitle", Strictness::required, test::text()},
                       {"displaySubtitle", "displaySubtitle", Strictness::required, test::text()},
                       {"description", "description", Strictness::lenient, test::text()},
                       {"start", "start", Strictness::required, test::unsignedNumber()},
                       {"end", "end", Strictness::required, test::unsignedNumber()},
                       {"duration", "duration", Strictness::required, test::unsignedNumber()},
                       {"playable", "playable", Strictness::required, test::flag()},
                       {"captions", "captions", Strictness::required, test::flag()},
                       {"classification", "classification", Strictness::lenient, test::text()},
                       {"eventType", "eventType", Strictness::required, test::rawText("OFFAIR", "OFFAIR")},
                       {"entity", "_entity", Strictness::required, test::text()}}};
}

test::Shape slot() {
    NowNextContainer shown = container();
    shown.description = "$";
    return test::objectOf(
        {{programme(R"("description":"$")"), valueText(shown)},
         {programme(R"("description":1)"), valueText(container())}},
        {{"{}", "keyNotFound", "/houseNumber"},
         {programme(R"("x":1)").replace(2, 11, "HouseNumber"), "keyNotFound", "/houseNumber"}});
}

test::EntityRules schedules() {
    return {.type = test::decodable<NowNext>,
            .minimal = "{}",
            .fields = {{"now", "now", Strictness::optional, slot()},
                       {"next", "next", Strictness::optional, slot()}}};
}

TEST(NowNextContainer, HasTwelveFields) {
    ASSERT_EQ(containers().fields.size(), 12U);
    test::expectDeclaredFields(containers());
}

TEST(NowNextContainer, ReadsEachFieldFromItsKeyAndRequiresAllButTwo) {
    test::expectFieldsInEveryState(containers());
}

TEST(NowNextContainer, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<NowNextContainer>); }

TEST(NowNextContainer, FailsWithTheErrorOfTheFirstFaultyField) {
    test::expectErrorsInOrder(containers(), {{"houseNumber", "1"},
                                             {"displayTitle", "null"},
                                             {"displaySubtitle", "[]"},
                                             {"start", "-1"},
                                             {"end", "\"2\""},
                                             {"duration", "1.5"},
                                             {"playable", "1"},
                                             {"captions", "\"true\""},
                                             {"eventType", "\"SOON\""},
                                             {"_entity", "{}"}});
}

TEST(NowNextContainer, ReadsTheDescriptionBeforeTheSubtitle) {
    // The order of the reported faults shows the order of reading.
    const Diagnosis diagnosis = diagnose<NowNextContainer>(
        Data(R"({"houseNumber":"h","displayTitle":"t","displaySubtitle":1,"description":2})"));
    ASSERT_EQ(diagnosis.faults.size(), 2U);
    EXPECT_EQ(diagnosis.faults[0].path, (CodingPath{std::string("description")}));
    EXPECT_EQ(diagnosis.faults[0].became, "empty");
    EXPECT_EQ(diagnosis.faults[1].path, (CodingPath{std::string("displaySubtitle")}));
    EXPECT_EQ(diagnosis.faults[1].became, "failure");
}

TEST(NowNextContainer, IgnoresADescriptionOfAWrongType) {
    EXPECT_EQ(decoded<NowNextContainer>(programme(R"("description":7)")), container());
    EXPECT_EQ(decoded<NowNextContainer>(programme(R"("classification":["M"])")), container());
}

TEST(NowNextContainer, FailsForASubtitleOfAWrongType) {
    EXPECT_EQ(failureOf<NowNextContainer>(R"({"houseNumber":"h","displayTitle":"t","displaySubtitle":7})"),
              R"(typeMismatch ["displaySubtitle"])");
}

TEST(NowNextContainer, HasThreeKindsOfEventsWithTheirRawValues) {
    using EventType = NowNextContainer::EventType;
    const auto typeOf = [](const std::string& text) {
        const std::string json = programme();
        const std::size_t at = json.find("ONAIR");
        const auto made = decoded<NowNextContainer>(json.substr(0, at) + text + json.substr(at + 5));
        return made ? std::optional(made->eventType) : std::nullopt;
    };
    EXPECT_EQ(typeOf("ONAIR"), EventType::ONAIR);
    EXPECT_EQ(typeOf("OFFAIR"), EventType::OFFAIR);
    EXPECT_EQ(typeOf("NOSTREAM"), EventType::NOSTREAM);
    ASSERT_EQ(std::size(RawTexts<EventType>::cases), 3U);
    for (const char* const unknown : {"", "onair", "SOON", "ONAIR "})
        EXPECT_EQ(typeOf(unknown), std::nullopt) << unknown;
}

TEST(NowNextContainer, AcceptsAnyEntity) {
    for (const char* const entity : {"video", "", "anything"}) {
        std::string json = programme();
        json.replace(json.find("\"_entity\":\"e\"") + 11, 1, entity);
        const auto made = decoded<NowNextContainer>(json);
        ASSERT_TRUE(made) << entity;
        EXPECT_EQ(made->entity, entity);
    }
}

TEST(NowNextContainer, CanBeInitializedInDeclaredOrder) {
    const NowNextContainer made{.houseNumber = "a",
                                .displayTitle = "b",
                                .displaySubtitle = "c",
                                .description = "d",
                                .start = 18446744073709551615U,
                                .end = 2,
                                .duration = 3,
                                .playable = true,
                                .captions = false,
                                .classification = "e",
                                .eventType = NowNextContainer::EventType::NOSTREAM,
                                .entity = "f"};
    EXPECT_EQ(valueText(made),
              R"({"houseNumber":"a","displayTitle":"b","displaySubtitle":"c","description":"d",)"
              R"("start":18446744073709551615,"end":2,"duration":3,"playable":true,"captions":false,)"
              R"("classification":"e","eventType":"NOSTREAM","entity":"f"})");
    NowNextContainer other = made;
    EXPECT_EQ(other, made);
    other.captions = true;
    EXPECT_NE(other, made);
}

TEST(NowNext, HasTwoFields) { test::expectDeclaredFields(schedules()); }

TEST(NowNext, CanOmitAProgrammeButFailsForAFaultyOne) { test::expectFieldsInEveryState(schedules()); }

TEST(NowNext, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<NowNext>); }

TEST(NowNext, HasNoProgrammesForAnEmptyObject) {
    EXPECT_EQ(decoded<NowNext>("{}"), NowNext{});
    EXPECT_EQ(decoded<NowNext>(R"({"now":null,"next":null})"), NowNext{});
}

TEST(NowNext, FailsForOneProgrammeWithoutItsEntity) {
    std::string bad = programme();
    bad.replace(bad.find(",\"_entity\":\"e\""), 14, "");
    EXPECT_EQ(failureOf<NowNext>(R"({"now":)" + bad + R"(,"next":)" + programme() + "}"),
              R"(keyNotFound ["now","_entity"])");
    EXPECT_EQ(failureOf<NowNext>(R"({"now":)" + programme() + R"(,"next":)" + bad + "}"),
              R"(keyNotFound ["next","_entity"])");
}

TEST(NowNext, FailsForAnEventOfAnUnknownKind) {
    std::string bad = programme();
    bad.replace(bad.find("ONAIR"), 5, "SOON");
    EXPECT_EQ(failureOf<NowNext>(R"({"next":)" + bad + "}"), R"(dataCorrupted ["next","eventType"])");
}

TEST(NowNext, FailsForAStartBeforeZero) {
    std::string bad = programme();
    bad.replace(bad.find("\"start\":1"), 9, "\"start\":-1");
    EXPECT_EQ(failureOf<NowNext>(R"({"now":)" + bad + "}"), R"(dataCorrupted ["now","start"])");
}

TEST(NowNext, ReadsNowBeforeNext) {
    test::expectErrorsInOrder(schedules(), {{"now", "1"}, {"next", "{}"}});
    test::expectErrorsInOrder(schedules(), {{"now", "{}"}, {"next", "[]"}});
}

TEST(NowNext, CanBeInitializedWithItsProgrammes) {
    const NowNext schedule{.now = container(), .next = std::nullopt};
    EXPECT_EQ(decoded<NowNext>(R"({"now":)" + programme() + "}"), schedule);
    EXPECT_NE(schedule, (NowNext{.now = std::nullopt, .next = container()}));
}

}  // namespace
}  // namespace VanticRestKit

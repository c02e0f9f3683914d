#include <gtest/gtest.h>
#include <VanticRestKit/kavro/KAVROSegmentsModel.h>

#include <platform/json/FieldRules.h>
#include <iterator>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::Strictness;

/// A list of names that keeps the known ones. A faulty element does not empty the list.
test::Shape names(const std::string& raw, const std::string& name) {
    const std::string known = "\"" + raw + "\"";
    const std::string shown = "\"" + name + "\"";
    const std::string one = "[" + shown + "]";
    return {
        .empty = "[]",
        .fits = {{"[" + known + "]", one},
                 {"[" + known + ",\"other\"]", one},
                 {"[\"other\"," + known + "]", one},
                 {"[null," + known + ",7,{\"a\":[" + known + "]},[" + known + "],true,\"\",\"\\ud800\",01]",
                  one},
                 {"[" + known + "," + known + "]", "[" + shown + "," + shown + "]"},
                 {"[\"other\",\"" + name + "\"]", "[]"},
                 {"[]", "[]"}},
        .unfit = {{"7"}, {"true"}, {known}, {"{}"}, {"{\"0\":" + known + "}"}, {"{\"\\ud800\":1}"}}};
}

test::EntityRules models() {
    return {.type = test::decodable<KAVROSegmentsModel>,
            .minimal = R"({"user_id":"u"})",
            .fields = {{"activeAudiences", "active_audiences", Strictness::lenient,
                        names("vantic_main_127", "lumenoGenreFavourite180DVanticKids")},
                       {"activeBadges", "active_badges", Strictness::lenient, names("7832", "iOSUser")},
                       {"userId", "user_id", Strictness::required, test::text()}}};
}

constexpr KAVROActiveAudiences kids = KAVROActiveAudiences::lumenoGenreFavourite180DVanticKids;

TEST(KAVROActiveAudiences, HasOneCase) {
    EXPECT_EQ(std::size(RawTexts<KAVROActiveAudiences>::cases), 1U);
    EXPECT_EQ(rawValue(kids), "vantic_main_127");
    EXPECT_EQ(caseName(kids), "lumenoGenreFavourite180DVanticKids");
    EXPECT_EQ(fromRawValue<KAVROActiveAudiences>("vantic_main_127"), kids);
    EXPECT_EQ(fromRawValue<KAVROActiveAudiences>("vantic_main_128"), std::nullopt);
}

TEST(KAVROActiveBadges, HasOneCase) {
    EXPECT_EQ(std::size(RawTexts<KAVROActiveBadges>::cases), 1U);
    EXPECT_EQ(rawValue(KAVROActiveBadges::iOSUser), "7832");
    EXPECT_EQ(caseName(KAVROActiveBadges::iOSUser), "iOSUser");
    EXPECT_EQ(fromRawValue<KAVROActiveBadges>("7832"), KAVROActiveBadges::iOSUser);
    EXPECT_EQ(fromRawValue<KAVROActiveBadges>("iOSUser"), std::nullopt);
}

TEST(KAVROSegmentsModel, HasThreeFieldsInDeclaredOrder) {
    test::expectDeclaredFields(models());
    const KAVROSegmentsModel model{
        .activeAudiences = {kids}, .activeBadges = {KAVROActiveBadges::iOSUser}, .userId = "u"};
    EXPECT_EQ(decoded<KAVROSegmentsModel>(
                  R"({"user_id":"u","active_badges":["7832"],"active_audiences":["vantic_main_127"]})"),
              model);
}

TEST(KAVROSegmentsModel, FailsOnlyForItsUserId) { test::expectFieldsInEveryState(models()); }

TEST(KAVROSegmentsModel, KeepsTheKnownAudiences) {
    const auto model = decoded<KAVROSegmentsModel>(
        R"({"user_id":"u","active_audiences":["vantic_main_127","vantic_main_1"]})");
    ASSERT_TRUE(model);
    EXPECT_EQ(model->activeAudiences, std::vector{kids});
}

TEST(KAVROSegmentsModel, HasNoBadgesWithoutAList) {
    for (const char* const json :
         {R"({"user_id":"u"})", R"({"user_id":"u","active_badges":null})",
          R"({"user_id":"u","active_badges":"7832"})", R"({"user_id":"u","active_badges":{}})"}) {
        const auto model = decoded<KAVROSegmentsModel>(json);
        ASSERT_TRUE(model) << json;
        EXPECT_TRUE(model->activeBadges.empty()) << json;
    }
}

TEST(KAVROSegmentsModel, DecodesWithoutAnyKnownAudience) {
    const auto model = decoded<KAVROSegmentsModel>(
        R"({"active_audiences":["a","b"],"active_badges":[7832,null,["7832"]],"user_id":""})");
    EXPECT_EQ(model, KAVROSegmentsModel{});
}

TEST(KAVROSegmentsModel, FailsWithoutAUserId) {
    EXPECT_EQ(test::failureOf<KAVROSegmentsModel>(R"({"active_audiences":[],"userId":"u"})"),
              R"(keyNotFound ["user_id"])");
    EXPECT_EQ(test::failureOf<KAVROSegmentsModel>(R"({"user_id":7832})"), R"(typeMismatch ["user_id"])");
}

TEST(KAVROSegmentsModel, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<KAVROSegmentsModel>); }

}  // namespace
}  // namespace VanticRestKit

#include <gtest/gtest.h>
#include <VanticRestKit/recs/RecommendationModule.h>

#include <platform/json/FieldRules.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;
using test::Strictness;

test::EntityRules modules() {
    return {.type = test::decodable<RecommendationModule>,
            .minimal = R"({"moduleid":"m","variantid":"v","label":"l","recommendations":[]})",
            .fields = {{"moduleid", "moduleid", Strictness::required, test::text()},
                       {"variantid", "variantid", Strictness::required, test::text()},
                       {"label", "label", Strictness::required, test::text()},
                       {"recommendations", "recommendations", Strictness::required,
                        test::listOf("[]",
                                     {{R"([{"rid":"$","recipeid":"a"},{"recipeid":"b","rid":""}])",
                                       R"([{"rid":"$","recipeid":"a"},{"rid":"","recipeid":"b"}])"},
                                      {"[]", "[]"}},
                                     {R"({"rid":"x","recipeid":7})", "typeMismatch", "/recipeid"})}}};
}

TEST(RecommendationModule, HasFourFieldsInDeclaredOrder) {
    test::expectDeclaredFields(modules());
    const RecommendationModule module{.moduleid = "m",
                                      .variantid = "v",
                                      .label = "For you",
                                      .recommendations = {{.rid = "lumeno://program/5", .recipeid = "r"}}};
    EXPECT_EQ(decoded<RecommendationModule>(
                  R"({"recommendations":[{"rid":"lumeno://program/5","recipeid":"r"}],"label":"For you",)"
                  R"("variantid":"v","moduleid":"m"})"),
              module);
}

TEST(RecommendationModule, RequiresAllFields) { test::expectFieldsInEveryState(modules()); }

TEST(RecommendationModule, ReadsItsKeysInDeclaredOrder) {
    test::expectErrorsInOrder(
        modules(), {{"moduleid", "7"}, {"variantid", "null"}, {"label", "[]"}, {"recommendations", "{}"}});
}

TEST(RecommendationModule, FailsIfOneRecommendationLacksItsRid) {
    const std::string head = R"({"moduleid":"m","variantid":"v","label":"l","recommendations":[)";
    EXPECT_EQ(failureOf<RecommendationModule>(head + R"({"rid":"a","recipeid":"r"},{"recipeid":"r"}]})"),
              R"(keyNotFound ["recommendations",1,"rid"])");
    EXPECT_EQ(
        failureOf<RecommendationModule>(head + R"({"rid":"a","recipeid":"r"},{"rid":"b","recipeid":"r"}]})"),
        "");
}

TEST(RecommendationModule, MustBeAnObject) {
    test::expectAnObjectOnly(test::decodable<RecommendationModule>);
}

}  // namespace
}  // namespace VanticRestKit

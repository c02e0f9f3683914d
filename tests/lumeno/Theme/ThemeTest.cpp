#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Status/Status.h>
#include <VanticRestKit/lumeno/Theme/Theme.h>

#include <platform/json/FieldRules.h>

namespace VanticRestKit {
namespace {

using test::Strictness;

test::EntityRules phrases() {
    return {.type = test::decodable<ContextualPhrases>,
            .minimal = "{}",
            .fields = {{"channel", "channel", Strictness::optional, test::optionalTexts()},
                       {"genre", "genre", Strictness::optional, test::optionalTexts()},
                       {"subGenre", "subGenre", Strictness::optional, test::optionalTexts()},
                       {"theme", "theme", Strictness::optional, test::optionalTexts()},
                       {"mood", "mood", Strictness::optional, test::optionalTexts()},
                       {"audience", "audience", Strictness::optional, test::optionalTexts()},
                       {"need", "need", Strictness::optional, test::optionalTexts()},
                       {"other", "other", Strictness::optional, test::optionalTexts()}}};
}

TEST(ContextualPhrases, HasEightFields) { test::expectDeclaredFields(phrases()); }

TEST(ContextualPhrases, ReadsEachFieldFromItsKeyOrLeavesItEmptyOrFails) {
    test::expectFieldsInEveryState(phrases());
}

TEST(ContextualPhrases, MustBeAnObject) { test::expectAnObjectOnly(test::decodable<ContextualPhrases>); }

TEST(ContextualPhrases, FailsWithTheErrorOfTheFirstFaultyField) {
    test::expectErrorsInOrder(phrases(), {{"channel", "1"},
                                          {"genre", "\"x\""},
                                          {"subGenre", "[1]"},
                                          {"theme", "{}"},
                                          {"mood", "[null]"},
                                          {"audience", "true"},
                                          {"need", "[[]]"},
                                          {"other", "\"\""}});
}

TEST(ContextualPhrases, FailsIfAFieldIsAStringInsteadOfAList) {
    EXPECT_EQ(test::failureOf<ContextualPhrases>(R"({"mood":"bright"})"), R"(typeMismatch ["mood"])");
}

TEST(ContextualPhrases, DistinguishesAnEmptyGroupFromNone) {
    const auto phrases = test::decoded<ContextualPhrases>(R"({"mood":[],"need":null})");
    ASSERT_TRUE(phrases);
    EXPECT_EQ(phrases->mood, std::vector<std::string>());
    EXPECT_EQ(phrases->need, std::nullopt);
    EXPECT_EQ(phrases->other, std::nullopt);
}

TEST(ContextualPhrases, CanBeInitializedInDeclaredOrder) {
    const ContextualPhrases phrases{.channel = {{"a"}},
                                    .genre = {{"b"}},
                                    .subGenre = {{"c"}},
                                    .theme = {{"d"}},
                                    .mood = {{"e"}},
                                    .audience = {{"f"}},
                                    .need = {{"g"}},
                                    .other = {{"h"}}};
    EXPECT_EQ(valueText(phrases),
              R"({"channel":["a"],"genre":["b"],"subGenre":["c"],"theme":["d"],"mood":["e"],)"
              R"("audience":["f"],"need":["g"],"other":["h"]})");
    EXPECT_EQ(phrases, test::decoded<ContextualPhrases>(valueText(phrases)));
    EXPECT_NE(phrases, ContextualPhrases{});
}

/// Expects exactly these cases with these raw values, in case order.
template <class E>
void expectCases(const std::vector<std::pair<E, std::string>>& cases) {
    ASSERT_EQ(std::size(RawTexts<E>::cases), cases.size());
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const auto& [value, raw] = cases[i];
        EXPECT_EQ(RawTexts<E>::cases[i].value, value);
        EXPECT_EQ(rawValue(value), raw);
        EXPECT_EQ(fromRawValue<E>(raw), value);
        EXPECT_EQ(static_cast<std::size_t>(value), i);
    }
    for (const char* const unknown : {"", "Default", "LIGHT", "default ", "nonsense", "default_"}) {
        EXPECT_EQ(fromRawValue<E>(unknown), std::nullopt) << unknown;
    }
}

TEST(Theme, IsReadOnlyFromItsRawValues) {
    expectCases<Theme>({{Theme::default_, "default"}, {Theme::light, "light"}});
}

TEST(StatusTheme, IsReadOnlyFromItsRawValues) {
    expectCases<StatusTheme>({{StatusTheme::default_, "default"}, {StatusTheme::live, "live"}});
}

TEST(LumenoSubtype, IsReadOnlyFromItsRawValues) {
    expectCases<LumenoSubtype>({{LumenoSubtype::livestream, "livestream"},
                                {LumenoSubtype::episode, "episode"},
                                {LumenoSubtype::series, "series"},
                                {LumenoSubtype::feature, "feature"},
                                {LumenoSubtype::trailer, "trailer"}});
}

TEST(Theme, ShowsTheNameOfItsCase) {
    EXPECT_EQ(caseName(Theme::default_), "default");
    EXPECT_EQ(caseName(StatusTheme::default_), "default");
    EXPECT_EQ(caseName(StatusTheme::live), "live");
    EXPECT_EQ(caseName(LumenoSubtype::feature), "feature");
}

}  // namespace
}  // namespace VanticRestKit

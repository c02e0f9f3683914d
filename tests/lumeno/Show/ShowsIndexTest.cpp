#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Show/ShowsIndex.h>

#include <platform/json/FieldRules.h>
#include <support/TemporaryZone.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;
using test::Strictness;

const Show emptyShow{.theme = Theme::default_};

/// A show that has a summary.
std::string summable(const std::string& slug) {
    return R"({"id":1,"thumbnail":"t","updated":"2020-01-02 03:04:05","slug":")" + slug +
           R"(","_links":{"self":{"href":"/show/)" + slug + R"("}}})";
}

/// The only group of an index with these shows.
ShowsGrouped groupOf(const std::string& shows) {
    const auto index = decoded<ShowsIndex>(R"({"items":[{"name":"A","items":[)" + shows + "]}]}");
    EXPECT_TRUE(index && index->groups.size() == 1) << shows;
    return index && !index->groups.empty() ? index->groups[0] : ShowsGrouped{};
}

std::string groupText(const std::string& name, const std::string& shows) {
    return R"({"groupingName":")" + name + R"(","shows":)" + shows + R"(,"showSummaries":[]})";
}

test::EntityRules indexes() {
    return {.type = test::decodable<ShowsIndex>,
            .minimal = R"({"items":[]})",
            .fields = {{"groups", "items", Strictness::required,
                        test::listOf("[]",
                                     {{R"([{"name":"$","items":[]},{"items":[{}],"name":""}])",
                                       "[" + groupText("$", "[]") + "," +
                                           groupText("", "[" + valueText(emptyShow) + "]") + "]"},
                                      {"[]", "[]"}},
                                     {R"({"name":"A"})", "keyNotFound", "/items"})},
                       {"alertId", "_links.alert.id", Strictness::lenient, test::text()}},
            .containers = {{"_links", Strictness::lenient}, {"_links.alert", Strictness::lenient}}};
}

/// All fields except the summaries, which have no key.
test::EntityRules groups() {
    return {.type = test::decodable<ShowsGrouped>,
            .minimal = R"({"name":"A","items":[]})",
            .fields = {{"groupingName", "name", Strictness::required, test::text()},
                       {"shows", "items", Strictness::required,
                        test::listOf("[]",
                                     {{R"([{"title":"$"},{}])",
                                       "[" + valueText(Show{.title = "$", .theme = Theme::default_}) + "," +
                                           valueText(emptyShow) + "]"},
                                      {"[]", "[]"}},
                                     {"7"})}}};
}

TEST(ShowsIndex, HasTwoFieldsInDeclaredOrder) { test::expectDeclaredFields(indexes()); }

TEST(ShowsIndex, NeedsItsGroupsButNoAlert) {
    test::expectFieldsInEveryState(indexes());
    test::expectContainersInEveryState(indexes());
    test::expectAnObjectOnly(test::decodable<ShowsIndex>);
}

TEST(ShowsIndex, CanHaveNoGroups) { EXPECT_EQ(decoded<ShowsIndex>(R"({"items":[]})"), ShowsIndex{}); }

TEST(ShowsIndex, FailsWithoutItems) {
    EXPECT_EQ(failureOf<ShowsIndex>("{}"), R"(keyNotFound ["items"])");
    EXPECT_EQ(failureOf<ShowsIndex>(R"({"groups":[]})"), R"(keyNotFound ["items"])");
}

TEST(ShowsIndex, FailsWithoutTheItemsOfAGroup) {
    EXPECT_EQ(failureOf<ShowsIndex>(R"({"items":[{"name":"A"}]})"), R"(keyNotFound ["items",0,"items"])");
    EXPECT_EQ(failureOf<ShowsIndex>(R"({"items":[{"name":"A","items":[]},{"name":"B","items":null}]})"),
              R"(valueNotFound ["items",1,"items"])");
}

TEST(ShowsIndex, FailsWithoutTheNameOfAGroup) {
    EXPECT_EQ(failureOf<ShowsIndex>(R"({"items":[{"items":[]}]})"), R"(keyNotFound ["items",0,"name"])");
    EXPECT_EQ(failureOf<ShowsIndex>(R"({"items":[{"name":1,"items":[]}]})"),
              R"(typeMismatch ["items",0,"name"])");
}

TEST(ShowsIndex, FailsForOneShowOfAnotherEntity) {
    const test::Outcome outcome = test::outcomeOf(
        test::decodable<ShowsIndex>,
        R"({"items":[{"name":"A","items":[{}]},{"name":"B","items":[{},{"_entity":"video"}]}]})");
    EXPECT_EQ(outcome.failure, R"(Show expects a "show" entity type, but found "video")");
    EXPECT_EQ(outcome.path, R"(["items",1,"items",1])");
    std::optional<Error> error;
    EXPECT_FALSE(decoded<ShowsIndex>(R"({"items":[{"name":"A","items":[{"_entity":"video"}]}]})", &error));
    ASSERT_TRUE(error);
    EXPECT_NE(error->as<Show::DecodingError>(), nullptr);
}

TEST(ShowsIndex, FailsIfOneShowIsNotAnObject) {
    EXPECT_EQ(failureOf<ShowsIndex>(R"({"items":[{"name":"A","items":[{},7]}]})"),
              R"(typeMismatch ["items",0,"items",1])");
}

TEST(ShowsIndex, HasNoAlertWithoutLinks) {
    for (const char* const links :
         {"\"x\"", "{}", "{\"alert\":\"x\"}", "{\"alert\":{}}", "{\"alert\":{\"id\":7}}", "null"}) {
        EXPECT_EQ(decoded<ShowsIndex>(R"({"items":[],"_links":)" + std::string(links) + "}"), ShowsIndex{})
            << links;
    }
    const auto index = decoded<ShowsIndex>(R"({"items":[],"_links":{"alert":{"id":"7"}}})");
    ASSERT_TRUE(index);
    EXPECT_EQ(index->alertId, "7");
}

TEST(ShowsIndex, KeepsTheOrderOfTheService) {
    const auto index = decoded<ShowsIndex>(
        R"({"items":[{"name":"Z","items":[{"title":"2"},{"title":"1"}]},{"name":"A","items":[]},{"name":"Z","items":[]}]})");
    ASSERT_TRUE(index);
    ASSERT_EQ(index->groups.size(), 3U);
    EXPECT_EQ(index->groups[0].groupingName, "Z");
    EXPECT_EQ(index->groups[0].shows[0].title, "2");
    EXPECT_EQ(index->groups[0].shows[1].title, "1");
    EXPECT_EQ(index->groups[1].groupingName, "A");
    EXPECT_EQ(index->groups[2].groupingName, "Z");
}

TEST(ShowsIndex, CanBeInitializedWithItsFields) {
    const ShowsIndex index{.groups = {{.groupingName = "A"}}, .alertId = "7"};
    EXPECT_EQ(valueText(index), R"({"groups":[)" + groupText("A", "[]") + R"(],"alertId":"7"})");
    EXPECT_NE(index, ShowsIndex{});
}

TEST(ShowsGrouped, NeedsANameAndShows) {
    test::expectFieldsInEveryState(groups());
    test::expectAnObjectOnly(test::decodable<ShowsGrouped>);
    test::expectErrorsInOrder(groups(), {{"name", "1"}, {"items", "[1]"}});
}

TEST(ShowsGrouped, KeepsAShowWithoutASummary) {
    const ShowsGrouped group = groupOf("{}");
    EXPECT_EQ(group.shows, std::vector<Show>{emptyShow});
    EXPECT_TRUE(group.showSummaries.empty());
}

TEST(ShowsGrouped, KeepsAShowWithAnInvalidDateWithoutASummary) {
    const ShowsGrouped group = groupOf(
        R"({"id":1,"thumbnail":"t","updated":"2020-01-02T03:04:05Z","_links":{"self":{"href":"/show/x"}}})");
    ASSERT_EQ(group.shows.size(), 1U);
    EXPECT_EQ(group.shows[0].selfHref, "/show/x");
    EXPECT_TRUE(group.showSummaries.empty());
}

TEST(ShowsGrouped, SummarisesItsShowsInOrderAndOmitsThoseThatCannotBe) {
    const ShowsGrouped group =
        groupOf(summable("c") + ",{}," + summable("a") + R"(,{"id":7},)" + summable("b"));
    EXPECT_EQ(group.shows.size(), 5U);
    ASSERT_EQ(group.showSummaries.size(), 3U);
    EXPECT_EQ(group.showSummaries[0].href, "/show/c");
    EXPECT_EQ(group.showSummaries[1].href, "/show/a");
    EXPECT_EQ(group.showSummaries[2].href, "/show/b");
}

TEST(ShowsGrouped, SummarisesAShowWithoutTitlesWithUnderscores) {
    const test::TemporaryZone utc("UTC0");
    const ShowsGrouped group = groupOf(summable("x"));
    ASSERT_EQ(group.showSummaries.size(), 1U);
    EXPECT_EQ(
        valueText(group.showSummaries[0]),
        R"({"id":"0","title":"_","displayTitle":"_","updated":"2020-01-02T03:04:05Z","href":"/show/x","thumbnail":"t",)"
        R"("portraitThumbnailHref":null,"characterThumbnaiHref":null,"derivedShowSlug":"x"})");
}

TEST(ShowsGrouped, DoesNotReadSummariesFromTheDocument) {
    const auto group =
        decoded<ShowsGrouped>(R"({"name":"A","items":[],"showSummaries":[{"id":"1","href":"x"}]})");
    ASSERT_TRUE(group);
    EXPECT_TRUE(group->showSummaries.empty());
}

TEST(ShowsGrouped, InitializedByFieldsHasTheGivenSummaries) {
    const Show show = groupOf(summable("x")).shows.at(0);
    const ShowsGrouped without{.groupingName = "A", .shows = {show}};
    EXPECT_TRUE(without.showSummaries.empty());
    const auto summary = ShowSummary::make({.fromShow = show});
    ASSERT_TRUE(summary);
    const ShowsGrouped with{.groupingName = "B", .shows = {}, .showSummaries = {*summary, *summary}};
    EXPECT_EQ(with.showSummaries.size(), 2U);
    EXPECT_NE(with, (ShowsGrouped{.groupingName = "B"}));
}

}  // namespace
}  // namespace VanticRestKit

#include <gtest/gtest.h>
#include <lumeno/Search/ShowLists.h>
#include <VanticRestKit/lumeno/Search/SearchResults.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::failureOf;
using test::Strictness;

test::EntityRules results() {
    return {.type = test::decodable<SearchResults>,
            .minimal = R"({"results":{},"_meta":{}})",
            .fields = {{"keyword", "_meta.keyword", Strictness::lenient, test::text()},
                       {"items", "results.items", Strictness::lenient, test::showList()}},
            .containers = {{"results", Strictness::required}, {"_meta", Strictness::required}}};
}

TEST(SearchResults, HasTwoFieldsInDeclaredOrder) { test::expectDeclaredFields(results()); }

TEST(SearchResults, CanOmitItsFieldsButNotTheirObjects) {
    test::expectFieldsInEveryState(results());
    test::expectContainersInEveryState(results());
    test::expectAnObjectOnly(test::decodable<SearchResults>);
}

TEST(SearchResults, NeedsOnlyItsTwoObjects) {
    EXPECT_EQ(decoded<SearchResults>(R"({"results":{},"_meta":{}})"), SearchResults{});
    EXPECT_EQ(failureOf<SearchResults>("{}"), R"(keyNotFound ["results"])");
}

TEST(SearchResults, FailsWithoutTheFactsAlthoughTheKeywordIsOptional) {
    EXPECT_EQ(failureOf<SearchResults>(R"({"results":{"items":[]}})"), R"(keyNotFound ["_meta"])");
    EXPECT_EQ(failureOf<SearchResults>(R"({"results":{"items":[]},"_meta":"x"})"),
              R"(typeMismatch ["_meta"])");
}

TEST(SearchResults, FailsWithoutTheResults) {
    EXPECT_EQ(failureOf<SearchResults>(R"({"_meta":{"keyword":"x"}})"), R"(keyNotFound ["results"])");
    EXPECT_EQ(failureOf<SearchResults>(R"({"_meta":{"keyword":"x"},"results":[]})"),
              R"(typeMismatch ["results"])");
}

TEST(SearchResults, ReadsTheResultsBeforeTheFactsWhateverTheirOrder) {
    test::expectErrorsInOrder(results(), {{"results", "[]"}, {"_meta", "7"}});
}

TEST(SearchResults, HasNoItemsIfOneFails) {
    for (const char* const bad : {"7", "null", "[]", R"({"_entity":"video"})"}) {
        EXPECT_EQ(decoded<SearchResults>(R"({"results":{"items":[{},)" + std::string(bad) +
                                         R"(,{}]},"_meta":{"keyword":"x"}})"),
                  SearchResults{.keyword = "x"})
            << bad;
    }
}

TEST(SearchResults, KeepsItsItemsIfTheKeywordIsNotAString) {
    EXPECT_EQ(decoded<SearchResults>(R"({"_meta":{"keyword":7},"results":{"items":[{}]}})"),
              (SearchResults{.items = {test::emptyShow()}}));
}

TEST(SearchResults, ReadsKeywordAndItemsOnlyFromTheirObjects) {
    EXPECT_EQ(
        decoded<SearchResults>(
            R"({"keyword":"x","items":[{}],"results":{"keyword":"x"},"_meta":{"items":[{}]},"meta":{"keyword":"x"}})"),
        SearchResults{});
}

TEST(SearchResults, CanBeInitializedWithKeywordAndItems) {
    const SearchResults made{.keyword = "x", .items = {test::emptyShow()}};
    EXPECT_EQ(decoded<SearchResults>(R"({"_meta":{"keyword":"x"},"results":{"items":[{}]}})"), made);
}

}  // namespace
}  // namespace VanticRestKit

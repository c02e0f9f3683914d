#include <gtest/gtest.h>
#include <lumeno/Search/ShowLists.h>
#include <VanticRestKit/lumeno/Search/RelatedShowList.h>
#include <VanticRestKit/platform/json/TypePlan.h>

namespace VanticRestKit {
namespace {

using test::decoded;

test::EntityRules lists() {
    return {.type = test::decodable<RelatedShowList>,
            .least = "{}",
            .fields = {{"items", "items", test::Word::lenient, test::showList()}}};
}

TEST(RelatedShowList, HasOneFieldThatMayFail) {
    test::expectDeclaredFields(lists());
    test::expectFieldsInEveryState(lists());
}

TEST(RelatedShowList, FailsOnlyWhereItIsNoObject) {
    test::expectAnObjectOnly(test::decodable<RelatedShowList>);
}

TEST(RelatedShowList, MayBeAnEmptyObject) { EXPECT_EQ(decoded<RelatedShowList>("{}"), RelatedShowList{}); }

TEST(RelatedShowList, HasNoShowsAtAllWhereOneIsOfAnotherEntityAndDoesNotFail) {
    EXPECT_EQ(decoded<RelatedShowList>(R"({"items":[{"_entity":"video"}]})"), RelatedShowList{});
    EXPECT_EQ(decoded<RelatedShowList>(R"({"items":[{},{},{"_entity":"video"}]})"), RelatedShowList{});
}

TEST(RelatedShowList, NeverReadsItsLinks) {
    for (const char* const links : {"7", "null", "{}", "{\"\\ud800\":7}", "[{\"self\":{\"href\":\"x\"}}]"}) {
        EXPECT_EQ(decoded<RelatedShowList>(R"({"_links":)" + std::string(links) + R"(,"items":[{}]})"),
                  (RelatedShowList{.items = {test::emptyShow()}}))
            << links;
    }
}

TEST(RelatedShowList, KeepsItsLinksInItsTableAsTheOneKeyThatNobodyReads) {
    std::vector<std::string_view> unread;
    for (const FieldPlan& field : planOf<RelatedShowList>().object->fields) {
        if (field.role == RowRole::unread) unread.push_back(field.key);
    }
    EXPECT_EQ(unread, std::vector<std::string_view>{"_links"});
}

TEST(RelatedShowList, IsMadeOfItsShows) {
    const RelatedShowList list{.items = {Show{.title = "t"}}};
    EXPECT_EQ(list.items.at(0).title, "t");
    EXPECT_NE(list, RelatedShowList{});
}

}  // namespace
}  // namespace VanticRestKit

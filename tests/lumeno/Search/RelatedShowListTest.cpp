#include <gtest/gtest.h>
#include <lumeno/Search/ShowLists.h>
#include <VanticRestKit/lumeno/Search/RelatedShowList.h>

namespace VanticRestKit {
namespace {

using test::decoded;

test::EntityRules lists() {
    return {.type = test::decodable<RelatedShowList>,
            .minimal = "{}",
            .fields = {{"items", "items", test::Strictness::lenient, test::showList()}}};
}

TEST(RelatedShowList, HasOneField) {
    test::expectDeclaredFields(lists());
    test::expectFieldsInEveryState(lists());
}

TEST(RelatedShowList, FailsOnlyIfItIsNotAnObject) {
    test::expectAnObjectOnly(test::decodable<RelatedShowList>);
}

TEST(RelatedShowList, CanBeAnEmptyObject) { EXPECT_EQ(decoded<RelatedShowList>("{}"), RelatedShowList{}); }

TEST(RelatedShowList, HasNoShowsIfOneIsAnotherEntity) {
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

TEST(RelatedShowList, ListsItsLinksAsItsOnlyIgnoredKey) {
    EXPECT_EQ(test::ignoredKeys(planOf<RelatedShowList>()), std::vector<std::string>{"_links"});
}

TEST(RelatedShowList, CanBeInitializedWithItsShows) {
    const RelatedShowList list{.items = {Show{.title = "t"}}};
    EXPECT_EQ(list.items.at(0).title, "t");
    EXPECT_NE(list, RelatedShowList{});
}

}  // namespace
}  // namespace VanticRestKit

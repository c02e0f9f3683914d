#include <gtest/gtest.h>
#include <VanticRestKit/Testing/Documents.h>

namespace VanticRestKit::Testing {
namespace {

TEST(DocumentsTest, ScreensHaveCollectionsWithItems) {
    for (const auto& screen : {aHomeScreen(), aCategory(), aChannel()}) {
        const Category category = screen.value();
        EXPECT_FALSE(category.title.empty());
        EXPECT_FALSE(category.collections.empty());
    }
    EXPECT_FALSE(aCollection().value().items().empty());
    EXPECT_EQ(aHomeScreen().part<MixedCollection>("/_embedded/collections/0").value(), aCollection().value());
}

TEST(DocumentsTest, ACollectionIsFoundByItsId) {
    EXPECT_NE(aCollection("1007").document().find(R"("href":"/collection/1007")"), std::string::npos);
    EXPECT_NE(aCollection("1007").value(), aCollection().value());
}

TEST(DocumentsTest, ListsOfShowsAndVideosAreFilled) {
    EXPECT_FALSE(aShowsIndex().value().groups.empty());
    EXPECT_EQ(aShowList().value().size(), 2U);
    EXPECT_EQ(aVideoList().value().videos.size(), 2U);
    EXPECT_FALSE(livestreams().value().videos.empty());
    EXPECT_FALSE(searchResultsFor("sea").value().items.empty());
    EXPECT_FALSE(showsRelatedTo("harbour-lights").value().items.empty());
    EXPECT_TRUE(nowAndNext().decoded());
}

TEST(DocumentsTest, NavigationNoticesAndTheOtherDocumentsDecode) {
    EXPECT_TRUE(aNavigationList().decoded());
    EXPECT_TRUE(aNavigationList("categories").decoded());
    EXPECT_TRUE(aMainMenu().decoded());
    EXPECT_TRUE(aBrowseList().decoded());
    EXPECT_FALSE(messages().value().empty());
    EXPECT_TRUE(aProductAlert().decoded());
    EXPECT_TRUE(aRemap().decoded());
    EXPECT_FALSE(avatars().value().empty());
    EXPECT_EQ(aTime(1.5).value(), 1.5);
    EXPECT_EQ(recommendations(3).value().recommendations.size(), 3U);
    EXPECT_TRUE(audienceSegments().decoded());
}

TEST(DocumentsTest, TheRecordsOfAUserMatchTheService) {
    const auto history = aHistoryResponse().value();
    ASSERT_TRUE(history.data);
    ASSERT_EQ(history.data->size(), 2U);
    EXPECT_EQ((*history.data)[0].key, "HL0101");
    EXPECT_TRUE((*history.data)[0].done);
    EXPECT_EQ(aHistoryResponse().part<HistoryData>("/data/1").value().key, "HL0102");
    EXPECT_EQ(aSavedResponse().value().data->size(), 1U);
    EXPECT_TRUE(aDatasetResponse().decoded());
}

TEST(DocumentsTest, TokensAreValidForAsLongAsTheTestSays) {
    const Date now = std::chrono::system_clock::now();
    EXPECT_GT(aTokenResponse().value().auth->expiry, now);
    EXPECT_LT(aTokenResponse(std::chrono::seconds(-10)).value().auth->expiry, now);
}

}  // namespace
}  // namespace VanticRestKit::Testing

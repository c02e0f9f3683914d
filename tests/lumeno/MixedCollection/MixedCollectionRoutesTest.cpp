#include <lumeno/Routes.h>
#include <VanticRestKit/lumeno/MixedCollection/MixedCollectionRoutes.h>

namespace VanticRestKit {
namespace {

using test::expectAGet;

TEST(CollectionURI, RequestsTheHighlightItemIfWanted) {
    expectAGet(CollectionURI({.with = "xyz", .embedHighlightItem = true}), "v2/collection/xyz",
               {{"embed", "highlightItem"}});
}

TEST(CollectionURI, HasNoQueryItemsIfTheHighlightItemIsNotWanted) {
    expectAGet(CollectionURI({.with = "xyz", .embedHighlightItem = false}), "v2/collection/xyz");
}

TEST(CollectionURI, AppendsTheIdToThePathUnchanged) {
    expectAGet(CollectionURI({.with = "a b/../c?d=%20", .embedHighlightItem = false}),
               "v2/collection/a b/../c?d=%20");
    expectAGet(CollectionURI({.with = "", .embedHighlightItem = false}), "v2/collection/");
}

TEST(CollectionURI, KeepsItsArguments) {
    const CollectionURI route({.with = "xyz", .embedHighlightItem = true});
    EXPECT_EQ(route.collectionId, "xyz");
    EXPECT_TRUE(route.embedHighlightItem);
    EXPECT_NE(route, CollectionURI({.with = "xyz", .embedHighlightItem = false}));
}

TEST(CollectionURI, EqualsARouteWithTheSameFields) {
    const CollectionURI route({.with = "12", .embedHighlightItem = true});
    EXPECT_EQ(route, CollectionURI({.with = "12", .embedHighlightItem = true}));
    EXPECT_NE(route, CollectionURI({.with = "12", .embedHighlightItem = false}));
    EXPECT_NE(route, CollectionURI({.with = "13", .embedHighlightItem = true}));
}

}  // namespace
}  // namespace VanticRestKit

#include <gtest/gtest.h>
#include <VanticRestKit/trelvo/Saved/SavedRoutes.h>

#include <trelvo/Common/RouteText.h>
#include <limits>

namespace VanticRestKit {
namespace {

using test::routeText;

constexpr SourceSystem source = SourceSystem::lumeno;
constexpr TrelvoSlug watchlist = TrelvoSlug::watchlist;

TEST(ListAllShowsURI, RequestsTheShowsOfASlug) {
    EXPECT_EQ(routeText(ListAllShowsURI{.uid = "u", .source = source, .slug = watchlist}),
              "- v2/saved/watchlist/show [UID=u, raw=1, source=lumeno]");
}

TEST(AddShowURI, PostsAShowWithItsIdInThePathAndWithoutABody) {
    const AddShowURI route({.uid = "u", .source = source, .slug = watchlist, .showId = 42});
    EXPECT_EQ(routeText(route), "POST v2/saved/watchlist/show/42 [UID=u, raw=1, source=lumeno]");
    EXPECT_EQ(ResourceURI(route).postData(), std::nullopt);
    EXPECT_EQ(route.id, 42);
}

TEST(DeleteShowURI, DeletesAShow) {
    const DeleteShowURI route({.uid = "u", .source = source, .slug = watchlist, .showId = 42});
    EXPECT_EQ(routeText(route), "DELETE v2/saved/watchlist/show/42 [UID=u, source=lumeno]");
    EXPECT_EQ(route.id, 42);
}

TEST(DeleteSavedURI, DeletesEverythingOfASlug) {
    EXPECT_EQ(routeText(DeleteSavedURI{.uid = "u", .source = source, .slug = watchlist}),
              "DELETE v2/saved/watchlist [UID=u, source=lumeno]");
}

TEST(SavedRoutes, ApplyToEverythingSavedWithoutASlug) {
    EXPECT_EQ(routeText(ListAllShowsURI{.uid = "u", .source = source}),
              "- v2/saved [UID=u, raw=1, source=lumeno]");
    EXPECT_EQ(routeText(AddShowURI({.uid = "u", .source = source, .slug = std::nullopt, .showId = 42})),
              "POST v2/saved [UID=u, raw=1, source=lumeno]");
    EXPECT_EQ(routeText(DeleteSavedURI{.uid = "u", .source = source}),
              "DELETE v2/saved [UID=u, source=lumeno]");
}

TEST(SavedRoutes, PutTheIdIntoThePathUnchanged) {
    EXPECT_EQ(ResourceURI(AddShowURI({.uid = "u", .source = source, .slug = watchlist, .showId = -1})).path(),
              "v2/saved/watchlist/show/-1");
    EXPECT_EQ(ResourceURI(DeleteShowURI({.uid = "u",
                                         .source = source,
                                         .slug = watchlist,
                                         .showId = std::numeric_limits<std::int64_t>::max()}))
                  .path(),
              "v2/saved/watchlist/show/9223372036854775807");
}

}  // namespace
}  // namespace VanticRestKit

#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/CollectionItem/CollectionItem.h>

#include <platform/json/FieldRules.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::Strictness;
using Text = std::optional<std::string>;

/// A host's own item. Some of its fields are named like members of the interface, but are not in its table.
struct Podcast {
    Text name{};
    Text description{};
    Text slug{};
    bool captionsAvailable = true;
    std::vector<Link> categoryLinks{{.href = "category"}};
    std::vector<std::string> words{};
    Text none() const { return {}; }
    std::optional<std::uint64_t> number() const noexcept { return 7; }
    std::optional<DirectPlayableVideo> video() const { return DirectPlayableVideo{.id = name}; }
    Text slugOfTheShow() const {
        return CollectionItem::defaultShowSlug({.from = "a/b/" + name.value_or("")});
    }
    friend bool operator==(const Podcast&, const Podcast&) = default;
};

/// A different type with the same fields.
struct Radio : Podcast {
    friend bool operator==(const Radio&, const Radio&) = default;
};

/// Cannot be compared, and has its own slug function.
struct Mixtape {
    Text name{};
    std::vector<std::string> words{};
    Text none() const { return {}; }
    std::optional<std::uint64_t> number() const { return {}; }
    std::optional<DirectPlayableVideo> video() const { return {}; }
    Text slugOfTheShow() const { return {}; }
    Text slugIn(const Text& path) const { return path ? Text(*name + " in " + *path) : Text(); }
};

template <class T, class... More>
consteval CollectionItemTable hostTable(More... more) {
    using enum CollectionItemMember;
    return collectionItem<T>(
        own<selfHref, &T::none>(), own<deeplinkHref, &T::none>(), own<title, &T::name>(),
        own<displayTitle, &T::none>(), own<thumbnail, &T::none>(), own<showTitle, &T::none>(),
        own<showId, &T::number>(), own<playableVideo, &T::video>(), own<kickerTitle, &T::none>(),
        own<tags, &T::words>(), own<showHref, &T::none>(), own<channel, &T::none>(),
        own<channelTitle, &T::none>(), own<derivedShowSlug, &T::slugOfTheShow>(), more...);
}

test::EntityRules directPlayableVideos() {
    return {.type = test::decodable<DirectPlayableVideo>,
            .minimal = "{}",
            .fields = {{"id", "id", Strictness::lenient, test::text()},
                       {"href", "href", Strictness::lenient, test::text()},
                       {"playTitle", "playTitle", Strictness::lenient, test::text()}}};
}

}  // namespace

template <>
inline constexpr bool isCollectionItem<Podcast> = true;
template <>
const CollectionItemTable& collectionItemTable<Podcast>() {
    static constexpr CollectionItemTable table = hostTable<Podcast>();
    return table;
}
template <>
inline constexpr bool isCollectionItem<Radio> = true;
template <>
const CollectionItemTable& collectionItemTable<Radio>() {
    static constexpr CollectionItemTable table = hostTable<Radio>();
    return table;
}
template <>
inline constexpr bool isCollectionItem<Mixtape> = true;
template <>
const CollectionItemTable& collectionItemTable<Mixtape>() {
    static constexpr CollectionItemTable table =
        hostTable<Mixtape>(own<CollectionItemMember::showSlug, &Mixtape::slugIn>());
    return table;
}

namespace {

/// The slug that an item with the default function returns.
Text slugFrom(const Text& text) { return CollectionItem(Podcast{}).showSlug({.from = text}); }

TEST(DirectPlayableVideo, HasThreeFields) { test::expectDeclaredFields(directPlayableVideos()); }

TEST(DirectPlayableVideo, ReadsEachFieldFromItsKeyOrLeavesItEmpty) {
    test::expectFieldsInEveryState(directPlayableVideos());
}

TEST(DirectPlayableVideo, FailsOnlyIfItIsNotAnObject) {
    test::expectAnObjectOnly(test::decodable<DirectPlayableVideo>);
}

TEST(DirectPlayableVideo, IsEmptyForAnEmptyObject) {
    EXPECT_EQ(decoded<DirectPlayableVideo>("{}"), DirectPlayableVideo{});
    EXPECT_EQ(test::failureOf<DirectPlayableVideo>("[]"), "typeMismatch []");
}

TEST(DirectPlayableVideo, CanBeInitializedInDeclaredOrder) {
    const DirectPlayableVideo video{.id = "a", .href = "b", .playTitle = "c"};
    EXPECT_EQ(valueText(video), R"({"id":"a","href":"b","playTitle":"c"})");
    EXPECT_EQ(decoded<DirectPlayableVideo>(valueText(video)), video);
}

TEST(ShowSlug, IsTheThirdSegmentOfAPath) {
    EXPECT_EQ(slugFrom("a/b/c"), "c");
    EXPECT_EQ(slugFrom("show/xyz/x"), "x");
    EXPECT_EQ(slugFrom("a/b/c/d/e"), "c");
}

TEST(ShowSlug, FollowsTheFirstSegmentOfAnAbsolutePath) {
    EXPECT_EQ(slugFrom("/show/xyz/x"), "xyz");
    EXPECT_EQ(slugFrom("/show/xyz"), "xyz");
}

TEST(ShowSlug, IsAbsentForAnEmptyOrTooShortPath) {
    EXPECT_EQ(slugFrom(std::nullopt), std::nullopt);
    for (const char* const path : {"", "a", "a/b", "/", "/a", "a/"})
        EXPECT_EQ(slugFrom(path), std::nullopt) << path;
}

TEST(ShowSlug, CanBeAnEmptySegment) {
    EXPECT_EQ(slugFrom("/show//x"), "");
    EXPECT_EQ(slugFrom("a//b"), "b");
    EXPECT_EQ(slugFrom("a/b/"), "");
    EXPECT_EQ(slugFrom("//"), "");
    EXPECT_EQ(slugFrom("///"), "");
}

TEST(CollectionItem, OfAHostHasTheMembersInItsTableAndDefaultsForTheRest) {
    const CollectionItem item = Podcast{.name = "n", .description = "d", .slug = "s", .words = {"w"}};
    EXPECT_EQ(item.title(), "n");
    EXPECT_EQ(item.showId(), 7U);
    EXPECT_EQ(item.playableVideo(), DirectPlayableVideo{.id = "n"});
    EXPECT_EQ(item.tags(), std::vector<std::string>{"w"});
    EXPECT_EQ(item.derivedShowSlug(), "n");
    for (const Text& none :
         {item.selfHref(), item.deeplinkHref(), item.displayTitle(), item.thumbnail(), item.showTitle(),
          item.kickerTitle(), item.showHref(), item.channel(), item.channelTitle()}) {
        EXPECT_EQ(none, std::nullopt);
    }
}

TEST(CollectionItem, UsesTheDefaultForMembersNotInTheTableWhateverTheFields) {
    const CollectionItem item = Podcast{.name = "n", .description = "d", .slug = "s"};
    EXPECT_EQ(item.description(), std::nullopt);
    EXPECT_EQ(item.slug(), std::nullopt);
    EXPECT_FALSE(item.captionsAvailable());
    EXPECT_EQ(item.categoryLinks(), std::vector<Link>());
    EXPECT_EQ(item.subtype(), std::nullopt);
    EXPECT_EQ(item.status(), std::nullopt);
    EXPECT_EQ(item.duration(), std::nullopt);
    EXPECT_EQ(item.updated(), std::nullopt);
    EXPECT_EQ(item.episodeCount(), std::nullopt);
    for (const Text& none :
         {item.classification(), item.displaySubtitle(), item.seriesTitle(), item.houseNumber(),
          item.displayDuration(), item.displayDurationAccessible(), item.availability(),
          item.portraitThumbnail(), item.portraitTitledThumbnail(), item.episodePortraitThumbnail(),
          item.character1Thumbnail(), item.character2Thumbnail(), item.broadcastInfo()}) {
        EXPECT_EQ(none, std::nullopt);
    }
}

TEST(CollectionItem, ReturnsTheEntityOnlyAsItsOwnType) {
    const CollectionItem podcast = Podcast{.name = "n"};
    ASSERT_NE(podcast.as<Podcast>(), nullptr);
    EXPECT_EQ(podcast.as<Podcast>()->name, "n");
    EXPECT_EQ(podcast.as<Radio>(), nullptr);
}

TEST(CollectionItem, IsEqualIfItsEntityIsEqualAndOfTheSameType) {
    EXPECT_EQ(CollectionItem(Podcast{.name = "n"}), CollectionItem(Podcast{.name = "n"}));
    EXPECT_NE(CollectionItem(Podcast{.name = "n"}), CollectionItem(Podcast{.name = "m"}));
    EXPECT_NE(CollectionItem(Podcast{}), CollectionItem(Radio{}));
}

TEST(CollectionItem, OfANonComparableTypeEqualsOnlyItsCopies) {
    static_assert(!std::equality_comparable<Mixtape>);
    const CollectionItem item = Mixtape{.name = "n"};
    const CollectionItem copy = item;
    EXPECT_EQ(item, copy);
    EXPECT_NE(item, CollectionItem(Mixtape{.name = "n"}));
}

TEST(ShowSlug, IsTheItemsOwnIfItsTableListsIt) {
    const CollectionItem item = Mixtape{.name = "n"};
    EXPECT_EQ(item.showSlug({.from = "/show/xyz"}), "n in /show/xyz");
    EXPECT_EQ(item.showSlug({.from = std::nullopt}), std::nullopt);
    EXPECT_EQ(CollectionItem::defaultShowSlug({.from = "/show/xyz"}), "xyz");
}

TEST(CollectionItem, TakesOverAnEntityWithoutMovingIt) {
    auto podcast = std::make_unique<Podcast>(Podcast{.name = "n"});
    const Podcast* const lies = podcast.get();
    const CollectionItem item = CollectionItem::owning(std::move(podcast));
    EXPECT_EQ(item.as<Podcast>(), lies);
    EXPECT_EQ(item, CollectionItem(Podcast{.name = "n"}));
    EXPECT_EQ(item.as<Radio>(), nullptr);
}

TEST(CollectionItem, SharesItsEntityWithItsCopies) {
    const CollectionItem item = Podcast{.name = "n"};
    const CollectionItem copy = item;
    EXPECT_EQ(copy.as<Podcast>(), item.as<Podcast>());
    EXPECT_EQ(copy, item);
}

}  // namespace
}  // namespace VanticRestKit

#pragma once

/// \file
/// `CollectionItem`: the common interface of the elements of a collection.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/lumeno/CollectionItem/CollectionItemTable.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// An element of a collection, which can be an entity of any type. It owns its entity, which is immutable; copies share
/// it.
///
/// If an entity does not provide a member, the member has its default: empty, `false` or an empty list. To use its own
/// type as a collection item, a host specialises `isCollectionItem` and `collectionItemTable`.
class VRK_EXPORT CollectionItem {
public:
    /// Holds a copy of `entity`.
    template <class Entity>
    requires isCollectionItem<Entity> CollectionItem(Entity entity)
        : table_(&collectionItemTable<Entity>()),
          entity_(std::make_shared<const Entity>(std::move(entity))) {}

    /// Holds `entity`, which must not be null, without copying it.
    template <class Entity>
    requires isCollectionItem<Entity>
    static CollectionItem owning(std::unique_ptr<Entity> entity) {
        return CollectionItem(collectionItemTable<Entity>(),
                              std::shared_ptr<const Entity>(std::move(entity)));
    }

    /// The entity, or null if it is of another type. Valid as long as this item or a copy of it exists.
    template <class Entity>
    requires isCollectionItem<Entity>
    const Entity* as() const noexcept {
        return table_ == &collectionItemTable<Entity>() ? static_cast<const Entity*>(entity_.get()) : nullptr;
    }

    /// A member that is a string, or empty.
    using Text = std::optional<std::string>;
    /// A member that is a whole number, or empty.
    using Number = std::optional<std::uint64_t>;

    /// The path of the item itself, relative to the API's version prefix.
    Text selfHref() const { return get<CollectionItemMember::selfHref>(); }
    /// The path of the item in the application.
    Text deeplinkHref() const { return get<CollectionItemMember::deeplinkHref>(); }
    /// The title.
    Text title() const { return get<CollectionItemMember::title>(); }
    /// The title to display.
    Text displayTitle() const { return get<CollectionItemMember::displayTitle>(); }
    /// The URL of an image.
    Text thumbnail() const { return get<CollectionItemMember::thumbnail>(); }
    /// The title of the show; for a show, its own.
    Text showTitle() const { return get<CollectionItemMember::showTitle>(); }
    /// The id of the show; for a show, its own.
    Number showId() const { return get<CollectionItemMember::showId>(); }
    /// The video that a play button plays.
    std::optional<DirectPlayableVideo> playableVideo() const {
        return get<CollectionItemMember::playableVideo>();
    }
    /// The kind of content. Empty for a series and for unknown kinds.
    std::optional<LumenoSubtype> subtype() const { return get<CollectionItemMember::subtype>(); }
    /// The badge to show on the item.
    std::optional<Status> status() const { return get<CollectionItemMember::status>(); }
    /// Whether there are captions. False for a series.
    bool captionsAvailable() const { return get<CollectionItemMember::captionsAvailable>(); }
    /// The age classification, as text to display.
    Text classification() const { return get<CollectionItemMember::classification>(); }
    /// The `kickerTitle` of the entity.
    Text kickerTitle() const { return get<CollectionItemMember::kickerTitle>(); }
    /// The subtitle to display. Empty for a show.
    Text displaySubtitle() const { return get<CollectionItemMember::displaySubtitle>(); }
    /// The title of the series. Empty unless this is a video.
    Text seriesTitle() const { return get<CollectionItemMember::seriesTitle>(); }
    /// The house number. Empty unless this is a video.
    Text houseNumber() const { return get<CollectionItemMember::houseNumber>(); }
    /// In seconds.
    Number duration() const { return get<CollectionItemMember::duration>(); }
    /// The duration, as text to display. Empty for a series.
    Text displayDuration() const { return get<CollectionItemMember::displayDuration>(); }
    /// The duration, as text for a screen reader. Empty for a series.
    Text displayDurationAccessible() const { return get<CollectionItemMember::displayDurationAccessible>(); }
    /// The `availability` of a video. Empty for other items.
    Text availability() const { return get<CollectionItemMember::availability>(); }
    /// The URL of an image. Empty for a series.
    Text portraitThumbnail() const { return get<CollectionItemMember::portraitThumbnail>(); }
    /// The URL of an image. Empty for a series.
    Text portraitTitledThumbnail() const { return get<CollectionItemMember::portraitTitledThumbnail>(); }
    /// The URL of an image. Empty unless this is a video.
    Text episodePortraitThumbnail() const { return get<CollectionItemMember::episodePortraitThumbnail>(); }
    /// The URL of an image. Empty for a series.
    Text character1Thumbnail() const { return get<CollectionItemMember::character1Thumbnail>(); }
    /// The URL of an image. Empty for a series.
    Text character2Thumbnail() const { return get<CollectionItemMember::character2Thumbnail>(); }
    /// When a show was last changed. Empty for other items.
    std::optional<Date> updated() const { return get<CollectionItemMember::updated>(); }
    /// The description. Empty for a video; see `Video::videoDescription`.
    Text description() const { return get<CollectionItemMember::description>(); }
    /// The number of episodes. Empty for a video.
    Number episodeCount() const { return get<CollectionItemMember::episodeCount>(); }
    /// The `slug` of a show. Empty for other items.
    Text slug() const { return get<CollectionItemMember::slug>(); }
    /// The `broadcastInfo` of a show. Empty for other items.
    Text broadcastInfo() const { return get<CollectionItemMember::broadcastInfo>(); }
    /// Links to categories. An empty list for a series.
    std::vector<Link> categoryLinks() const { return get<CollectionItemMember::categoryLinks>(); }
    /// The tags.
    std::vector<std::string> tags() const { return get<CollectionItemMember::tags>(); }
    /// The path of the show; for a show, its own.
    Text showHref() const { return get<CollectionItemMember::showHref>(); }
    /// The channel.
    Text channel() const { return get<CollectionItemMember::channel>(); }
    /// The title of the channel.
    Text channelTitle() const { return get<CollectionItemMember::channelTitle>(); }
    /// The slug of the show, extracted from a path of the item.
    Text derivedShowSlug() const { return get<CollectionItemMember::derivedShowSlug>(); }

    /// The argument of `showSlug`.
    struct SlugArgument {
        /// A path, or empty.
        Required<Text> from;
    };
    /// Extracts the slug of a show from a path: `item.showSlug({.from = item.deeplinkHref()})`. Uses the entity's
    /// `showSlug` if it provides one, otherwise `defaultShowSlug`.
    Text showSlug(SlugArgument argument) const;
    /// The third component of the path. A leading slash counts as an empty first component. Empty if there are fewer
    /// components.
    static Text defaultShowSlug(const SlugArgument& argument);

    /// Whether both contain equal entities of the same type. If the type has no `operator==`: whether they share one
    /// entity.
    friend bool operator==(const CollectionItem& a, const CollectionItem& b) {
        return a.table_ == b.table_ && a.table_->equal(a.entity_.get(), b.entity_.get());
    }

private:
    CollectionItem(const CollectionItemTable& table, std::shared_ptr<const void> entity)
        : table_(&table), entity_(std::move(entity)) {}

    template <CollectionItemMember Member>
    detail::TypeOf<Member> get() const {
        detail::TypeOf<Member> value{};
        const auto getter = table_->getters[static_cast<std::size_t>(Member)];
        if (getter != nullptr) getter(entity_.get(), &value);
        return value;
    }

    const CollectionItemTable* table_;
    std::shared_ptr<const void> entity_;
};

}  // namespace VanticRestKit

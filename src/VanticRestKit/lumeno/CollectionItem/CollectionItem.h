#pragma once

/// \file
/// `CollectionItem`: the one shape that the elements of a collection share.

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

/// An element of a collection, whatever entity it is. It owns its entity, which never changes; copies share it.
///
/// A member that an entity does not give has the interface's default: empty, `false` or an empty list. A host's
/// own type joins by specialising `isCollectionItem` and `collectionItemTable`.
class VRK_EXPORT CollectionItem {
public:
    /// Holds a copy of `entity`.
    template <class Entity>
    requires isCollectionItem<Entity> CollectionItem(Entity entity)
        : table_(&collectionItemTable<Entity>()),
          entity_(std::make_shared<const Entity>(std::move(entity))) {}

    /// Takes over `entity`, which is not null, where it lies.
    template <class Entity>
    requires isCollectionItem<Entity>
    static CollectionItem owning(std::unique_ptr<Entity> entity) {
        return CollectionItem(collectionItemTable<Entity>(),
                              std::shared_ptr<const Entity>(std::move(entity)));
    }

    /// The entity, or null where this is one of another type. Lives as long as this item or a copy of it.
    template <class Entity>
    requires isCollectionItem<Entity>
    const Entity* as() const noexcept {
        return table_ == &collectionItemTable<Entity>() ? static_cast<const Entity*>(entity_.get()) : nullptr;
    }

    /// A member that is a string, or empty.
    using Text = std::optional<std::string>;
    /// A member that is a whole number, or empty.
    using Number = std::optional<std::uint64_t>;

    /// The path of the item itself, below the API's version prefix.
    Text selfHref() const { return get<CollectionItemMember::selfHref>(); }
    /// Where the item lies within the application.
    Text deeplinkHref() const { return get<CollectionItemMember::deeplinkHref>(); }
    /// The title.
    Text title() const { return get<CollectionItemMember::title>(); }
    /// The title to show.
    Text displayTitle() const { return get<CollectionItemMember::displayTitle>(); }
    /// The address of a picture.
    Text thumbnail() const { return get<CollectionItemMember::thumbnail>(); }
    /// The title of the show; of a show, its own.
    Text showTitle() const { return get<CollectionItemMember::showTitle>(); }
    /// The id of the show; of a show, its own.
    Number showId() const { return get<CollectionItemMember::showId>(); }
    /// What a play button is to play.
    std::optional<DirectPlayableVideo> playableVideo() const {
        return get<CollectionItemMember::playableVideo>();
    }
    /// The kind of content. Empty for a series, and for kinds that are not known.
    std::optional<LumenoSubtype> subtype() const { return get<CollectionItemMember::subtype>(); }
    /// The badge to show on the item.
    std::optional<Status> status() const { return get<CollectionItemMember::status>(); }
    /// Whether there are captions. False for a series.
    bool captionsAvailable() const { return get<CollectionItemMember::captionsAvailable>(); }
    /// For which ages it is, as a text to show.
    Text classification() const { return get<CollectionItemMember::classification>(); }
    /// The `kickerTitle` of the entity.
    Text kickerTitle() const { return get<CollectionItemMember::kickerTitle>(); }
    /// The subtitle to show. Empty for a show.
    Text displaySubtitle() const { return get<CollectionItemMember::displaySubtitle>(); }
    /// The title of the series. Empty unless this is a video.
    Text seriesTitle() const { return get<CollectionItemMember::seriesTitle>(); }
    /// The house number. Empty unless this is a video.
    Text houseNumber() const { return get<CollectionItemMember::houseNumber>(); }
    /// In seconds.
    Number duration() const { return get<CollectionItemMember::duration>(); }
    /// The duration as a text to show. Empty for a series.
    Text displayDuration() const { return get<CollectionItemMember::displayDuration>(); }
    /// The duration as a text to read out. Empty for a series.
    Text displayDurationAccessible() const { return get<CollectionItemMember::displayDurationAccessible>(); }
    /// The `availability` of a video. Empty otherwise.
    Text availability() const { return get<CollectionItemMember::availability>(); }
    /// The address of a picture. Empty for a series.
    Text portraitThumbnail() const { return get<CollectionItemMember::portraitThumbnail>(); }
    /// The address of a picture. Empty for a series.
    Text portraitTitledThumbnail() const { return get<CollectionItemMember::portraitTitledThumbnail>(); }
    /// The address of a picture. Empty unless this is a video.
    Text episodePortraitThumbnail() const { return get<CollectionItemMember::episodePortraitThumbnail>(); }
    /// The address of a picture. Empty for a series.
    Text character1Thumbnail() const { return get<CollectionItemMember::character1Thumbnail>(); }
    /// The address of a picture. Empty for a series.
    Text character2Thumbnail() const { return get<CollectionItemMember::character2Thumbnail>(); }
    /// When a show last changed. Empty otherwise.
    std::optional<Date> updated() const { return get<CollectionItemMember::updated>(); }
    /// Empty for a video, whose text lies in `Video::videoDescription` alone.
    Text description() const { return get<CollectionItemMember::description>(); }
    /// The number of episodes. Empty for a video.
    Number episodeCount() const { return get<CollectionItemMember::episodeCount>(); }
    /// The `slug` of a show. Empty otherwise.
    Text slug() const { return get<CollectionItemMember::slug>(); }
    /// The `broadcastInfo` of a show. Empty otherwise.
    Text broadcastInfo() const { return get<CollectionItemMember::broadcastInfo>(); }
    /// Links to categories. An empty list for a series.
    std::vector<Link> categoryLinks() const { return get<CollectionItemMember::categoryLinks>(); }
    /// The tags.
    std::vector<std::string> tags() const { return get<CollectionItemMember::tags>(); }
    /// The path of the show; of a show, its own.
    Text showHref() const { return get<CollectionItemMember::showHref>(); }
    /// The channel.
    Text channel() const { return get<CollectionItemMember::channel>(); }
    /// The title of the channel.
    Text channelTitle() const { return get<CollectionItemMember::channelTitle>(); }
    /// The slug of the show, found in a path of the item.
    Text derivedShowSlug() const { return get<CollectionItemMember::derivedShowSlug>(); }

    /// The argument of `showSlug`.
    struct SlugArgument {
        /// A path, or empty.
        Required<Text> from;
    };
    /// The slug of a show in one of its paths, `item.showSlug({.from = item.deeplinkHref()})`: what the entity's list
    /// gives for `showSlug`, else `defaultShowSlug`.
    Text showSlug(SlugArgument argument) const;
    /// The third part of the path between slashes, the one before a leading slash included. Empty if there are fewer.
    static Text defaultShowSlug(const SlugArgument& argument);

    /// Whether both hold equal entities of one type; if the type has no `operator==`, whether they share one entity.
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

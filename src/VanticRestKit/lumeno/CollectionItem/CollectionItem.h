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

    using Text = std::optional<std::string>;
    using Number = std::optional<std::uint64_t>;

    /// The path of the item itself, below the API's version prefix.
    Text selfHref() const { return get<CollectionItemMember::selfHref>(); }
    /// Where the item lies within the application.
    Text deeplinkHref() const { return get<CollectionItemMember::deeplinkHref>(); }
    Text title() const { return get<CollectionItemMember::title>(); }
    Text displayTitle() const { return get<CollectionItemMember::displayTitle>(); }
    Text thumbnail() const { return get<CollectionItemMember::thumbnail>(); }
    Text showTitle() const { return get<CollectionItemMember::showTitle>(); }
    Number showId() const { return get<CollectionItemMember::showId>(); }
    /// What a play button is to play.
    std::optional<DirectPlayableVideo> playableVideo() const {
        return get<CollectionItemMember::playableVideo>();
    }
    std::optional<LumenoSubtype> subtype() const { return get<CollectionItemMember::subtype>(); }
    /// The badge to show on the item.
    std::optional<Status> status() const { return get<CollectionItemMember::status>(); }
    bool captionsAvailable() const { return get<CollectionItemMember::captionsAvailable>(); }
    Text classification() const { return get<CollectionItemMember::classification>(); }
    Text kickerTitle() const { return get<CollectionItemMember::kickerTitle>(); }
    Text displaySubtitle() const { return get<CollectionItemMember::displaySubtitle>(); }
    Text seriesTitle() const { return get<CollectionItemMember::seriesTitle>(); }
    Text houseNumber() const { return get<CollectionItemMember::houseNumber>(); }
    /// In seconds.
    Number duration() const { return get<CollectionItemMember::duration>(); }
    Text displayDuration() const { return get<CollectionItemMember::displayDuration>(); }
    Text displayDurationAccessible() const { return get<CollectionItemMember::displayDurationAccessible>(); }
    Text availability() const { return get<CollectionItemMember::availability>(); }
    Text portraitThumbnail() const { return get<CollectionItemMember::portraitThumbnail>(); }
    Text portraitTitledThumbnail() const { return get<CollectionItemMember::portraitTitledThumbnail>(); }
    Text episodePortraitThumbnail() const { return get<CollectionItemMember::episodePortraitThumbnail>(); }
    Text character1Thumbnail() const { return get<CollectionItemMember::character1Thumbnail>(); }
    Text character2Thumbnail() const { return get<CollectionItemMember::character2Thumbnail>(); }
    std::optional<Date> updated() const { return get<CollectionItemMember::updated>(); }
    /// Empty for a video, whose text lies in `Video::videoDescription` alone.
    Text description() const { return get<CollectionItemMember::description>(); }
    Number episodeCount() const { return get<CollectionItemMember::episodeCount>(); }
    Text slug() const { return get<CollectionItemMember::slug>(); }
    Text broadcastInfo() const { return get<CollectionItemMember::broadcastInfo>(); }
    std::vector<Link> categoryLinks() const { return get<CollectionItemMember::categoryLinks>(); }
    std::vector<std::string> tags() const { return get<CollectionItemMember::tags>(); }
    Text showHref() const { return get<CollectionItemMember::showHref>(); }
    Text channel() const { return get<CollectionItemMember::channel>(); }
    Text channelTitle() const { return get<CollectionItemMember::channelTitle>(); }
    /// The slug of the show, found in a path of the item.
    Text derivedShowSlug() const { return get<CollectionItemMember::derivedShowSlug>(); }

    struct SlugArgument {
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

#pragma once

/// \file
/// The members of `CollectionItem`, and the list by which an entity says which of them it gives itself.

#include <VanticRestKit/lumeno/CollectionItem/DirectPlayableVideo.h>
#include <VanticRestKit/lumeno/Link/Link.h>
#include <VanticRestKit/lumeno/Status/Status.h>
#include <VanticRestKit/lumeno/Theme/Theme.h>
#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/Visibility.h>

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// The members of `CollectionItem`, in their order.
enum class CollectionItemMember : std::uint8_t {
    selfHref,
    deeplinkHref,
    title,
    displayTitle,
    thumbnail,
    showTitle,
    showId,
    playableVideo,
    subtype,
    status,
    captionsAvailable,
    classification,
    kickerTitle,
    displaySubtitle,
    seriesTitle,
    houseNumber,
    duration,
    displayDuration,
    displayDurationAccessible,
    availability,
    portraitThumbnail,
    portraitTitledThumbnail,
    episodePortraitThumbnail,
    character1Thumbnail,
    character2Thumbnail,
    updated,
    description,
    episodeCount,
    slug,
    broadcastInfo,
    categoryLinks,
    tags,
    showHref,
    channel,
    channelTitle,
    derivedShowSlug,
    /// An operation: what gives it is called with a path, an optional string.
    showSlug,
};
/// How many members there are.
inline constexpr std::size_t collectionItemMembers = 37;

namespace detail {

/// The type of a member, as a `std::type_identity`.
template <CollectionItemMember M>
consteval auto typeOf() {
    using enum CollectionItemMember;
    if constexpr (M == showId || M == duration || M == episodeCount) {
        return std::type_identity<std::optional<std::uint64_t>>();
    } else if constexpr (M == playableVideo) {
        return std::type_identity<std::optional<DirectPlayableVideo>>();
    } else if constexpr (M == subtype) {
        return std::type_identity<std::optional<LumenoSubtype>>();
    } else if constexpr (M == status) {
        return std::type_identity<std::optional<Status>>();
    } else if constexpr (M == captionsAvailable) {
        return std::type_identity<bool>();
    } else if constexpr (M == updated) {
        return std::type_identity<std::optional<Date>>();
    } else if constexpr (M == categoryLinks) {
        return std::type_identity<std::vector<Link>>();
    } else if constexpr (M == tags) {
        return std::type_identity<std::vector<std::string>>();
    } else {
        return std::type_identity<std::optional<std::string>>();
    }
}

template <CollectionItemMember M>
using TypeOf = typename decltype(typeOf<M>())::type;

/// Whether an entity must give a member, which then has no default.
constexpr bool isNeeded(CollectionItemMember member) {
    using enum CollectionItemMember;
    switch (member) {
        case selfHref:
        case deeplinkHref:
        case title:
        case displayTitle:
        case thumbnail:
        case showTitle:
        case showId:
        case playableVideo:
        case kickerTitle:
        case tags:
        case showHref:
        case channel:
        case channelTitle:
        case derivedShowSlug: return true;
        default: return false;
    }
}

}  // namespace detail

/// How an entity gives its members: one function for each, or null for a member that keeps the default of the
/// interface. Made by `collectionItem`.
struct CollectionItemTable {
    /// `value` receives the member. For `showSlug` it also holds the path beforehand.
    using Getter = void (*)(const void* entity, void* value);
    /// One for each member, in the order of `CollectionItemMember`.
    std::array<Getter, collectionItemMembers> getters{};
    /// Whether two entities of the type are equal.
    bool (*equal)(const void* a, const void* b) = nullptr;
};

/// Specialised as true in the header of each entity that is a collection item.
template <class Entity>
inline constexpr bool isCollectionItem = false;

/// Specialised beside it, and defined in the entity's source. The address of the table is the identity of the
/// type, also across library borders.
template <class Entity>
const CollectionItemTable& collectionItemTable();

/// A row of the list: the entity gives this member itself, by a field or by a const function.
template <CollectionItemMember Member, auto Source>
struct own {
    /// Which member it is.
    static constexpr CollectionItemMember member = Member;
    /// The type of the member.
    using Type = detail::TypeOf<Member>;

    /// Stores the member of `entity` in `value`.
    static void get(const void* entity, void* value);
};

namespace detail {

template <class>
struct OwnerOf;
template <class E, class F>
struct OwnerOf<F E::*> {
    using Entity = E;
};

/// Not constexpr, so that a table that lacks a needed member does not compile.
inline void aMemberWithoutDefaultIsMissing() {}

template <std::size_t... Is>
constexpr bool allNeededAreIn(const CollectionItemTable& table, std::index_sequence<Is...>) {
    return ((!isNeeded(static_cast<CollectionItemMember>(Is)) || table.getters[Is] != nullptr) && ...);
}

}  // namespace detail

template <CollectionItemMember Member, auto Source>
void own<Member, Source>::get(const void* entity, void* value) {
    const auto& owner = *static_cast<const typename detail::OwnerOf<decltype(Source)>::Entity*>(entity);
    if constexpr (Member == CollectionItemMember::showSlug) {
        auto& text = *static_cast<Type*>(value);
        text = (owner.*Source)(std::as_const(text));
    } else if constexpr (std::is_member_function_pointer_v<decltype(Source)>) {
        *static_cast<Type*>(value) = (owner.*Source)();
    } else {
        *static_cast<Type*>(value) = owner.*Source;
    }
}

/// Makes the table of an entity from its rows. A member without a default must be among them. The entity needs no
/// `operator==`: without one, items are equal if they share one entity.
template <class Entity, class... Owns>
consteval CollectionItemTable collectionItem(Owns...) {
    CollectionItemTable table;
    ((table.getters[static_cast<std::size_t>(Owns::member)] = &Owns::get), ...);
    table.equal = [](const void* a, const void* b) {
        if constexpr (std::equality_comparable<Entity>) {
            return *static_cast<const Entity*>(a) == *static_cast<const Entity*>(b);
        } else {
            return a == b;
        }
    };
    if (!detail::allNeededAreIn(table, std::make_index_sequence<collectionItemMembers>())) {
        detail::aMemberWithoutDefaultIsMissing();
    }
    return table;
}

}  // namespace VanticRestKit

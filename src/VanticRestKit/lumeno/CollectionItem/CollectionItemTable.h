#pragma once

/// \file
/// The members of `CollectionItem`, and the table that lists which of them an entity provides.

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
#include <iterator>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace VanticRestKit {

// All members of `CollectionItem`, in order, with their types. An entity must provide the `needed` ones; the others
// have a default. The last one, `showSlug`, is a function that takes a path. A new member also needs a function in
// `CollectionItem`, and a row in the table of each entity that provides it.
// clang-format off
#define VRK_COLLECTION_ITEM_MEMBERS(needed, defaulted) \
    needed(selfHref, std::optional<std::string>) \
    needed(deeplinkHref, std::optional<std::string>) \
    needed(title, std::optional<std::string>) \
    needed(displayTitle, std::optional<std::string>) \
    needed(thumbnail, std::optional<std::string>) \
    needed(showTitle, std::optional<std::string>) \
    needed(showId, std::optional<std::uint64_t>) \
    needed(playableVideo, std::optional<DirectPlayableVideo>) \
    defaulted(subtype, std::optional<LumenoSubtype>) \
    defaulted(status, std::optional<Status>) \
    defaulted(captionsAvailable, bool) \
    defaulted(classification, std::optional<std::string>) \
    needed(kickerTitle, std::optional<std::string>) \
    defaulted(displaySubtitle, std::optional<std::string>) \
    defaulted(seriesTitle, std::optional<std::string>) \
    defaulted(houseNumber, std::optional<std::string>) \
    defaulted(duration, std::optional<std::uint64_t>) \
    defaulted(displayDuration, std::optional<std::string>) \
    defaulted(displayDurationAccessible, std::optional<std::string>) \
    defaulted(availability, std::optional<std::string>) \
    defaulted(portraitThumbnail, std::optional<std::string>) \
    defaulted(portraitTitledThumbnail, std::optional<std::string>) \
    defaulted(episodePortraitThumbnail, std::optional<std::string>) \
    defaulted(character1Thumbnail, std::optional<std::string>) \
    defaulted(character2Thumbnail, std::optional<std::string>) \
    defaulted(updated, std::optional<Date>) \
    defaulted(description, std::optional<std::string>) \
    defaulted(episodeCount, std::optional<std::uint64_t>) \
    defaulted(slug, std::optional<std::string>) \
    defaulted(broadcastInfo, std::optional<std::string>) \
    defaulted(categoryLinks, std::vector<Link>) \
    needed(tags, std::vector<std::string>) \
    needed(showHref, std::optional<std::string>) \
    needed(channel, std::optional<std::string>) \
    needed(channelTitle, std::optional<std::string>) \
    needed(derivedShowSlug, std::optional<std::string>) \
    defaulted(showSlug, std::optional<std::string>)
// clang-format on

/// The members of `CollectionItem`, in order.
enum class CollectionItemMember : std::uint8_t {
#define VRK_MEMBER(name, ...) name,
    VRK_COLLECTION_ITEM_MEMBERS(VRK_MEMBER, VRK_MEMBER)
#undef VRK_MEMBER
};

namespace detail {

// Whether an entity must provide the member, which then has no default.
#define VRK_NEEDED(...) true,
#define VRK_DEFAULTED(...) false,
inline constexpr bool isNeededMember[] = {VRK_COLLECTION_ITEM_MEMBERS(VRK_NEEDED, VRK_DEFAULTED)};
#undef VRK_NEEDED
#undef VRK_DEFAULTED

template <CollectionItemMember>
struct CollectionItemMemberOf;
#define VRK_MEMBER(name, ...)                                   \
    template <>                                                 \
    struct CollectionItemMemberOf<CollectionItemMember::name> { \
        using Type = __VA_ARGS__;                               \
    };
VRK_COLLECTION_ITEM_MEMBERS(VRK_MEMBER, VRK_MEMBER)
#undef VRK_MEMBER

/// The type of a member.
template <CollectionItemMember M>
using TypeOf = typename CollectionItemMemberOf<M>::Type;

}  // namespace detail

#undef VRK_COLLECTION_ITEM_MEMBERS

/// The number of members.
inline constexpr std::size_t collectionItemMembers = std::size(detail::isNeededMember);

/// How an entity provides its members: a function for each, or null for a member with its default value. Created by
/// `collectionItem`.
struct CollectionItemTable {
    /// Stores the member in `value`. For `showSlug`, `value` contains the path before the call.
    using Getter = void (*)(const void* entity, void* value);
    /// One for each member, in the order of `CollectionItemMember`.
    std::array<Getter, collectionItemMembers> getters{};
    /// Compares two entities of the type.
    bool (*equal)(const void* a, const void* b) = nullptr;
};

/// Specialised as true in the header of each entity that is a collection item.
template <class Entity>
inline constexpr bool isCollectionItem = false;

/// The table of an entity: declared in its header and defined in its source. The address of the table identifies the
/// type, also across shared libraries.
template <class Entity>
const CollectionItemTable& collectionItemTable();

/// A row of the table: the entity provides this member with a field or a const member function.
template <CollectionItemMember Member, auto Source>
struct own {
    /// The member.
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

/// Not constexpr, so that a table without a needed member does not compile.
inline void aMemberWithoutDefaultIsMissing() {}

template <std::size_t... Is>
constexpr bool allNeededAreIn(const CollectionItemTable& table, std::index_sequence<Is...>) {
    return ((!isNeededMember[Is] || table.getters[Is] != nullptr) && ...);
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

/// Creates the table of an entity from its rows. All members without a default are required. The entity does not need
/// an `operator==`: without it, items are equal if they share one entity.
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

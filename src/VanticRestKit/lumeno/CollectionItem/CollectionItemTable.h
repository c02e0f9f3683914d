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
#include <iterator>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace VanticRestKit {

// The one list of the members of `CollectionItem`, in their order: their types, and whether an entity must give them
// (`needed`) or they have the default of the interface. The last is an operation: what gives it is called with a path.
// A new member also needs its function in `CollectionItem`, and a row in the table of each entity that gives it.
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

/// The members of `CollectionItem`, in their order.
enum class CollectionItemMember : std::uint8_t {
#define VRK_MEMBER(name, ...) name,
    VRK_COLLECTION_ITEM_MEMBERS(VRK_MEMBER, VRK_MEMBER)
#undef VRK_MEMBER
};

namespace detail {

// Whether an entity must give a member, which then has no default.
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

/// How many members there are.
inline constexpr std::size_t collectionItemMembers = std::size(detail::isNeededMember);

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

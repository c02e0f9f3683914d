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
};
inline constexpr std::size_t collectionItemMembers = 36;

namespace detail {

using Text = std::optional<std::string>;
using Number = std::optional<std::uint64_t>;

/// The type of a member, and whether an entity must give it.
template <class T, bool Needed>
struct MemberRule {
    using Type = T;
    static constexpr bool isNeeded = Needed;
};
template <CollectionItemMember M>
struct RuleOf;
template <>
struct RuleOf<CollectionItemMember::selfHref> : MemberRule<Text, true> {};
template <>
struct RuleOf<CollectionItemMember::deeplinkHref> : MemberRule<Text, true> {};
template <>
struct RuleOf<CollectionItemMember::title> : MemberRule<Text, true> {};
template <>
struct RuleOf<CollectionItemMember::displayTitle> : MemberRule<Text, true> {};
template <>
struct RuleOf<CollectionItemMember::thumbnail> : MemberRule<Text, true> {};
template <>
struct RuleOf<CollectionItemMember::showTitle> : MemberRule<Text, true> {};
template <>
struct RuleOf<CollectionItemMember::showId> : MemberRule<Number, true> {};
template <>
struct RuleOf<CollectionItemMember::playableVideo> : MemberRule<std::optional<DirectPlayableVideo>, true> {};
template <>
struct RuleOf<CollectionItemMember::subtype> : MemberRule<std::optional<LumenoSubtype>, false> {};
template <>
struct RuleOf<CollectionItemMember::status> : MemberRule<std::optional<Status>, false> {};
template <>
struct RuleOf<CollectionItemMember::captionsAvailable> : MemberRule<bool, false> {};
template <>
struct RuleOf<CollectionItemMember::classification> : MemberRule<Text, false> {};
template <>
struct RuleOf<CollectionItemMember::kickerTitle> : MemberRule<Text, true> {};
template <>
struct RuleOf<CollectionItemMember::displaySubtitle> : MemberRule<Text, false> {};
template <>
struct RuleOf<CollectionItemMember::seriesTitle> : MemberRule<Text, false> {};
template <>
struct RuleOf<CollectionItemMember::houseNumber> : MemberRule<Text, false> {};
template <>
struct RuleOf<CollectionItemMember::duration> : MemberRule<Number, false> {};
template <>
struct RuleOf<CollectionItemMember::displayDuration> : MemberRule<Text, false> {};
template <>
struct RuleOf<CollectionItemMember::displayDurationAccessible> : MemberRule<Text, false> {};
template <>
struct RuleOf<CollectionItemMember::availability> : MemberRule<Text, false> {};
template <>
struct RuleOf<CollectionItemMember::portraitThumbnail> : MemberRule<Text, false> {};
template <>
struct RuleOf<CollectionItemMember::portraitTitledThumbnail> : MemberRule<Text, false> {};
template <>
struct RuleOf<CollectionItemMember::episodePortraitThumbnail> : MemberRule<Text, false> {};
template <>
struct RuleOf<CollectionItemMember::character1Thumbnail> : MemberRule<Text, false> {};
template <>
struct RuleOf<CollectionItemMember::character2Thumbnail> : MemberRule<Text, false> {};
template <>
struct RuleOf<CollectionItemMember::updated> : MemberRule<std::optional<Date>, false> {};
template <>
struct RuleOf<CollectionItemMember::description> : MemberRule<Text, false> {};
template <>
struct RuleOf<CollectionItemMember::episodeCount> : MemberRule<Number, false> {};
template <>
struct RuleOf<CollectionItemMember::slug> : MemberRule<Text, false> {};
template <>
struct RuleOf<CollectionItemMember::broadcastInfo> : MemberRule<Text, false> {};
template <>
struct RuleOf<CollectionItemMember::categoryLinks> : MemberRule<std::vector<Link>, false> {};
template <>
struct RuleOf<CollectionItemMember::tags> : MemberRule<std::vector<std::string>, true> {};
template <>
struct RuleOf<CollectionItemMember::showHref> : MemberRule<Text, true> {};
template <>
struct RuleOf<CollectionItemMember::channel> : MemberRule<Text, true> {};
template <>
struct RuleOf<CollectionItemMember::channelTitle> : MemberRule<Text, true> {};
template <>
struct RuleOf<CollectionItemMember::derivedShowSlug> : MemberRule<Text, true> {};

}  // namespace detail

/// How an entity gives its members: one function for each, or null for a member that keeps the default of the
/// interface. Made by `collectionItem`.
struct CollectionItemTable {
    using Getter = void (*)(const void* entity, void* value);
    std::array<Getter, collectionItemMembers> getters{};
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
    static constexpr CollectionItemMember member = Member;
    using Type = typename detail::RuleOf<Member>::Type;

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
    return ((!RuleOf<static_cast<CollectionItemMember>(Is)>::isNeeded || table.getters[Is] != nullptr) &&
            ...);
}

}  // namespace detail

template <CollectionItemMember Member, auto Source>
void own<Member, Source>::get(const void* entity, void* value) {
    const auto& owner = *static_cast<const typename detail::OwnerOf<decltype(Source)>::Entity*>(entity);
    if constexpr (std::is_member_function_pointer_v<decltype(Source)>) {
        *static_cast<Type*>(value) = (owner.*Source)();
    } else {
        *static_cast<Type*>(value) = owner.*Source;
    }
}

/// Makes the table of an entity from its rows. A member without a default must be among them.
template <class Entity, class... Owns>
consteval CollectionItemTable collectionItem(Owns...) {
    CollectionItemTable table;
    ((table.getters[static_cast<std::size_t>(Owns::member)] = &Owns::get), ...);
    table.equal = [](const void* a, const void* b) {
        return *static_cast<const Entity*>(a) == *static_cast<const Entity*>(b);
    };
    if (!detail::allNeededAreIn(table, std::make_index_sequence<collectionItemMembers>())) {
        detail::aMemberWithoutDefaultIsMissing();
    }
    return table;
}

}  // namespace VanticRestKit

#pragma once

/// \file
/// `MixedCollection`: a titled list of shows, videos and series side by side.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/lumeno/CollectionItem/CollectionItem.h>
#include <VanticRestKit/lumeno/Image/Image.h>
#include <VanticRestKit/lumeno/Link/Link.h>
#include <VanticRestKit/lumeno/MixedCollection/MixedItem.h>
#include <VanticRestKit/platform/json/Fresh.h>
#include <VanticRestKit/platform/json/JSONEncoder.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// How a collection is to be laid out.
enum class MixedCollectionType { standard, movie, featured };

/// The raw texts of `MixedCollectionType`.
template <>
struct RawTexts<MixedCollectionType> {
    /// The cases with their names and raw texts, in case order.
    static constexpr RawCase<MixedCollectionType> cases[] = {
        {MixedCollectionType::standard, "standard", "standard"},
        {MixedCollectionType::movie, "movie", "movie"},
        {MixedCollectionType::featured, "featured", "featured"},
    };
};

/// A titled list of shows, videos and series side by side.
///
/// It must have a title and, where it has links at all, one to itself. An element that is no show, no video and no
/// series is left out; nothing else fails its decoding.
struct VRK_EXPORT MixedCollection {
    struct Empty;

    /// All members, by label.
    struct Members {
        /// The id, or empty.
        Required<std::optional<std::string>> collectionId;
        /// The title.
        Required<std::string> title;
        /// The elements, of any type.
        Required<std::vector<MixedItem>> mixedItems;
        /// The path of the collection, or empty.
        Required<std::optional<std::string>> href;
        /// How the collection is to be shown.
        Required<MixedCollectionType> type;
        /// What it is about, or empty.
        Required<std::optional<std::string>> description;
        /// The address of a picture, or empty.
        Required<std::optional<std::string>> thumbnail;
        /// The banner, or empty.
        Required<std::optional<Banner>> banner;
        /// Where the whole collection is, or empty.
        Required<std::optional<Link>> collectionLink;
        /// The item to highlight, or empty.
        Required<std::optional<CollectionItem>> highlightItem;
        /// The id of its alert, or empty.
        Required<std::optional<std::string>> alertId;
    };
    /// The members of a collection that a host makes, by label.
    struct Items {
        /// The title.
        Required<std::string> title;
        /// The path of the collection, or empty.
        Required<std::optional<std::string>> href;
        /// The elements.
        Required<std::vector<CollectionItem>> items;
    };

    /// For decoders alone.
    explicit MixedCollection(mapping::Fresh) {}
    /// A collection of all its fields.
    explicit MixedCollection(Members members);
    /// A collection of a host's own: of type `standard`, all else empty.
    explicit MixedCollection(Items items);

    /// A number of the service is held in decimal.
    std::optional<std::string> collectionId{};
    /// The title. Key `title`; must be there and be a string.
    std::string title{};
    /// In the service's order. Decoding gives shows, videos and series and leaves out what is none of them.
    std::vector<MixedItem> mixedItems{};
    /// The path of the collection, below the API's version prefix.
    std::optional<std::string> href{};
    /// Key `type`; `standard` if absent or not known.
    MixedCollectionType type{};
    /// What it is about. Key `description`; empty if absent or not a string.
    std::optional<std::string> description{};
    /// The address of a picture. Key `thumbnail`; empty if absent or not a string.
    std::optional<std::string> thumbnail{};
    /// The banner. Key `banner`; empty if absent or if it does not decode.
    std::optional<Banner> banner{};
    /// Where the whole collection is. Key `collectionLink`; empty if absent or if it does not decode.
    std::optional<Link> collectionLink{};
    /// A show or a video.
    std::optional<CollectionItem> highlightItem{};
    /// What `Endpoint::ProductAlert` fetches the alert of the collection by.
    std::optional<std::string> alertId{};

    /// The elements of `mixedItems` that are collection items, in their order; any others are left out.
    std::vector<CollectionItem> items() const;

    friend bool operator==(const MixedCollection&, const MixedCollection&) = default;
};

/// Decodes from any JSON value without reading it, and encodes as an object without members.
struct MixedCollection::Empty {
    /// Writes no member: a collection is encoded as an empty object.
    void encode(JSONObjectWriter&) const {}

    friend bool operator==(const Empty&, const Empty&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<MixedCollection>();
template <>
VRK_EXPORT const TypePlan& planOf<MixedCollection::Empty>();

}  // namespace VanticRestKit

#pragma once

/// \file
/// `MixedCollection`: a titled list of shows, videos and series.

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

/// The layout of a collection.
enum class MixedCollectionType { standard, movie, featured };

/// The raw strings of `MixedCollectionType`.
template <>
struct RawTexts<MixedCollectionType> {
    /// The cases with their names and raw strings, in declaration order.
    static constexpr RawCase<MixedCollectionType> cases[] = {
        {MixedCollectionType::standard, "standard", "standard"},
        {MixedCollectionType::movie, "movie", "movie"},
        {MixedCollectionType::featured, "featured", "featured"},
    };
};

/// A titled list of shows, videos and series.
///
/// The title is required, and so is the link to itself if there is an object of links. Elements that are not a show, a
/// video or a series are omitted. Nothing else makes decoding fail.
struct VRK_EXPORT MixedCollection {
    struct Empty;

    /// The values of all fields.
    struct Members {
        /// The id, or empty.
        Required<std::optional<std::string>> collectionId;
        /// The title.
        Required<std::string> title;
        /// The elements, which may have any type.
        Required<std::vector<MixedItem>> mixedItems;
        /// The path of the collection, or empty.
        Required<std::optional<std::string>> href;
        /// The layout of the collection.
        Required<MixedCollectionType> type;
        /// The description, or empty.
        Required<std::optional<std::string>> description;
        /// The URL of an image, or empty.
        Required<std::optional<std::string>> thumbnail;
        /// The banner, or empty.
        Required<std::optional<Banner>> banner;
        /// The link to the complete collection, or empty.
        Required<std::optional<Link>> collectionLink;
        /// The item to highlight, or empty.
        Required<std::optional<CollectionItem>> highlightItem;
        /// The id of its alert, or empty.
        Required<std::optional<std::string>> alertId;
    };
    /// The fields of a collection created by a host.
    struct Items {
        /// The title.
        Required<std::string> title;
        /// The path of the collection, or empty.
        Required<std::optional<std::string>> href;
        /// The elements.
        Required<std::vector<CollectionItem>> items;
    };

    /// Used only for decoding.
    explicit MixedCollection(mapping::Fresh) {}
    /// Creates a collection from the values of all fields.
    explicit MixedCollection(Members members);
    /// Creates a collection of type `standard`; the other fields are empty.
    explicit MixedCollection(Items items);

    /// Key `id`; a number is converted to a decimal string. Empty if absent or of another type.
    std::optional<std::string> collectionId{};
    /// The title. Key `title`; a required string.
    std::string title{};
    /// In the order of the service. After decoding: only shows, videos and series; other elements are omitted.
    std::vector<MixedItem> mixedItems{};
    /// The path of the collection, relative to the API's version prefix.
    std::optional<std::string> href{};
    /// Key `type`; `standard` if absent or not known.
    MixedCollectionType type{};
    /// The description. Key `description`; empty if absent or not a string.
    std::optional<std::string> description{};
    /// The URL of an image. Key `thumbnail`; empty if absent or not a string.
    std::optional<std::string> thumbnail{};
    /// The banner. Key `banner`; empty if absent or if it cannot be decoded.
    std::optional<Banner> banner{};
    /// The link to the complete collection. Key `collectionLink`; empty if absent or if it cannot be decoded.
    std::optional<Link> collectionLink{};
    /// A show or a video; empty if there is none.
    std::optional<CollectionItem> highlightItem{};
    /// The id of the alert about the collection, for `Endpoint::ProductAlert`.
    std::optional<std::string> alertId{};

    /// The elements of `mixedItems` that are collection items, in order.
    std::vector<CollectionItem> items() const;

    friend bool operator==(const MixedCollection&, const MixedCollection&) = default;
};

/// Can be decoded from any JSON value, which is ignored; is encoded as an empty object.
struct MixedCollection::Empty {
    /// Writes no members.
    void encode(JSONObjectWriter&) const {}

    friend bool operator==(const Empty&, const Empty&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<MixedCollection>();
template <>
VRK_EXPORT const TypePlan& planOf<MixedCollection::Empty>();

}  // namespace VanticRestKit

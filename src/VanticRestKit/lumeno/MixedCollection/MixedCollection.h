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
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// How a collection is to be laid out.
enum class MixedCollectionType { standard, movie, featured };

template <>
struct RawTexts<MixedCollectionType> {
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

    struct Members {
        Required<std::optional<std::string>> collectionId;
        Required<std::string> title;
        Required<std::vector<MixedItem>> mixedItems;
        Required<std::optional<std::string>> href;
        Required<MixedCollectionType> type;
        Required<std::optional<std::string>> description;
        Required<std::optional<std::string>> thumbnail;
        Required<std::optional<Banner>> banner;
        Required<std::optional<Link>> collectionLink;
        Required<std::optional<CollectionItem>> highlightItem;
        Required<std::optional<std::string>> alertId;
    };
    struct Items {
        Required<std::string> title;
        Required<std::optional<std::string>> href;
        Required<std::vector<CollectionItem>> items;
    };

    explicit MixedCollection(mapping::Fresh) {}
    /// A collection of all its fields.
    explicit MixedCollection(Members members);
    /// A collection of a host's own: of type `standard`, all else empty.
    explicit MixedCollection(Items items);

    /// A number of the service is held in decimal.
    std::optional<std::string> collectionId{};
    std::string title{};
    /// In the service's order. Decoding gives shows, videos and series and leaves out what is none of them.
    std::vector<MixedItem> mixedItems{};
    /// The path of the collection, below the API's version prefix.
    std::optional<std::string> href{};
    MixedCollectionType type{};
    std::optional<std::string> description{};
    std::optional<std::string> thumbnail{};
    std::optional<Banner> banner{};
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
    void encode(JSONObjectWriter&) const {}

    friend bool operator==(const Empty&, const Empty&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<MixedCollection>();
template <>
VRK_EXPORT const TypePlan& planOf<MixedCollection::Empty>();

}  // namespace VanticRestKit

#pragma once

/// \file
/// `MixedItem`: a value of any type in a mixed list.

#include <VanticRestKit/lumeno/CollectionItem/CollectionItem.h>
#include <VanticRestKit/Visibility.h>

#include <any>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

namespace VanticRestKit {

/// A value of any type in a mixed list. One that is a collection item shows as such; any other is only carried.
class VRK_EXPORT MixedItem {
public:
    /// An element that is a collection item.
    MixedItem(CollectionItem item) : item_(std::move(item)) {}
    /// Holds a copy of `value`. A whole list is no element: in braces it would become the only one of another list.
    template <class T>
    requires(!std::is_same_v<T, MixedItem> && !std::is_same_v<T, CollectionItem> &&
             !std::is_same_v<T, std::vector<MixedItem>> && std::is_copy_constructible_v<T>)
        MixedItem(T value) {
        if constexpr (isCollectionItem<T>) {
            item_.emplace(std::move(value));
        } else {
            foreign_ = std::make_shared<const std::any>(std::move(value));
        }
    }

    /// Takes over `entity`, which is not null, where it lies.
    template <class Entity>
    requires isCollectionItem<Entity>
    static MixedItem owning(std::unique_ptr<Entity> entity) {
        return CollectionItem::owning(std::move(entity));
    }

    /// The value as a collection item; empty where its type is none.
    const std::optional<CollectionItem>& item() const noexcept { return item_; }

    /// The value, or null where it is of another type. Lives as long as this item or a copy of it.
    template <class T>
    const T* as() const noexcept {
        if constexpr (isCollectionItem<T>) {
            return item_ ? item_->template as<T>() : nullptr;
        } else {
            return foreign_ ? std::any_cast<T>(foreign_.get()) : nullptr;
        }
    }

    /// Whether both hold equal collection items, or one and the same value of another type.
    friend bool operator==(const MixedItem&, const MixedItem&) = default;

private:
    std::optional<CollectionItem> item_;
    std::shared_ptr<const std::any> foreign_;
};

}  // namespace VanticRestKit

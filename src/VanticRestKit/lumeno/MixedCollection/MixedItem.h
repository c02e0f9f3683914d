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

/// A value of any type in a mixed list. A collection item is accessible as such; other values are only stored.
class VRK_EXPORT MixedItem {
public:
    /// Holds a collection item.
    MixedItem(CollectionItem item) : item_(std::move(item)) {}
    /// Holds a copy of `value`. Lists of items are excluded: otherwise `{list}` would create a list with `list` as its
    /// only element.
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

    /// Holds `entity`, which must not be null, without copying it.
    template <class Entity>
    requires isCollectionItem<Entity>
    static MixedItem owning(std::unique_ptr<Entity> entity) {
        return CollectionItem::owning(std::move(entity));
    }

    /// The value as a collection item; empty if it is not one.
    const std::optional<CollectionItem>& item() const noexcept { return item_; }

    /// The value, or null if it is of another type. Valid as long as this item or a copy of it exists.
    template <class T>
    const T* as() const noexcept {
        if constexpr (isCollectionItem<T>) {
            return item_ ? item_->template as<T>() : nullptr;
        } else {
            return foreign_ ? std::any_cast<T>(foreign_.get()) : nullptr;
        }
    }

    /// Whether both hold equal collection items, or share one value of another type.
    friend bool operator==(const MixedItem&, const MixedItem&) = default;

private:
    std::optional<CollectionItem> item_;
    std::shared_ptr<const std::any> foreign_;
};

}  // namespace VanticRestKit

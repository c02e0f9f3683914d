#include <VanticRestKit/lumeno/Navigation/NavigationMainMenuList.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<NavigationMainMenuItemImage>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<NavigationMainMenuItemImage>(
        required<&NavigationMainMenuItemImage::id>("id"),
        required<&NavigationMainMenuItemImage::url>("url"),
        required<&NavigationMainMenuItemImage::accessibilityText>("accessibilityText"));
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<NavigationMainMenuItem>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<NavigationMainMenuItem>(
        required<&NavigationMainMenuItem::id>("id"),
        optional<&NavigationMainMenuItem::title>("title"),
        optional<&NavigationMainMenuItem::accessibilityText>("accessibilityText"),
        optional<&NavigationMainMenuItem::logoUrl>("logoUrl"),
        optional<&NavigationMainMenuItem::path>("path"),
        optional<&NavigationMainMenuItem::items>("items"),
        optional<&NavigationMainMenuItem::images>("images"));
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<NavigationMainMenuList>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<NavigationMainMenuList>(
        required<&NavigationMainMenuList::items>("items"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

#include <VanticRestKit/lumeno/Navigation/NavigationMainMenuItemImage.h>

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

}  // namespace VanticRestKit

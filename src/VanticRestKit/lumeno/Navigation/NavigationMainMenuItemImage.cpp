#include <VanticRestKit/lumeno/Navigation/NavigationMainMenuItemImage.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<NavigationMainMenuItemImage>() {
    using namespace mapping;
    static const TypePlan& plan = object<NavigationMainMenuItemImage>(
        required<&NavigationMainMenuItemImage::id>("id"),
        required<&NavigationMainMenuItemImage::url>("url"),
        required<&NavigationMainMenuItemImage::accessibilityText>("accessibilityText"));
    return plan;
}

}  // namespace VanticRestKit

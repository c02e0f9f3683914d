#include <VanticRestKit/lumeno/Navigation/NavigationList.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<NavigationItem>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<NavigationItem>(
        lenient<&NavigationItem::id>("id"),
        lenient<&NavigationItem::title>("title"),
        lenient<&NavigationItem::accessibilityText>("accessibilityText"),
        lenient<&NavigationItem::logoUrl>("logoUrl"),
        lenient<&NavigationItem::logoUrlWide>("logoUrlWide"),
        lenient<&NavigationItem::path>("path"),
        lenient<&NavigationItem::images>("images"),
        requiredObject("_links",
            requiredObject("self",
                required<&NavigationItem::selfHref>("href"))));
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<NavigationList>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<NavigationList>(
        lenient<&NavigationList::items>("items"),
        requiredObject("_links",
            requiredObject("self",
                required<&NavigationList::selfHref>("href"))));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

#include <VanticRestKit/lumeno/Navigation/NavigationList.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

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

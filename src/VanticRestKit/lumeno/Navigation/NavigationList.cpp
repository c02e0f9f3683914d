#include <VanticRestKit/lumeno/Navigation/NavigationList.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<NavigationList>() {
    using namespace mapping;
    static const TypePlan& plan = object<NavigationList>(
        lenient<&NavigationList::items>("items"),
        requiredObject("_links",
            requiredObject("self",
                required<&NavigationList::selfHref>("href"))));
    return plan;
}

}  // namespace VanticRestKit

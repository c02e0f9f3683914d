#include <VanticRestKit/lumeno/Navigation/NavigationMainMenuList.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<NavigationMainMenuList>() {
    using namespace mapping;
    static const TypePlan& plan = object<NavigationMainMenuList>(
        required<&NavigationMainMenuList::items>("items"));
    return plan;
}

}  // namespace VanticRestKit

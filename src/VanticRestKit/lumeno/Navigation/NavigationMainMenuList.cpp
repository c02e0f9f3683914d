#include <VanticRestKit/lumeno/Navigation/NavigationMainMenuList.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

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

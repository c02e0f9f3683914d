#include <VanticRestKit/lumeno/Navigation/BrowseItem.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<BrowseItem>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<BrowseItem>(
        defaulted<&BrowseItem::id>("id"),
        defaulted<&BrowseItem::title>("title"),
        defaulted<&BrowseItem::items>("items"),
        defaulted<&BrowseItem::accessibilityText>("accessibilityText"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

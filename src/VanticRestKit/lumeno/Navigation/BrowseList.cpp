#include <VanticRestKit/lumeno/Navigation/BrowseList.h>

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

template <>
const TypePlan& planOf<BrowseList>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<BrowseList>(
        requiredObject("_links",
            requiredObject("self",
                defaulted<&BrowseList::href>("href"))),
        requiredObject("_embedded",
            defaulted<&BrowseList::items>("items")));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

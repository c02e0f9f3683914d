#include <VanticRestKit/lumeno/Navigation/BrowseList.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

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

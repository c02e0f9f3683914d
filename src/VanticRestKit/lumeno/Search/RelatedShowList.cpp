#include <VanticRestKit/lumeno/Search/RelatedShowList.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<RelatedShowList>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<RelatedShowList>(
        lenient<&RelatedShowList::items>("items"),
        unread("_links"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

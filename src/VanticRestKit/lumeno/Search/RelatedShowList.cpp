#include <VanticRestKit/lumeno/Search/RelatedShowList.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<RelatedShowList>() {
    using namespace mapping;
    static const TypePlan& plan = object<RelatedShowList>(
        lenient<&RelatedShowList::items>("items"),
        unread("_links"));
    return plan;
}

}  // namespace VanticRestKit

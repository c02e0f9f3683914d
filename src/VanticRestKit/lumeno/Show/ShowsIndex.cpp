#include <VanticRestKit/lumeno/Show/ShowsIndex.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<ShowsIndex>() {
    using namespace mapping;
    static const TypePlan& plan = object<ShowsIndex>(
        required<&ShowsIndex::groups>("items"),
        lenientObject("_links",
            lenientObject("alert",
                lenient<&ShowsIndex::alertId>("id"))));
    return plan;
}

}  // namespace VanticRestKit

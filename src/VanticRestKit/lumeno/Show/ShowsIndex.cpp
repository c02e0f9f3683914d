#include <VanticRestKit/lumeno/Show/ShowsIndex.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<ShowsIndex>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<ShowsIndex>(
        required<&ShowsIndex::groups>("items"),
        lenientObject("_links",
            lenientObject("alert",
                lenient<&ShowsIndex::alertId>("id"))));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

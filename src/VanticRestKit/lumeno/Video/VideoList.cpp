#include <VanticRestKit/lumeno/Video/VideoList.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<VideoList>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<VideoList>(
        lenient<&VideoList::videos>("items"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

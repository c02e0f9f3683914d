#include <VanticRestKit/lumeno/Video/VideoList.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<VideoList>() {
    using namespace mapping;
    static const TypePlan& plan = object<VideoList>(
        lenient<&VideoList::videos>("items"));
    return plan;
}

}  // namespace VanticRestKit

#include <VanticRestKit/trelvo/Dataset/DatasetResponse.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<DatasetResponse>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<DatasetResponse>(
        lenient<&DatasetResponse::meta>("meta"),
        lenient<&DatasetResponse::data>("data"),
        lenient<&DatasetResponse::auth>("auth"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

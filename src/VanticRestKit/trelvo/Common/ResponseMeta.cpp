#include <VanticRestKit/trelvo/Common/ResponseMeta.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<ResponseMeta>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<ResponseMeta>(
        optional<&ResponseMeta::count>("count"),
        optional<&ResponseMeta::data>("data"),
        optional<&ResponseMeta::statusCode>("status_code"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

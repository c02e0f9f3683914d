#include <VanticRestKit/trelvo/History/HistoryResponse.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<HistoryResponse>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<HistoryResponse>(
        lenient<&HistoryResponse::meta>("meta"),
        lenient<&HistoryResponse::auth>("auth"),
        lenient<&HistoryResponse::data>("data"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

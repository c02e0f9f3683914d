#include <VanticRestKit/lumeno/ProductAlert/ProductAlert.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<ProductAlert>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<ProductAlert>(
        required<&ProductAlert::id>("id"),
        required<&ProductAlert::title>("title"),
        required<&ProductAlert::message>("message"),
        lenient<&ProductAlert::status>("status"),
        lenient<&ProductAlert::link>("link"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

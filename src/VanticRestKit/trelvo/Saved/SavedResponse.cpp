#include <VanticRestKit/trelvo/Saved/SavedResponse.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<SavedResponse>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<SavedResponse>(
        lenient<&SavedResponse::meta>("meta"),
        lenient<&SavedResponse::auth>("auth"),
        lenient<&SavedResponse::data>("data"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

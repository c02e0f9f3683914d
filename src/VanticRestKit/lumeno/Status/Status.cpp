#include <VanticRestKit/lumeno/Status/Status.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<Status>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Status>(
        required<&Status::title>("title"),
        required<&Status::theme, fromRawOr<StatusTheme::default_>>("theme"));
    // clang-format on
    return plan;
}

const ErrorTag& Status::DecodingError::errorTag() {
    static const ErrorTag tag;
    return tag;
}

}  // namespace VanticRestKit

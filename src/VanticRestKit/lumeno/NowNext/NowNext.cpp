#include <VanticRestKit/lumeno/NowNext/NowNext.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<NowNext>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<NowNext>(
        optional<&NowNext::now>("now"),
        optional<&NowNext::next>("next"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

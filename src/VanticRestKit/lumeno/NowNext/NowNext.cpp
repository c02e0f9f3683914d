#include <VanticRestKit/lumeno/NowNext/NowNext.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<NowNext>() {
    using namespace mapping;
    static const TypePlan& plan = object<NowNext>(
        optional<&NowNext::now>("now"),
        optional<&NowNext::next>("next"));
    return plan;
}

}  // namespace VanticRestKit

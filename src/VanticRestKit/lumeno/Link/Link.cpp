#include <VanticRestKit/lumeno/Link/Link.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<Link>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Link>(
        required<&Link::href>("href"),
        lenient<&Link::id>("id"),
        lenient<&Link::title>("title"),
        lenient<&Link::tags>("tags"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

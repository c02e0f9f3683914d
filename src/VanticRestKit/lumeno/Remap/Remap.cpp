#include <VanticRestKit/lumeno/Remap/Remap.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<Remap>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Remap>(
        defaulted<&Remap::status>("status"),
        requiredObject("_links",
            requiredObject("deeplink",
                defaulted<&Remap::deeplinkHref>("href")),
            requiredObject("api",
                defaulted<&Remap::apiHref>("href"))));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

#include <VanticRestKit/lumeno/Image/Banner.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<Banner>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Banner>(
        required<&Banner::largeImageHref>("large"),
        required<&Banner::smallImageHref>("small"),
        optional<&Banner::altText>("altText"),
        required<&Banner::linkHref>("link"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

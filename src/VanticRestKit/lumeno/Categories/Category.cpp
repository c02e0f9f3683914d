#include <VanticRestKit/lumeno/Categories/Category.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<Category>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Category>(
        lenient<&Category::id>("id"),
        required<&Category::title>("title"),
        lenient<&Category::featuredImageHref>("featuredImage"),
        lenient<&Category::logoHref>("logoUrl"),
        lenient<&Category::banner>("banner"),
        lenient<&Category::theme, fromRaw<Theme>>("theme"),
        requiredObject("_embedded",
            required<&Category::featuredCollection>("featuredCollection"),
            required<&Category::collections>("collections")),
        requiredObject("_links",
            requiredObject("self",
                required<&Category::selfHref>("href")),
            lenientObject("alert",
                lenient<&Category::alertId>("id"))));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

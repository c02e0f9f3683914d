#include <VanticRestKit/lumeno/Search/SearchResults.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<SearchResults>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<SearchResults>(
        requiredObject("results",
            lenient<&SearchResults::items>("items")),
        requiredObject("_meta",
            lenient<&SearchResults::keyword>("keyword")));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

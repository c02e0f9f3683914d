#include <VanticRestKit/recs/RecommendationModule.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<RecommendationModule>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<RecommendationModule>(
        required<&RecommendationModule::moduleid>("moduleid"),
        required<&RecommendationModule::variantid>("variantid"),
        required<&RecommendationModule::label>("label"),
        required<&RecommendationModule::recommendations>("recommendations"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

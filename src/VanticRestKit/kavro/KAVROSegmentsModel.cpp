#include <VanticRestKit/kavro/KAVROSegmentsModel.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<KAVROSegmentsModel>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<KAVROSegmentsModel>(
        lenient<&KAVROSegmentsModel::activeAudiences, keepDecodable>("active_audiences"),
        lenient<&KAVROSegmentsModel::activeBadges, keepDecodable>("active_badges"),
        required<&KAVROSegmentsModel::userId>("user_id"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

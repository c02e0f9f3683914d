#include <VanticRestKit/lumeno/NowNext/NowNext.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<NowNextContainer>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<NowNextContainer>(
        required<&NowNextContainer::houseNumber>("houseNumber"),
        required<&NowNextContainer::displayTitle>("displayTitle"),
        lenient<&NowNextContainer::description>("description"),
        required<&NowNextContainer::displaySubtitle>("displaySubtitle"),
        required<&NowNextContainer::start>("start"),
        required<&NowNextContainer::end>("end"),
        required<&NowNextContainer::duration>("duration"),
        required<&NowNextContainer::playable>("playable"),
        required<&NowNextContainer::captions>("captions"),
        lenient<&NowNextContainer::classification>("classification"),
        required<&NowNextContainer::eventType>("eventType"),
        required<&NowNextContainer::entity>("_entity"));
    // clang-format on
    return plan;
}

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

#include <VanticRestKit/lumeno/Video/Participants.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<Participants>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Participants>(
        optional<&Participants::title>("title"),
        optional<&Participants::list>("list"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

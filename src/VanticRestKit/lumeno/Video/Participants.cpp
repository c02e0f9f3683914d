#include <VanticRestKit/lumeno/Video/Participants.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<Participants>() {
    using namespace mapping;
    static const TypePlan& plan = object<Participants>(
        optional<&Participants::title>("title"),
        optional<&Participants::list>("list"));
    return plan;
}

}  // namespace VanticRestKit

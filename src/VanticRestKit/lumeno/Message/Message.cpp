#include <VanticRestKit/lumeno/Message/Message.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<Message>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Message>(
        lenient<&Message::messageId>("id"),
        lenient<&Message::title>("title"),
        lenient<&Message::count>("count"),
        lenient<&Message::interval>("interval"),
        lenient<&Message::message>("message"),
        lenient<&Message::links>("links"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit

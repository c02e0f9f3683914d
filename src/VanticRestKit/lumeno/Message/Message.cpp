#include <VanticRestKit/lumeno/Message/Message.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<Message>() {
    using namespace mapping;
    static const TypePlan& plan = object<Message>(
        lenient<&Message::messageId>("id"),
        lenient<&Message::title>("title"),
        lenient<&Message::count>("count"),
        lenient<&Message::interval>("interval"),
        lenient<&Message::message>("message"),
        lenient<&Message::links>("links"));
    return plan;
}

}  // namespace VanticRestKit

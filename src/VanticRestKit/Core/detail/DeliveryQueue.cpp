#include <VanticRestKit/Core/detail/DeliveryQueue.h>

namespace VanticRestKit::detail {

DispatchQueue sharedDeliveryQueue() {
    static const auto& queue = *new DispatchQueue("VanticRestKit outcomes");
    return queue;
}

}  // namespace VanticRestKit::detail

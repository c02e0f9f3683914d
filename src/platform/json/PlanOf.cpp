#include <VanticRestKit/platform/json/PlanOf.h>

#include <algorithm>
#include <string>

namespace VanticRestKit::mapping {

std::size_t grownCapacity(std::size_t count, std::size_t elementSize, std::size_t bytesRead,
                          std::size_t bytesLeft) noexcept {
    const std::size_t doubled = std::max<std::size_t>(1, count * 2);
    if (count == 0) return doubled;
    const std::size_t bytesEach = std::max<std::size_t>(1, bytesRead / count);
    const std::size_t estimated = count + 1 + bytesLeft / bytesEach;
    // Small elements first and large ones behind must not make a list of a thousand times its size.
    const std::size_t most = count + 1 + 2 * bytesLeft / elementSize;
    return std::max(doubled, std::min(estimated, most));
}

std::string listName(std::string_view element) { return "[" + std::string(element) + "]"; }

}  // namespace VanticRestKit::mapping

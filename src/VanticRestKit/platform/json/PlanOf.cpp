#include <VanticRestKit/platform/json/PlanOf.h>

#include <algorithm>

namespace VanticRestKit::mapping {

std::size_t grownCapacity(std::size_t count, std::size_t elementSize, std::size_t bytesRead,
                          std::size_t bytesLeft) noexcept {
    // Lists of small elements rarely hold just one, and reallocating costs more than space for a second element.
    constexpr std::size_t small = 256;
    if (count == 0) return elementSize <= small ? 2 : 1;
    const std::size_t doubled = count * 2;
    if (bytesLeft == 0) return doubled;
    // The bytes read so far begin with the opening bracket.
    const std::size_t bytesEach = std::max<std::size_t>(1, (bytesRead - 1) / count);
    const std::size_t more = bytesLeft / bytesEach + 1;
    // If the estimate is one element short, the whole list is moved, so reserve a little more.
    const std::size_t estimated = count + more + more / 16;
    // Small elements followed by large ones must not make the list reserve a thousand times what it needs.
    const std::size_t limit = count + 1 + 2 * bytesLeft / elementSize;
    return estimated <= limit ? std::max(estimated, count + count / 4) : std::max(doubled, limit);
}

}  // namespace VanticRestKit::mapping

#include <VanticRestKit/platform/json/PlanOf.h>

#include <algorithm>

namespace VanticRestKit::mapping {

std::size_t grownCapacity(std::size_t count, std::size_t elementSize, std::size_t bytesRead,
                          std::size_t bytesLeft) noexcept {
    // Few lists of small elements hold one alone, and to begin anew costs more than the room for a second.
    constexpr std::size_t small = 256;
    if (count == 0) return elementSize <= small ? 2 : 1;
    const std::size_t doubled = count * 2;
    if (bytesLeft == 0) return doubled;
    // The bytes read so far begin with the opening bracket.
    const std::size_t bytesEach = std::max<std::size_t>(1, (bytesRead - 1) / count);
    const std::size_t more = bytesLeft / bytesEach + 1;
    // A list that turns out short by one element moves them all, so a little more than is expected.
    const std::size_t estimated = count + more + more / 16;
    // Small elements first and large ones behind must not make a list of a thousand times its size.
    const std::size_t most = count + 1 + 2 * bytesLeft / elementSize;
    return estimated <= most ? std::max(estimated, count + count / 4) : std::max(doubled, most);
}

}  // namespace VanticRestKit::mapping

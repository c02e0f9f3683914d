#include <VanticRestKit/Core/detail/RetryAfter.h>

#include <VanticRestKit/platform/date/detail/HTTPDate.h>

#include <algorithm>

namespace VanticRestKit::detail {

std::optional<std::chrono::duration<double>> waitOf(std::string_view text, Date now) noexcept {
    using Seconds = std::chrono::duration<double>;
    const bool isNumber =
        !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
    if (isNumber) {
        // As a floating-point number, because the number of digits is not limited.
        double seconds = 0;
        for (const char digit : text) seconds = seconds * 10 + (digit - '0');
        return Seconds(seconds);
    }
    const std::optional<Date> until = httpDate(text, now);
    if (!until) return std::nullopt;
    return std::max(Seconds(0), *until - now);
}

}  // namespace VanticRestKit::detail

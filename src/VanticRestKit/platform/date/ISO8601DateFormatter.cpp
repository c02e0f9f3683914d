#include <VanticRestKit/platform/date/detail/DateReader.h>
#include <VanticRestKit/platform/date/ISO8601DateFormatter.h>

namespace VanticRestKit {

std::optional<Date> ISO8601DateFormatter::date(std::string_view text) const {
    return detail::dateWithOffset(text);
}

}  // namespace VanticRestKit

#include <VanticRestKit/platform/json/Table.h>

#include <VanticRestKit/platform/date/detail/DeviceDate.h>

#include <optional>

namespace VanticRestKit::mapping {

bool deviceDate(std::string_view text, Date& value) {
    const std::optional<Date> date = VanticRestKit::detail::deviceDate(text);
    if (date) value = *date;
    return date.has_value();
}

}  // namespace VanticRestKit::mapping

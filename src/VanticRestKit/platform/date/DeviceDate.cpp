#include <VanticRestKit/platform/date/detail/DateReader.h>
#include <VanticRestKit/platform/date/detail/DeviceZone.h>
#include <VanticRestKit/platform/date/DeviceDate.h>

namespace VanticRestKit {

std::optional<Date> deviceDate(std::string_view text) {
    detail::DateReader reader(text);
    const auto clockSeconds = reader.clockSeconds(' ');
    if (!clockSeconds || !reader.atEnd()) return std::nullopt;
    const auto seconds = detail::DeviceZone::ofThisThread().instant(*clockSeconds);
    return seconds ? std::optional(detail::dateOfSeconds(*seconds)) : std::nullopt;
}

DeviceZoneHold::DeviceZoneHold() { detail::DeviceZone::ofThisThread().hold(); }

DeviceZoneHold::~DeviceZoneHold() { detail::DeviceZone::ofThisThread().release(); }

}  // namespace VanticRestKit

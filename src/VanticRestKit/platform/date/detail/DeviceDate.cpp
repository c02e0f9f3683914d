#include <VanticRestKit/platform/date/detail/DeviceDate.h>

#include <VanticRestKit/platform/date/detail/DateReader.h>
#include <VanticRestKit/platform/date/detail/DeviceZone.h>

namespace VanticRestKit::detail {

std::optional<Date> deviceDate(std::string_view text) {
    DateReader reader(text);
    const auto clockSeconds = reader.clockSeconds(' ');
    if (!clockSeconds || !reader.atEnd()) return std::nullopt;
    const auto seconds = DeviceZone::ofThisThread().instant(*clockSeconds);
    return seconds ? std::optional(dateOfSeconds(*seconds)) : std::nullopt;
}

DeviceZoneHold::DeviceZoneHold() { DeviceZone::ofThisThread().hold(); }

DeviceZoneHold::~DeviceZoneHold() { DeviceZone::ofThisThread().release(); }

}  // namespace VanticRestKit::detail

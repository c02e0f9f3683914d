#pragma once

/// \file
/// Parses dates without an offset in the device's time zone, fast enough for decoding.

#include <VanticRestKit/platform/date/Date.h>

#include <optional>
#include <string_view>

namespace VanticRestKit::detail {

/// The instant of `text`, such as "2021-03-04 05:06:07", in the device's time zone, or empty: the same result as a
/// `DateFormatter` with the device pattern and no zone.
///
/// The zone is that of the C library: the variable TZ, else the system's. A change of TZ takes effect at the next call,
/// a change of the system zone within some hundredths of a second, unless a `DeviceZoneHold` exists. Any thread; but no
/// thread may modify the environment at the same time.
std::optional<Date> deviceDate(std::string_view text);

/// While one exists, `deviceDate` on this thread does not check whether the zone has changed. This makes a call several
/// times faster, and all dates of one document are read in the same zone. Held for one decoding: made before the first
/// date is parsed, destroyed on the same thread. They may be nested.
class DeviceZoneHold {
public:
    DeviceZoneHold();
    ~DeviceZoneHold();
    DeviceZoneHold(const DeviceZoneHold&) = delete;
    DeviceZoneHold& operator=(const DeviceZoneHold&) = delete;
};

}  // namespace VanticRestKit::detail

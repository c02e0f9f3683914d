#pragma once

/// \file
/// Dates that tell no zone and mean the device's own: the quick way for decoding.

#include <VanticRestKit/platform/date/Date.h>

#include <optional>
#include <string_view>

namespace VanticRestKit::detail {

/// The instant of `text` of the form "2021-03-04 05:06:07" in the device's zone, or nothing: what a
/// `DateFormatter` with the device pattern and no zone of its own gives.
///
/// The zone is the C library's: the variable TZ, else the system's. A changed TZ is seen by the next call, a
/// changed system zone within some hundredths of a second, unless a `DeviceZoneHold` holds the zone. Any
/// thread; but as with everything in C that reads the environment, no thread may change it at the same time.
std::optional<Date> deviceDate(std::string_view text);

/// While one lives, `deviceDate` on this thread does not look whether the zone has changed. That makes a call
/// several times faster, and all dates of one document mean the same zone. For the time of one decoding: made
/// on its thread before the first date is read, destroyed on the same thread. They may be nested.
class DeviceZoneHold {
public:
    DeviceZoneHold();
    ~DeviceZoneHold();
    DeviceZoneHold(const DeviceZoneHold&) = delete;
    DeviceZoneHold& operator=(const DeviceZoneHold&) = delete;
};

}  // namespace VanticRestKit::detail

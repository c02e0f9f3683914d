#pragma once

/// \file
/// `ISO8601DateFormatter`: reads instants of the internet's form.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string_view>

namespace VanticRestKit {

/// Reads dates such as "2021-03-04T05:06:07Z" and "2021-03-04T05:06:07+10:00". Any thread.
class VRK_EXPORT ISO8601DateFormatter {
public:
    /// The instant that `text` names, or nothing. "T" and an offset must be there, a fraction of a second
    /// must not; the offset is "Z", "+hh:mm" or "+hhmm". Else as `DateFormatter::date`.
    std::optional<Date> date(std::string_view text) const;
};

}  // namespace VanticRestKit

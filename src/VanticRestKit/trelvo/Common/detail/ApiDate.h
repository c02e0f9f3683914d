#pragma once

// The reader for dates of the user data service.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/date/DateFormatter.h>

#include <optional>
#include <string_view>

namespace VanticRestKit::detail {

/// Reader: a string of the form "yyyy-MM-dd'T'HH:mm:ssZ", whose fraction of a second is ignored.
inline bool apiDate(std::string_view text, Date& value) {
    const std::optional<Date> date = apiDateFormatter().formattedDateWithoutMilliseconds(text);
    if (date) value = *date;
    return date.has_value();
}

}  // namespace VanticRestKit::detail

#pragma once

/// \file
/// The reader of the dates of the user data service.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/date/DateFormatter.h>

#include <optional>
#include <string_view>

namespace VanticRestKit {

/// Reader: a text of the form "yyyy-MM-dd'T'HH:mm:ssZ", its fraction left out.
inline bool apiDate(std::string_view text, Date& value) {
    const std::optional<Date> date = apiDateFormatter().formattedDateWithoutMilliseconds(text);
    if (date) value = *date;
    return date.has_value();
}

}  // namespace VanticRestKit

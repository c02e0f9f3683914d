#pragma once

/// \file
/// Reads the header `Retry-After`.

#include <VanticRestKit/platform/date/Date.h>

#include <chrono>
#include <optional>
#include <string_view>

namespace VanticRestKit::detail {

/// How long `text`, the value of a `Retry-After`, asks to wait, counted from `now`: a number of seconds, or a date.
/// Zero if the date has passed; nothing if it is neither.
std::optional<std::chrono::duration<double>> waitOf(std::string_view text, Date now) noexcept;

}  // namespace VanticRestKit::detail

#pragma once

/// \file
/// Parses the header `Retry-After`.

#include <VanticRestKit/platform/date/Date.h>

#include <chrono>
#include <optional>
#include <string_view>

namespace VanticRestKit::detail {

/// The delay that `text`, the value of a `Retry-After`, asks for at time `now`: a number of seconds, or until a date.
/// Zero if the date has passed; empty if it is neither.
std::optional<std::chrono::duration<double>> waitOf(std::string_view text, Date now) noexcept;

}  // namespace VanticRestKit::detail

#pragma once

/// \file
/// `Date`: an instant.

#include <chrono>

namespace VanticRestKit {

/// An instant, as the count of seconds since 1970-01-01 00:00:00 UTC, leap seconds left out. The count may
/// have a fraction and may be any double at all, since a server may send any: do no integer arithmetic on it
/// before its range is known.
using Date = std::chrono::sys_time<std::chrono::duration<double>>;

}  // namespace VanticRestKit

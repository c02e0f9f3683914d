#pragma once

/// \file
/// `Date`: an instant.

#include <chrono>

namespace VanticRestKit {

/// An instant: seconds since 1970-01-01 00:00:00 UTC, without leap seconds.
///
/// The count may have a fraction and may be any double, since a server may send any: check its range before using
/// integer arithmetic.
using Date = std::chrono::sys_time<std::chrono::duration<double>>;

}  // namespace VanticRestKit

#pragma once

/// \file
/// printf-style formatting.

#include <cstdint>
#include <string>

namespace VanticRestKit::detail {

/// The result of formatting the integer `number` with "%.0f", without converting it to a double.
///
/// The format reads a floating-point argument that was not passed, so the result is "0" for every `number` and
/// identifies nothing.
inline std::string zeroFractionFormat([[maybe_unused]] std::uint64_t number) { return "0"; }

}  // namespace VanticRestKit::detail

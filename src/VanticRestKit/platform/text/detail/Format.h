#pragma once

/// \file
/// Formatted text.

#include <cstdint>
#include <string>

namespace VanticRestKit::detail {

/// The text that the format "%.0f" makes of `number` when the number is handed over as the integer that it is.
///
/// The format reads a floating-point argument, and there is none, so this is "0" whatever `number` is. Texts made
/// this way identify nothing.
inline std::string zeroFractionFormat([[maybe_unused]] std::uint64_t number) { return "0"; }

}  // namespace VanticRestKit::detail

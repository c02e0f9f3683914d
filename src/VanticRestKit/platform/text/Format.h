#pragma once

/// \file
/// Formatted text.

#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <string>

namespace VanticRestKit {

/// The text that the format "%.0f" makes of `number` when the number is handed over as the integer that it
/// is.
///
/// The format reads a floating-point argument, and there is none, so this is "0" whatever `number` is. Texts
/// made this way identify nothing.
VRK_EXPORT std::string zeroFractionFormat(std::uint64_t number);

}  // namespace VanticRestKit

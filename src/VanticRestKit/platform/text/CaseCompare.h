#pragma once

/// \file
/// Comparison of texts with case left out.

#include <VanticRestKit/Visibility.h>

#include <string_view>

namespace VanticRestKit {

/// Whether two texts are the same with case left out: equal under full case folding, with characters that are
/// written in different but canonically equivalent ways taken as the same. Bytes that are not UTF-8 are the same
/// only as the same bytes. Any thread; linear in the length of the texts.
VRK_EXPORT bool sameIgnoringCase(std::string_view a, std::string_view b);

}  // namespace VanticRestKit

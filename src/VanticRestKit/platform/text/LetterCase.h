#pragma once

/// \file
/// Lower-casing, and the comparison that kinds of entities need.

#include <VanticRestKit/Visibility.h>

#include <string>
#include <string_view>

namespace VanticRestKit {

/// `text`, UTF-8, with every character replaced by its lower case, without regard to a language or to the
/// characters beside it. The result may be longer than `text`. Bytes that are not UTF-8 stay as they are.
VRK_EXPORT std::string lowercased(std::string_view text);

/// Whether `lowercased(text)` is `lowered`, found without building it. `lowered` is a word of ASCII letters
/// in lower case, digits and signs; with capitals or characters beyond ASCII in it nothing is equal to it.
VRK_EXPORT bool equalsLowercased(std::string_view text, std::string_view lowered) noexcept;

}  // namespace VanticRestKit

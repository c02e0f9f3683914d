#pragma once

/// \file
/// The check that bytes are UTF-8.

#include <string_view>

namespace VanticRestKit::detail {

/// Whether `bytes` are UTF-8: no overlong form, no surrogate, nothing beyond U+10FFFF, nothing cut short.
bool isUTF8(std::string_view bytes) noexcept;

}  // namespace VanticRestKit::detail

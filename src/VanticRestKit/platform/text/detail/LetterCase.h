#pragma once

/// \file
/// Lower-casing, and comparison without regard to case.

#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// `text`, UTF-8, with every character replaced by its lower case, without regard to a language or to the
/// characters beside it. The result may be longer than `text`. Bytes that are not UTF-8 stay as they are.
std::string lowercased(std::string_view text);

/// Whether `lowercased(text)` is `lowered`, found without building it. `lowered` is a word of ASCII letters
/// in lower case, digits and signs; with capitals or characters beyond ASCII in it nothing is equal to it.
bool equalsLowercased(std::string_view text, std::string_view lowered) noexcept;

/// Whether two texts are the same with case left out: equal under full case folding, with characters that are
/// written in different but canonically equivalent ways taken as the same. Bytes that are not UTF-8 are the same
/// only as the same bytes. Any thread; linear in the length of the texts.
bool sameIgnoringCase(std::string_view a, std::string_view b);

}  // namespace VanticRestKit::detail

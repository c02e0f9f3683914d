#pragma once

/// \file
/// Lower case and case-insensitive comparison.

#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// `text`, in UTF-8, with every character replaced by its lower case, independent of language and context. The result
/// may be longer than `text`. Bytes that are not UTF-8 stay as they are.
std::string lowercased(std::string_view text);

/// Whether `lowercased(text)` equals `lowered`, without building the lower-case string. `lowered` must consist of
/// lower-case ASCII letters, digits and signs; otherwise the result is false.
bool equalsLowercased(std::string_view text, std::string_view lowered) noexcept;

/// Whether two strings are equal without regard to case: equal under full case folding and canonical equivalence.
/// Strings that are not UTF-8 are compared byte by byte. Any thread; linear in the length of the strings.
bool sameIgnoringCase(std::string_view a, std::string_view b);

}  // namespace VanticRestKit::detail

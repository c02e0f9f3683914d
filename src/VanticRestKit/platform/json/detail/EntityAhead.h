#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::json {

/// The string value of the key "_entity" of the object whose opening bracket is at `at`, wherever the key is in the
/// object. Empty if there is none, if it is not a string, or if the object is malformed before it. The view refers to
/// the document or to `scratch`. `depth` is the nesting depth of `at`.
std::optional<std::string_view> entityAhead(const char* at, const char* end, std::size_t depth,
                                            std::string& scratch);

}  // namespace VanticRestKit::json

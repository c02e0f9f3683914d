#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::json {

/// The text under "_entity" of the object whose opening bracket is at `at`, wherever in the object it stands.
/// Empty where there is none or no text, and where the object is broken in front of it. The view is of the
/// document or of `scratch`. `depth` is how deep `at` lies already.
std::optional<std::string_view> entityAhead(const char* at, const char* end, std::size_t depth,
                                            std::string& scratch);

}  // namespace VanticRestKit::json

#pragma once

/// \file
/// How far two texts are from each other.

#include <cstddef>
#include <string_view>

namespace VanticRestKit::Testing::detail {

/// How many letters have to be inserted, removed or replaced to make one text of the other. Of longer texts only the
/// first 300 letters count.
std::size_t textDistance(std::string_view a, std::string_view b);

}  // namespace VanticRestKit::Testing::detail

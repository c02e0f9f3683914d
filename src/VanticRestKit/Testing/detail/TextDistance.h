#pragma once

/// \file
/// The edit distance of two strings.

#include <cstddef>
#include <string_view>

namespace VanticRestKit::Testing::detail {

/// The number of characters to insert, remove or replace to turn one string into the other. Only the first 300
/// characters are compared.
std::size_t textDistance(std::string_view a, std::string_view b);

}  // namespace VanticRestKit::Testing::detail

#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

// Suggestions in error messages about unknown names.
namespace vantic {

/// "; did you mean NAME?" for the name closest to `word`, or an empty string if none is close. The name is printed
/// after `prefix`.
std::string suggestion(std::string_view word, std::span<const std::string_view> names,
                       std::string_view prefix = {});

/// The number of characters to insert, remove, replace or swap with the next one to turn `a` into `b`, ignoring case.
std::size_t editDistance(std::string_view a, std::string_view b);

/// "a, b or c".
std::string alternatives(std::span<const std::string_view> names);

}  // namespace vantic

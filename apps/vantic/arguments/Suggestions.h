#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

// What error messages say after a name that does not exist.
namespace vantic {

/// "; did you mean NAME?" for the name that is closest to `word`, or nothing if none is close. Each name is shown
/// with `prefix` in front.
std::string suggestion(std::string_view word, std::span<const std::string_view> names,
                       std::string_view prefix = {});

/// How many letters have to be added, removed, changed or swapped with their neighbour to make `b` of `a`. Letters
/// are compared without case.
std::size_t editDistance(std::string_view a, std::string_view b);

/// "a, b or c".
std::string alternatives(std::span<const std::string_view> names);

}  // namespace vantic

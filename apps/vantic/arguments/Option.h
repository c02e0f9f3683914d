#pragma once

#include <string_view>

namespace vantic {

/// One option of a command or an operation.
struct Option {
    enum class Takes { value, values, nothing };

    /// Without its dashes.
    std::string_view name;
    Takes takes;
    bool isRequired;
};

/// `--name VALUE`, which must be given.
constexpr Option required(std::string_view name) { return {name, Option::Takes::value, true}; }
/// `--name VALUE`, which may be left out.
constexpr Option optional(std::string_view name) { return {name, Option::Takes::value, false}; }
/// `--name VALUE` as often as wanted.
constexpr Option repeated(std::string_view name) { return {name, Option::Takes::values, false}; }
/// `--name`
constexpr Option flag(std::string_view name) { return {name, Option::Takes::nothing, false}; }

}  // namespace vantic

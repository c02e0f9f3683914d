#pragma once

#include <string_view>
#include <vector>

namespace vantic {

/// An option of a command or an operation: how it is parsed, and its description for help, completion and manual pages.
struct Option {
    enum class Takes { value, values, nothing };
    /// Returns the allowed values of an option.
    using Allowed = std::vector<std::string_view> (*)();

    /// The name, without dashes.
    std::string_view name;
    Takes takes;
    bool isRequired;
    /// The placeholder of the value in help texts.
    std::string_view placeholder = "VALUE";
    /// One line of help, without a full stop.
    std::string_view help{};
    /// Null if any value is allowed.
    Allowed allowed = nullptr;
    bool takesFile = false;
};

/// `--name VALUE`, required.
constexpr Option required(std::string_view name, std::string_view placeholder = "VALUE",
                          std::string_view help = {}) {
    return {name, Option::Takes::value, true, placeholder, help};
}
/// `--name VALUE`, optional.
constexpr Option optional(std::string_view name, std::string_view placeholder = "VALUE",
                          std::string_view help = {}) {
    return {name, Option::Takes::value, false, placeholder, help};
}
/// `--name VALUE`, any number of times.
constexpr Option repeated(std::string_view name, std::string_view placeholder = "VALUE",
                          std::string_view help = {}) {
    return {name, Option::Takes::values, false, placeholder, help};
}
/// `--name`
constexpr Option flag(std::string_view name, std::string_view help = {}) {
    return {name, Option::Takes::nothing, false, {}, help};
}

/// An option with a list of allowed values.
constexpr Option oneOf(Option option, Option::Allowed allowed) {
    option.allowed = allowed;
    return option;
}
/// An option whose value is the path of a file or folder.
constexpr Option path(Option option) {
    option.takesFile = true;
    return option;
}

}  // namespace vantic

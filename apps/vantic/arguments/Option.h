#pragma once

#include <string_view>
#include <vector>

namespace vantic {

/// One option of a command or an operation: how it is read, and what help, completion and manual pages say of it.
struct Option {
    enum class Takes { value, values, nothing };
    /// Lists the values that an option may have.
    using Allowed = std::vector<std::string_view> (*)();

    /// Without its dashes.
    std::string_view name;
    Takes takes;
    bool isRequired;
    /// The placeholder of the value in help texts.
    std::string_view placeholder = "VALUE";
    /// One line of help, without a full stop.
    std::string_view help{};
    /// Null if the option takes any text.
    Allowed allowed = nullptr;
    bool takesFile = false;
};

/// `--name VALUE`, which must be given.
constexpr Option required(std::string_view name, std::string_view placeholder = "VALUE",
                          std::string_view help = {}) {
    return {name, Option::Takes::value, true, placeholder, help};
}
/// `--name VALUE`, which may be left out.
constexpr Option optional(std::string_view name, std::string_view placeholder = "VALUE",
                          std::string_view help = {}) {
    return {name, Option::Takes::value, false, placeholder, help};
}
/// `--name VALUE` as often as wanted.
constexpr Option repeated(std::string_view name, std::string_view placeholder = "VALUE",
                          std::string_view help = {}) {
    return {name, Option::Takes::values, false, placeholder, help};
}
/// `--name`
constexpr Option flag(std::string_view name, std::string_view help = {}) {
    return {name, Option::Takes::nothing, false, {}, help};
}

/// An option whose value is one of a list.
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

#pragma once

#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "arguments/Option.h"

namespace vantic {

/// The arguments after the name of a command.
using Words = std::span<const std::string>;

/// Whether a word is `-h` or `--help`.
bool isHelp(std::string_view word);

/// The options and positional arguments of a command line.
///
/// The value of an option is the next word, or the part after "=" in the same word. Only the second form allows values
/// that begin with "--". All functions throw `UsageError` for wrong arguments.
class Arguments {
public:
    /// Parses `words`, with the allowed `options` and at most `maxPositionals` positional arguments. Throws
    /// `HelpRequested` for `-h` or `--help`, unless it is the value of an option.
    static Arguments read(Words words, std::span<const Option> options, std::size_t maxPositionals = 0);

    /// The positional arguments.
    const std::vector<std::string>& positionals() const noexcept { return positionals_; }

    bool has(std::string_view name) const { return values_.find(name) != values_.end(); }
    /// The names of all given options.
    std::vector<std::string_view> names() const;

    /// The value of a required option.
    std::string text(std::string_view name) const;
    std::optional<std::string> optionalText(std::string_view name) const;
    /// The values of a repeated option, in order; none if it is not given.
    std::vector<std::string> texts(std::string_view name) const;
    bool flag(std::string_view name) const;

    /// The value of `name`, converted by `reader(name, text)`; empty if the option is not given.
    template <class Reader>
    auto optionally(std::string_view name, Reader reader) const
        -> std::optional<decltype(reader(name, std::string()))> {
        if (!has(name)) return std::nullopt;
        return reader(name, text(name));
    }

private:
    std::map<std::string, std::vector<std::string>, std::less<>> values_;
    std::vector<std::string> positionals_;
};

}  // namespace vantic

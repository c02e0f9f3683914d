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

/// The words of a command line after the name of a command.
using Words = std::span<const std::string>;

/// Whether a word asks for help.
bool isHelp(std::string_view word);

/// What was given on the command line.
///
/// A value is the word after its option, or what follows "=" in the option's own word; only in the latter form may it
/// begin with "--". All functions throw `UsageError` for arguments that are wrong.
class Arguments {
public:
    /// Reads `words` by what `options` may be given, and at most `maxPositionals` words without one. Throws
    /// `HelpRequested` for `-h` or `--help` in the place of an option.
    static Arguments read(Words words, std::span<const Option> options, std::size_t maxPositionals = 0);

    /// The words that belong to no option.
    const std::vector<std::string>& positionals() const noexcept { return positionals_; }

    bool has(std::string_view name) const { return values_.find(name) != values_.end(); }
    /// The names of all options given.
    std::vector<std::string_view> names() const;

    /// A text that must be given.
    std::string text(std::string_view name) const;
    std::optional<std::string> optionalText(std::string_view name) const;
    /// The texts of a repeated option in the order given; none if it is left out.
    std::vector<std::string> texts(std::string_view name) const;
    bool flag(std::string_view name) const;

    /// The text of `name` as `reader(name, text)` understands it; empty if it is left out.
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

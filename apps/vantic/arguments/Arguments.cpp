#include "arguments/Arguments.h"

#include <algorithm>

#include "arguments/Suggestions.h"
#include "arguments/Values.h"
#include "Failure.h"

namespace vantic {

namespace {

bool isOption(std::string_view word) { return word.size() > 1 && word[0] == '-'; }

const Option& find(std::span<const Option> options, const std::string& name) {
    const auto found = std::find_if(options.begin(), options.end(),
                                    [&](const Option& option) { return option.name == name; });
    if (found == options.end()) {
        std::vector<std::string_view> names;
        for (const Option& option : options) names.push_back(option.name);
        throw UsageError{"unknown option --" + name + suggestion(name, names, "--")};
    }
    return *found;
}

}  // namespace

bool isHelp(std::string_view word) { return word == "-h" || word == "--help"; }

Arguments Arguments::read(Words words, std::span<const Option> options, std::size_t maxPositionals) {
    Arguments arguments;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (!isOption(word)) {
            if (arguments.positionals_.size() == maxPositionals)
                throw UsageError{"unexpected argument " + word};
            arguments.positionals_.push_back(word);
            continue;
        }
        if (isHelp(word)) throw HelpRequested{};
        if (!word.starts_with("--")) throw UsageError{"unknown option " + word};
        const std::size_t equals = word.find('=');
        const std::string name = word.substr(2, equals == std::string::npos ? equals : equals - 2);
        const Option& option = find(options, name);

        std::string value;
        if (equals != std::string::npos) {
            value = word.substr(equals + 1);
        } else if (option.takes == Option::Takes::nothing) {
            value = "true";
        } else if (i + 1 < words.size() && !words[i + 1].starts_with("--")) {
            value = words[++i];
        } else {
            throw UsageError{"--" + name + " needs a value"};
        }
        if (option.takes == Option::Takes::nothing) readBoolean(name, value);
        std::vector<std::string>& values = arguments.values_[name];
        if (!values.empty() && option.takes != Option::Takes::values) {
            throw UsageError{"--" + name + " is given twice"};
        }
        values.push_back(std::move(value));
    }
    return arguments;
}

std::vector<std::string_view> Arguments::names() const {
    std::vector<std::string_view> names;
    for (const auto& [name, values] : values_) names.push_back(name);
    return names;
}

std::string Arguments::text(std::string_view name) const {
    const auto found = values_.find(name);
    if (found == values_.end()) throw UsageError{"--" + std::string(name) + " is missing"};
    return found->second.front();
}

std::optional<std::string> Arguments::optionalText(std::string_view name) const {
    return has(name) ? std::optional(text(name)) : std::nullopt;
}

std::vector<std::string> Arguments::texts(std::string_view name) const {
    const auto found = values_.find(name);
    return found == values_.end() ? std::vector<std::string>{} : found->second;
}

bool Arguments::flag(std::string_view name) const { return has(name) && readBoolean(name, text(name)); }

}  // namespace vantic

#include <algorithm>

#include "arguments/Suggestions.h"
#include "Failure.h"
#include "operations/Operation.h"

namespace vantic {

namespace {

using Alternatives = std::span<const Operation>;

Alternatives named(const std::string& name) {
    const auto all = allOperations();
    const auto isNamed = [&](const Operation& operation) { return operation.name == name; };
    const auto first = std::find_if(all.begin(), all.end(), isNamed);
    if (first == all.end()) {
        std::vector<std::string_view> names;
        for (const Operation& operation : all) names.push_back(operation.name);
        throw UsageError{"there is no operation " + name + suggestion(name, names)};
    }
    return {first, std::find_if_not(first, all.end(), isNamed)};
}

bool isAmong(std::span<const Option> options, std::string_view name) {
    return std::any_of(options.begin(), options.end(),
                       [&](const Option& option) { return option.name == name; });
}

/// The options of all forms, followed by the common ones.
std::vector<Option> allOptions(Alternatives alternatives, std::span<const Option> common) {
    std::vector<Option> options;
    for (const Operation& operation : alternatives) {
        for (const Option& option : operation.options) {
            if (!isAmong(options, option.name)) options.push_back(option);
        }
    }
    options.insert(options.end(), common.begin(), common.end());
    return options;
}

bool takes(const Operation& operation, const Arguments& given, std::span<const Option> common) {
    const auto names = given.names();
    return std::all_of(names.begin(), names.end(), [&](std::string_view name) {
        return isAmong(common, name) || isAmong(operation.options, name);
    });
}

std::vector<std::string> missing(const Operation& operation, const Arguments& given) {
    std::vector<std::string> names;
    for (const Option& option : operation.options) {
        if (option.isRequired && !given.has(option.name)) names.push_back("--" + std::string(option.name));
    }
    return names;
}

std::string joined(const std::vector<std::string>& parts, const std::string& separator) {
    std::string text;
    for (const std::string& part : parts) text += (text.empty() ? "" : separator) + part;
    return text;
}

const Operation& chosen(Alternatives alternatives, const Arguments& given, std::span<const Option> common) {
    std::vector<std::string> gaps;
    for (const Operation& operation : alternatives) {
        if (!takes(operation, given, common)) continue;
        const auto names = missing(operation, given);
        if (names.empty()) return operation;
        gaps.push_back(joined(names, " and "));
    }
    const std::string name(alternatives.front().name);
    if (gaps.empty()) throw UsageError{name + " does not take these options together"};
    throw UsageError{name + " needs " + joined(gaps, " or ")};
}

std::vector<Operation> registry() {
    std::vector<Operation> all;
    for (const auto entries :
         {videoOperations, showOperations, screenOperations, noticeOperations, serviceOperations}) {
        for (Operation& operation : entries()) all.push_back(std::move(operation));
    }
    return all;
}

}  // namespace

std::span<const Operation> allOperations() {
    static const std::vector<Operation> operations = registry();
    return operations;
}

Call readCall(Words words, std::span<const Option> more) {
    if (words.empty()) throw UsageError{"no operation is named; vantic help lists them"};
    if (isHelp(words.front())) throw HelpRequested{};
    const Alternatives alternatives = named(words.front());
    const auto ofAll = CommonOptions::options();
    std::vector<Option> common(ofAll.begin(), ofAll.end());
    common.insert(common.end(), more.begin(), more.end());
    const std::vector<Option> options = allOptions(alternatives, common);
    Arguments given = Arguments::read(words.subspan(1), options);
    const Operation& operation = chosen(alternatives, given, common);
    return {operation, std::move(given)};
}

}  // namespace vantic

#include "help/Topic.h"

#include <algorithm>

#include "arguments/Suggestions.h"
#include "operations/Operation.h"
#include "user/UserOperation.h"

namespace vantic {

namespace {

/// There are too many type names for one line; `vantic types` lists them.
constexpr std::size_t maxValuesShown = 10;

std::vector<Topic> collect() {
    std::vector<Topic> topics;
    for (const Operation& operation : allOperations()) {
        if (topics.empty() || topics.back().name != operation.name) {
            topics.push_back({operation.name, false, {}});
        }
        topics.back().forms.push_back({operation.summary, operation.options});
    }
    for (const UserOperation& operation : allUserOperations()) {
        topics.push_back({operation.name, true, {{operation.summary, operation.options}}});
    }
    return topics;
}

}  // namespace

std::span<const Topic> allTopics() {
    static const std::vector<Topic> topics = collect();
    return topics;
}

const Topic* topicNamed(std::string_view name) {
    const auto all = allTopics();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Topic& topic) { return topic.name == name; });
    return found == all.end() ? nullptr : &*found;
}

std::string nameAndValue(const Option& option) {
    std::string text = "--" + std::string(option.name);
    if (option.takes != Option::Takes::nothing) text += " " + std::string(option.placeholder);
    return text;
}

std::string synopsisOf(std::span<const Option> options) {
    std::string text;
    for (const Option& option : options) {
        const std::string name = nameAndValue(option);
        text += option.isRequired ? " " + name : " [" + name + "]";
        if (option.takes == Option::Takes::values) text += "...";
    }
    return text;
}

std::string helpOf(const Option& option) {
    std::string text(option.help);
    if (option.allowed != nullptr) {
        const std::vector<std::string_view> allowed = option.allowed();
        if (allowed.size() <= maxValuesShown) text += ": " + alternatives(allowed);
    }
    if (option.takes == Option::Takes::values) text += "; may be repeated";
    return text;
}

}  // namespace vantic

#include <algorithm>
#include <set>

#include "commands/Commands.h"
#include "help/Topic.h"
#include "operations/CommonOptions.h"
#include "Output.h"
#include "types/Type.h"
#include "user/UserOperation.h"

// Completion: a shell passes the words of a command line, of which the last one is being typed, and gets the candidates
// for it, one per line, followed by a tab and an explanation. The line ":files" means any file name.
namespace vantic {

namespace {

using Takes = Command::Takes;

class Candidates {
public:
    explicit Candidates(std::string_view beginning) : beginning_(beginning) {}

    void add(std::string_view word, std::string_view meaning = {}) const {
        if (!word.starts_with(beginning_)) return;
        std::string line(word);
        if (!meaning.empty()) line += "\t" + std::string(meaning);
        print(line + "\n");
    }
    void addFiles() const { print(":files\n"); }

private:
    std::string_view beginning_;
};

bool takes(const Command& command, const Topic& topic) {
    if (command.takes == Takes::anyOperation) return true;
    return command.takes == (topic.isForUser ? Takes::userOperation : Takes::operation);
}

void addFirstWord(const Command& command, const Candidates& candidates) {
    if (command.takes == Takes::document) {
        for (const TypeEntry& entry : allTypes()) candidates.add(entry.one.name);
        for (const TypeEntry& entry : allTypes()) candidates.add(entry.list.name);
    }
    if (command.takes == Takes::topic) {
        for (const Command& each : allCommands()) candidates.add(each.name, each.summary);
    }
    for (const Topic& topic : allTopics()) {
        const bool isHelp = command.run == runHelp;
        if (isHelp || takes(command, topic)) candidates.add(topic.name, topic.forms.front().summary);
    }
}

/// All options of a command, and of its operation if there is one.
std::vector<Option> optionsOf(const Command& command, Words words) {
    std::vector<Option> options;
    const auto add = [&](std::span<const Option> more) {
        options.insert(options.end(), more.begin(), more.end());
    };
    const Topic* const topic = words.empty() ? nullptr : topicNamed(words.front());
    if (topic != nullptr && takes(command, *topic)) {
        for (const Form& form : topic->forms) add(form.options);
        if (topic->isForUser) add(userOptions());
        if (topic->isForUser && command.takes == Takes::anyOperation) add(tokenOption());
        add(command.options);
        add(CommonOptions::options());
    } else {
        add(command.options);
    }
    return options;
}

void addOptions(std::span<const Option> options, Words given, const Candidates& candidates) {
    std::set<std::string> listed;
    for (const Option& option : options) {
        const std::string name = "--" + std::string(option.name);
        const bool isGiven = std::find(given.begin(), given.end(), name) != given.end();
        if (isGiven && option.takes != Option::Takes::values) continue;
        if (listed.insert(name).second) candidates.add(name, option.help);
    }
    candidates.add("--help", "explains the command");
}

/// Adds the values of the option before the last word. Returns false if there is no such option.
bool addValues(std::span<const Option> options, const std::string& before, const Candidates& candidates) {
    for (const Option& option : options) {
        if (before != "--" + std::string(option.name) || option.takes == Option::Takes::nothing) continue;
        if (option.takesFile) candidates.addFiles();
        if (option.allowed != nullptr) {
            for (const std::string_view value : option.allowed()) candidates.add(value);
        }
        return true;
    }
    return false;
}

}  // namespace

void runComplete(Words words) {
    if (!words.empty() && words.front() == "--") words = words.subspan(1);
    if (words.empty()) return;
    const Candidates candidates(words.back());
    if (words.size() == 1) {
        for (const Command& command : allCommands()) candidates.add(command.name, command.summary);
        candidates.add("--help", "explains the program");
        return candidates.add("--version", "prints the version");
    }
    const Command* const command = commandNamed(words.front());
    if (command == nullptr) return;
    const Words given = words.subspan(1, words.size() - 2);
    const std::vector<Option> options = optionsOf(*command, given);
    if (!given.empty() && addValues(options, given.back(), candidates)) return;
    const bool isFirst =
        std::none_of(given.begin(), given.end(), [](const std::string& word) { return word[0] != '-'; });
    if (words.back().starts_with("-")) return addOptions(options, given, candidates);
    if (isFirst) return addFirstWord(*command, candidates);
    if (command->takes == Takes::document) return candidates.addFiles();
    addOptions(options, given, candidates);
}

}  // namespace vantic

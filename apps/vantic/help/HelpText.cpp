#include "help/HelpText.h"

#include <algorithm>
#include <vector>

#include "help/Topic.h"
#include "operations/CommonOptions.h"
#include "user/UserOperation.h"

namespace vantic {

namespace {

constexpr const char* aboutFiles =
    "\nWithout FILE, or with - for it, a document is read from standard input.\n";

constexpr const char* aboutExit =
    "\nThe exit code is 0 for success, 1 if the request, the service or the document failed, and 2 for wrong "
    "usage.\n";

constexpr std::size_t widestName = 28;

/// Two columns: a name and its meaning.
std::string row(const std::string& name, const std::string& meaning, std::size_t width = widestName) {
    const std::size_t gap = name.size() < width ? width - name.size() : 1;
    return "  " + name + std::string(gap, ' ') + meaning + "\n";
}

/// A name and its options, in lines of at most 110 characters.
std::string invocation(const std::string& name, std::span<const Option> options) {
    constexpr std::size_t widest = 110;
    std::string text;
    std::string line = name;
    for (const Option& option : options) {
        const std::string more = synopsisOf({&option, 1});
        if (line.size() + more.size() > widest) {
            text += line + "\n";
            line = "     ";
        }
        line += more;
    }
    return text + line + "\n";
}

std::string rowsOf(std::span<const Option> options) {
    std::string text;
    for (const Option& option : options) text += row(nameAndValue(option), helpOf(option));
    return text;
}

std::string section(const std::string& title, std::span<const Option> options) {
    return options.empty() ? std::string() : "\n" + title + ":\n" + rowsOf(options);
}

std::string commandLine(const Command& command) {
    std::string line = "vantic " + std::string(command.name) + synopsisOf(command.options);
    if (!command.synopsis.empty()) line += " " + std::string(command.synopsis);
    return line;
}

bool takesOperations(const Command& command) {
    using Takes = Command::Takes;
    return command.takes == Takes::operation || command.takes == Takes::userOperation ||
           command.takes == Takes::anyOperation;
}

std::string operationsOf(bool areForUsers) {
    std::string text;
    for (const Topic& topic : allTopics()) {
        if (topic.isForUser != areForUsers) continue;
        for (const Form& form : topic.forms) {
            text += invocation("  " + std::string(topic.name), form.options);
        }
    }
    return text;
}

std::string listOfOperations(Command::Takes takes) {
    using Takes = Command::Takes;
    std::string text;
    if (takes != Takes::userOperation) text += "\nOperations:\n" + operationsOf(false);
    if (takes != Takes::operation) {
        text += "\nOperations for users, all with [--uid UID]; request takes them with --token TOKEN:\n" +
                operationsOf(true);
    }
    return text;
}

constexpr const char* titleOfCommon = "Options of every operation (--name=VALUE works too)";

}  // namespace

std::string helpForAll() {
    constexpr std::size_t width = 40;
    std::string text = "Decodes documents of the service, prints requests, and loads from the service.\n\n";
    for (const Command& command : allCommands()) {
        std::string line = "vantic " + std::string(command.name) + " " + std::string(command.synopsis);
        text += row(line, std::string(command.summary), width);
    }
    text += row("vantic --version", "prints the version", width);
    text += section(titleOfCommon, CommonOptions::options());
    return text + listOfOperations(Command::Takes::anyOperation) +
           "\nvantic help NAME explains a command or an operation with its options.\n" + aboutFiles +
           aboutExit;
}

std::string helpForCommand(const Command& command) {
    std::string text = commandLine(command) + "\n\n" + std::string(command.summary) + "\n";
    text += section("Options", command.options);
    if (takesOperations(command)) {
        text += section(titleOfCommon, CommonOptions::options()) + listOfOperations(command.takes);
    }
    if (command.takes == Command::Takes::document) text += aboutFiles;
    return text + aboutExit;
}

std::string helpForOperation(std::string_view name, const Command* command) {
    const Topic* const topic = topicNamed(name);
    const char* const any = topic->isForUser ? "user" : "load";
    const Command& shown = command != nullptr ? *command : *commandNamed(any);
    const bool sendsToken = topic->isForUser && shown.takes == Command::Takes::anyOperation;
    std::string text;
    for (const Form& form : topic->forms) {
        text += invocation("vantic " + std::string(shown.name) + " " + std::string(name), form.options);
        text += "  " + std::string(form.summary) + "\n";
    }
    std::vector<Option> own;
    for (const Form& form : topic->forms) {
        for (const Option& option : form.options) {
            const auto isSame = [&](const Option& other) { return other.name == option.name; };
            if (std::none_of(own.begin(), own.end(), isSame)) own.push_back(option);
        }
    }
    if (topic->isForUser) own.insert(own.end(), userOptions().begin(), userOptions().end());
    if (sendsToken) own.insert(own.end(), tokenOption().begin(), tokenOption().end());
    text += section("Options", own);
    text += section("Options of vantic " + std::string(shown.name), shown.options);
    return text + section(titleOfCommon, CommonOptions::options()) + aboutExit;
}

std::string helpForCall(Words words) {
    const Command* const command = words.empty() ? nullptr : commandNamed(words.front());
    if (command == nullptr) return helpForAll();
    const bool namesOperation =
        takesOperations(*command) && words.size() > 1 && topicNamed(words[1]) != nullptr;
    return namesOperation ? helpForOperation(words[1], command) : helpForCommand(*command);
}

}  // namespace vantic

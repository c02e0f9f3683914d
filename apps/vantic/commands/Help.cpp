#include "arguments/Suggestions.h"
#include "commands/Commands.h"
#include "Failure.h"
#include "help/HelpText.h"
#include "help/Topic.h"
#include "Output.h"

namespace vantic {

void runHelp(Words words) {
    const Arguments given = Arguments::read(words, {}, 1);
    if (given.positionals().empty()) return print(helpForAll());
    const std::string& name = given.positionals().front();
    if (const Command* const command = commandNamed(name)) return print(helpForCommand(*command));
    if (topicNamed(name) != nullptr) return print(helpForOperation(name, nullptr));

    std::vector<std::string_view> names;
    for (const Command& command : allCommands()) names.push_back(command.name);
    for (const Topic& topic : allTopics()) names.push_back(topic.name);
    throw UsageError{"there is no command or operation " + name + suggestion(name, names)};
}

}  // namespace vantic

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "arguments/Suggestions.h"
#include "commands/Commands.h"
#include "Failure.h"
#include "help/HelpText.h"
#include "Output.h"
#include "StandardDescriptors.h"

namespace vantic {

namespace {

void runCommand(Words words) {
    const std::string& name = words.front();
    if (isHelp(name)) return runHelp(words.subspan(1));
    if (name == "--version") {
        Arguments::read(words.subspan(1), {});
        return print("vantic " VRK_VERSION "\n");
    }
    // Only called by the completion scripts, so it is not listed.
    if (name == "complete") return runComplete(words.subspan(1));
    const Command* const command = commandNamed(name);
    if (command == nullptr) {
        std::vector<std::string_view> names;
        for (const Command& each : allCommands()) names.push_back(each.name);
        throw UsageError{"there is no command " + name + suggestion(name, names)};
    }
    command->run(words.subspan(1));
}

void run(Words words) {
    if (words.empty()) throw UsageError{"no command is named; vantic --help lists them"};
    try {
        runCommand(words);
    } catch (const HelpRequested&) {
        print(helpForCall(words));
    }
}

}  // namespace

}  // namespace vantic

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    try {
        vantic::openMissingStandardDescriptors();
        vantic::run(words);
        vantic::flush();
        return 0;
    } catch (const vantic::UsageError& error) {
        vantic::report("vantic: " + error.message);
        return 2;
    } catch (const vantic::Failed& error) {
        vantic::report(error.message);
        return 1;
    } catch (const vantic::FailedAndReported&) {
        return 1;
    }
}

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "commands/Commands.h"
#include "Failure.h"
#include "Output.h"
#include "StandardDescriptors.h"

namespace vantic {

namespace {

struct Command {
    std::string_view name;
    void (*run)(Words words);
};

constexpr Command commands[] = {
    {"types", runTypes}, {"decode", runDecode}, {"explain", runExplain}, {"request", runRequest},
    {"load", runLoad},   {"user", runUser},     {"help", runHelp},       {"--help", runHelp},
};

void run(Words words) {
    if (words.empty()) throw UsageError{"no command is named; vantic --help tells them"};
    for (const Command& command : commands) {
        if (command.name == words.front()) return command.run(words.subspan(1));
    }
    throw UsageError{"there is no command " + words.front()};
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
    }
}

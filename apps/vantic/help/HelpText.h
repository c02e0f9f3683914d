#pragma once

#include <string>
#include <string_view>

#include "arguments/Arguments.h"
#include "commands/Commands.h"

// Help texts for a terminal, generated from the tables of commands and operations.
namespace vantic {

/// An overview of all commands and operations.
std::string helpForAll();

std::string helpForCommand(const Command& command);

/// The help for an operation as an argument of `command`; null for any command.
std::string helpForOperation(std::string_view name, const Command* command);

/// The help for a command line with `--help`: about its operation, otherwise about its command, otherwise the overview.
std::string helpForCall(Words words);

}  // namespace vantic

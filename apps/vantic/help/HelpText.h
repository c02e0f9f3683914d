#pragma once

#include <string>
#include <string_view>

#include "arguments/Arguments.h"
#include "commands/Commands.h"

// Help texts for a terminal, made of the tables of commands and operations.
namespace vantic {

/// All commands and operations.
std::string helpForAll();

std::string helpForCommand(const Command& command);

/// For an operation as `command` takes it; null: as any command does.
std::string helpForOperation(std::string_view name, const Command* command);

/// What belongs to a command line with `--help` in it: its operation, else its command, else everything.
std::string helpForCall(Words words);

}  // namespace vantic

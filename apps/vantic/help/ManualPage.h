#pragma once

#include <string>

#include "commands/Commands.h"

// Manual pages in the man(7) format, generated from the tables of commands and operations.
namespace vantic {

/// The page vantic(1).
std::string manualPage();

/// The page vantic-COMMAND(1).
std::string manualPageOf(const Command& command);

}  // namespace vantic

#pragma once

#include <string>

#include "commands/Commands.h"

// Manual pages in the language of man(7), made of the tables of commands and operations.
namespace vantic {

/// vantic(1)
std::string manualPage();

/// vantic-COMMAND(1)
std::string manualPageOf(const Command& command);

}  // namespace vantic

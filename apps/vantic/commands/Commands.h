#pragma once

#include <span>
#include <string>
#include <string_view>

#include "arguments/Arguments.h"

namespace vantic {

/// A command, with the function that runs it and its description for help, completion and manual pages.
struct Command {
    /// The positional arguments of a command.
    enum class Takes { nothing, document, operation, userOperation, anyOperation, topic };

    std::string_view name;
    /// The arguments after the name, such as "TYPE [FILE]".
    std::string_view synopsis;
    /// One line of help.
    std::string_view summary;
    Takes takes;
    /// Its own options, without those of an operation.
    std::span<const Option> options;
    /// Runs the command with the words after its name. Throws `UsageError`, `Failed`, `FailedAndReported` or
    /// `HelpRequested`.
    void (*run)(Words words);
};

/// All commands, in the order of the help text.
std::span<const Command> allCommands();

/// The command with this name; null if there is none.
const Command* commandNamed(std::string_view name);

// The functions and options of the commands. Each is defined in the source named after the command.
void runTypes(Words words);
void runDecode(Words words);
void runExplain(Words words);
void runRequest(Words words);
void runLoad(Words words);
void runUser(Words words);
void runHelp(Words words);
void runManual(Words words);
void runComplete(Words words);
std::span<const Option> decodeOptions();
std::span<const Option> loadOptions();
std::span<const Option> userCommandOptions();

}  // namespace vantic

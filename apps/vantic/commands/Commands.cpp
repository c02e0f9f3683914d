#include "commands/Commands.h"

#include <algorithm>

namespace vantic {

std::span<const Command> allCommands() {
    using Takes = Command::Takes;
    static const Command commands[] = {
        {"types", "", "lists the types that documents can be decoded into", Takes::nothing, {}, runTypes},
        {"decode", "TYPE [FILE]", "decodes a document and prints the value; [TYPE] is a list",
         Takes::document, decodeOptions(), runDecode},
        {"explain", "TYPE [FILE]", "lists every fault of a document", Takes::document, {}, runExplain},
        {"request",
         "OPERATION OPTION...",
         "prints the request that an operation would send",
         Takes::anyOperation,
         {},
         runRequest},
        {"load", "OPERATION OPTION...", "sends the request and prints the value", Takes::operation,
         loadOptions(), runLoad},
        {"user", "OPERATION OPTION...", "runs an operation for a user and prints the value",
         Takes::userOperation, userCommandOptions(), runUser},
        {"help", "[COMMAND | OPERATION]", "explains a command or an operation", Takes::topic, {}, runHelp},
        {"manual", "[COMMAND]", "prints a manual page, for man -l", Takes::topic, {}, runManual},
    };
    return commands;
}

const Command* commandNamed(std::string_view name) {
    const auto all = allCommands();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Command& command) { return command.name == name; });
    return found == all.end() ? nullptr : &*found;
}

}  // namespace vantic

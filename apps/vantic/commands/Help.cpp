#include "commands/Commands.h"
#include "operations/Operation.h"
#include "Output.h"
#include "user/UserOperation.h"

namespace vantic {

namespace {

constexpr const char* usage =
    "vantic types                          the types that documents decode into\n"
    "vantic decode [--lines] TYPE [FILE]   a document, or one in each line, as a value; [TYPE] is a list\n"
    "vantic explain TYPE [FILE]            every fault of a document\n"
    "vantic request OPERATION OPTION...    the request that an operation would send\n"
    "vantic load OPERATION OPTION...       sends it and shows the value\n"
    "vantic user OPERATION OPTION...       runs an operation for a user and shows the value\n"
    "\n"
    "Without FILE a document is read from standard input. It ends with 0, with 1 where the request, the "
    "service\n"
    "or the document failed, and with 2 for wrong usage.\n"
    "\n"
    "Options of every operation; --label=value works too, and a value that begins with -- needs it:\n"
    "  --base-url URL            where the service lives; required\n"
    "  --header 'Name: value'    a header of the host's own; any number of them\n"
    "  --timeout SECONDS         how long a request may stand still; 30 where it is left out\n"
    "  --ca FILE                 the certificates to be trusted\n"
    "  --verbose                 what the failure hook is told, on standard error\n"
    "  --cache FOLDER            answers are kept there, for this run and later ones\n"
    "  --revalidate              the service is asked whether what is kept has changed\n"
    "  --trace                   status, source, times, bytes and headers of each answer, on standard error\n"
    "\n"
    "Operations:\n";

constexpr const char* usageForUsers =
    "\n"
    "Operations for users, all with [--uid VALUE]; request takes them with --token VALUE:\n";

std::string written(const Option& option) {
    const std::string name = "--" + std::string(option.name);
    if (option.takes == Option::Takes::nothing) return " [" + name + "]";
    if (option.takes == Option::Takes::values) return " [" + name + " VALUE]...";
    return option.isRequired ? " " + name + " VALUE" : " [" + name + " VALUE]";
}

template <class Operation>
void printOperation(const Operation& operation) {
    std::string line = "  " + std::string(operation.name);
    for (const Option& option : operation.options) line += written(option);
    print(line + "\n");
}

}  // namespace

void runHelp(Words words) {
    Arguments::read(words, {});
    print(usage);
    for (const Operation& operation : allOperations()) printOperation(operation);
    print(usageForUsers);
    for (const UserOperation& operation : allUserOperations()) printOperation(operation);
}

}  // namespace vantic

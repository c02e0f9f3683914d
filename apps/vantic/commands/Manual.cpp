#include "commands/Commands.h"
#include "Failure.h"
#include "help/ManualPage.h"
#include "Output.h"

namespace vantic {

void runManual(Words words) {
    const Arguments given = Arguments::read(words, {}, 1);
    if (given.positionals().empty()) return print(manualPage());
    const Command* const command = commandNamed(given.positionals().front());
    if (command == nullptr) throw UsageError{"there is no command " + given.positionals().front()};
    print(manualPageOf(*command));
}

}  // namespace vantic

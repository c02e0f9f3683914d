#include "commands/Commands.h"
#include "Output.h"
#include "types/Type.h"

namespace vantic {

void runTypes(Words words) {
    Arguments::read(words, {});
    for (const TypeEntry& entry : allTypes()) print(entry.one.name + "\n");
}

}  // namespace vantic

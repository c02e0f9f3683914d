#include "StandardDescriptors.h"

#include <fcntl.h>
#include <unistd.h>

#include "Failure.h"

namespace vantic {

void openMissingStandardDescriptors() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(descriptor, F_GETFD) >= 0) continue;
        // The lowest number that is free, and those below this one are taken. For reading only, for output as
        // well: what is printed into nothing has to be told as lost.
        if (::open("/dev/null", O_RDONLY) != descriptor) throw Failed{"cannot open /dev/null"};
    }
}

}  // namespace vantic

#include "StandardDescriptors.h"

#include <fcntl.h>
#include <unistd.h>

#include "Failure.h"

namespace vantic {

void openMissingStandardDescriptors() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(descriptor, F_GETFD) >= 0) continue;
        // `open` returns the lowest free number, and those below this one are in use. Opened read-only even for output,
        // so that writing to it fails and the lost output is reported.
        if (::open("/dev/null", O_RDONLY) != descriptor) throw Failed{"cannot open /dev/null"};
    }
}

}  // namespace vantic

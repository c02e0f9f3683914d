#include <VanticRestKit/Core/URLError.h>

namespace VanticRestKit {

const ErrorTag& URLError::errorTag() {
    static const ErrorTag tag;
    return tag;
}

std::string URLError::errorDomain() { return "VanticRestKit.URLError"; }

}  // namespace VanticRestKit

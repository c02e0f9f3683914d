#include <VanticRestKit/platform/json/EncodingError.h>

namespace VanticRestKit {

const ErrorTag& EncodingError::errorTag() {
    static const ErrorTag tag;
    return tag;
}

std::string EncodingError::localizedDescription() const {
    return "The data couldn\u2019t be written because it isn\u2019t in the correct format.";
}

}  // namespace VanticRestKit

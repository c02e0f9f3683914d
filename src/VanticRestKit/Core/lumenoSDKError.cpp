#include <VanticRestKit/Core/lumenoSDKError.h>

namespace VanticRestKit {

lumenoSDKError lumenoSDKError::initializationError(std::string message) {
    return {Kind::initializationError, std::move(message)};
}

const ErrorTag& lumenoSDKError::errorTag() {
    static const ErrorTag tag;
    return tag;
}

std::string lumenoSDKError::errorDomain() { return "VanticRestKit.lumenoSDKError"; }

}  // namespace VanticRestKit

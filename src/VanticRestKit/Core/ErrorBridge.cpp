#include <VanticRestKit/Core/ErrorBridge.h>

namespace VanticRestKit {

NSError underlyingNSError(const Error& error) { return NSError(error); }

Dictionary underlyingErrorUserinfo(const Error& error) { return error.userInfo(); }

NSError makeNSError(const NSErrorArguments& arguments) {
    const NetworkError& error = arguments.networkServiceError;
    return {NetworkError::errorDomain(), error.errorCode(), error.errorUserInfo()};
}

}  // namespace VanticRestKit

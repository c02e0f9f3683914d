#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/platform/error/NSError.h>

namespace VanticRestKit {

LoaderError LoaderError::serverError(std::optional<Error> error) {
    return {Kind::serverError, std::move(error)};
}

LoaderError LoaderError::failedToDecode(std::optional<Error> error) {
    return {Kind::failedToDecode, std::move(error)};
}

LoaderError LoaderError::unknowError() { return {Kind::unknowError, std::nullopt}; }

LoaderError LoaderError::unknownResponse() { return {Kind::unknownResponse, std::nullopt}; }

LoaderError LoaderError::loaderStateError() { return {Kind::loaderStateError, std::nullopt}; }

std::string LoaderError::localizedDescription() const {
    switch (kind_) {
        case Kind::serverError:
            return underlyingError_ ? underlyingError_->localizedDescription() : "Unknown server error";
        case Kind::failedToDecode: return "Unable to decode the server response";
        case Kind::unknowError: return "Unknown error";
        case Kind::unknownResponse: return "Unknown response";
        case Kind::loaderStateError: break;
    }
    return "Loaded in incorrect state";
}

bool LoaderError::is404Error() const {
    if (kind_ != Kind::serverError || !underlyingError_) return false;
    const NetworkError* const error = underlyingError_->as<NetworkError>();
    return error != nullptr && error->kind() == NetworkError::Kind::httpError && error->errorCode() == 404;
}

const NetworkError* LoaderError::networkError() const noexcept {
    const LoaderError* error = this;
    while (error != nullptr && error->underlyingError_) {
        const Error& held = *error->underlyingError_;
        if (const auto* found = held.as<NetworkError>()) return found;
        error = held.as<LoaderError>();
    }
    return nullptr;
}

const NSError* LoaderError::transportError() const noexcept {
    const NetworkError* const error = networkError();
    return error != nullptr ? error->transportError() : nullptr;
}

const ErrorTag& LoaderError::errorTag() {
    static const ErrorTag tag;
    return tag;
}

std::string LoaderError::errorDomain() { return "VanticRestKit.Loader.LoaderError"; }

}  // namespace VanticRestKit

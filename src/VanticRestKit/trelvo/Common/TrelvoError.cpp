#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/trelvo/Common/TrelvoError.h>

namespace VanticRestKit {

TrelvoError TrelvoError::noAuthToken(Error authError) {
    TrelvoError result(Kind::noAuthToken);
    result.error_ = std::move(authError);
    return result;
}

TrelvoError TrelvoError::datasetNamespaceMismatch(std::optional<std::string> expected,
                                                  std::optional<std::string> actual) {
    TrelvoError result(Kind::datasetNamespaceMismatch);
    result.expected_ = std::move(expected);
    result.actual_ = std::move(actual);
    return result;
}

TrelvoError TrelvoError::general(Error error) {
    TrelvoError result(Kind::general);
    result.error_ = std::move(error);
    return result;
}

TrelvoError TrelvoError::unknown(std::optional<std::string> message) {
    TrelvoError result(Kind::unknown);
    result.message_ = std::move(message);
    return result;
}

TrelvoError TrelvoError::datasetDoesNotExist() { return TrelvoError(Kind::datasetDoesNotExist); }

TrelvoError TrelvoError::noUid() { return TrelvoError(Kind::noUid); }

TrelvoError TrelvoError::accountReconsentRequired() { return TrelvoError(Kind::accountReconsentRequired); }

TrelvoError TrelvoError::unableToRetrieveHistoryData() {
    return TrelvoError(Kind::unableToRetrieveHistoryData);
}

TrelvoError TrelvoError::unableToRetrieveSavedData() { return TrelvoError(Kind::unableToRetrieveSavedData); }

std::string TrelvoError::errorDescription() const {
    switch (kind_) {
        case Kind::noAuthToken:
            return "No valid auth token was found.  The last call to the token endpoint produced this "
                   "error: " +
                   error_->localizedDescription();
        case Kind::datasetNamespaceMismatch:
            return "Dataset namespace mismatch. Expected: \"" + expected_.value_or("nil") + "\". Actual: \"" +
                   actual_.value_or("nil") + "\"";
        case Kind::general: return error_->localizedDescription();
        case Kind::unknown: return "Unknown error: " + message_.value_or("No more information available");
        case Kind::datasetDoesNotExist:
            return "The requested dataset doesn't exist, either because it was deleted, or hasn't yet been "
                   "created.";
        case Kind::noUid: return "Got nil uid from TrelvoContext.";
        case Kind::accountReconsentRequired:
            return "Token request denied because account is unauthorized, likely because reconsent is "
                   "required.";
        case Kind::unableToRetrieveHistoryData: return "Unable to retrieve history data";
        case Kind::unableToRetrieveSavedData: return "Unable to retrieve saved data";
    }
    return {};
}

std::optional<ErrorCategory> TrelvoError::errorCategory() const noexcept {
    switch (kind_) {
        case Kind::noAuthToken:
        case Kind::general: return std::nullopt;
        case Kind::datasetDoesNotExist: return ErrorCategory::notFound;
        case Kind::noUid:
        case Kind::accountReconsentRequired: return ErrorCategory::unauthorized;
        case Kind::datasetNamespaceMismatch:
        case Kind::unableToRetrieveHistoryData:
        case Kind::unableToRetrieveSavedData: return ErrorCategory::badAnswer;
        case Kind::unknown: break;
    }
    return ErrorCategory::unknown;
}

const NetworkError* TrelvoError::networkError() const noexcept {
    const TrelvoError* error = this;
    while (error != nullptr && error->error_) {
        const Error& held = *error->error_;
        if (const auto* found = held.as<NetworkError>()) return found;
        if (const auto* loading = held.as<LoaderError>()) return loading->networkError();
        error = held.as<TrelvoError>();
    }
    return nullptr;
}

const NSError* TrelvoError::transportError() const noexcept {
    const NetworkError* const error = networkError();
    return error != nullptr ? error->transportError() : nullptr;
}

const ErrorTag& TrelvoError::errorTag() {
    static const ErrorTag tag;
    return tag;
}

}  // namespace VanticRestKit

#include <VanticRestKit/trelvo/State/detail/TokenRules.h>

#include <VanticRestKit/Core/NetworkError.h>

#include <chrono>
#include <string>

namespace VanticRestKit::detail {

double secondsSince1970() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration<double>(now).count();
}

double secondsUntilExpiry(const Auth& auth, double now) {
    return auth.expiry.time_since_epoch().count() - now;
}

bool lastsLongEnough(double secondsUntilExpiry) {
    constexpr double minSafeTime = 5.0;
    return secondsUntilExpiry > minSafeTime;
}

bool isUnauthorized(const LoaderError& error) {
    if (error.kind() != LoaderError::Kind::serverError || !error.underlyingError()) return false;
    const NetworkError* const cause = error.underlyingError()->as<NetworkError>();
    return cause != nullptr && cause->kind() == NetworkError::Kind::httpError && cause->errorCode() == 401;
}

TrelvoError tokenRequestError(const LoaderError& error) {
    return isUnauthorized(error) ? TrelvoError::accountReconsentRequired() : TrelvoError::noAuthToken(error);
}

TrelvoError noTokenError(const char* operation, const std::optional<TrelvoError>& lastError) {
    if (lastError) return *lastError;
    return TrelvoError::unknown("In Trelvo." + std::string(operation) +
                                "(), no saved auth data and no authError found");
}

}  // namespace VanticRestKit::detail

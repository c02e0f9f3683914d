#pragma once

// An operation on user data, independent of the client that runs it: its request, and the conversion of the response.

#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/Core/ResourceURI.h>
#include <VanticRestKit/platform/result/Result.h>
#include <VanticRestKit/trelvo/Common/Auth.h>
#include <VanticRestKit/trelvo/Common/RouteValues.h>
#include <VanticRestKit/trelvo/Common/TrelvoError.h>
#include <VanticRestKit/trelvo/Common/TrelvoNumber.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace VanticRestKit::detail {

/// Stores the tokens of responses.
class TokenKeeper {
public:
    virtual void keep(const Auth& auth) = 0;

protected:
    ~TokenKeeper() = default;
};

/// One operation with its arguments. Immutable; can be run any number of times.
template <class A, class V>
struct UserOperation {
    using Answer = A;
    using Value = V;
    using Outcome = Result<V, TrelvoError>;

    /// The name in the error message for a missing token.
    const char* name;
    std::function<ResourceURI(const std::string& uid, SourceSystem source)> route;
    /// Converts the response, which it may move from, to the outcome. `keeper` is null if the client has been
    /// destroyed.
    std::function<Outcome(Result<A, LoaderError>& answer, TokenKeeper* keeper)> conclude;
    /// The outcome if the arguments cannot be sent; checked first.
    std::optional<TrelvoError> argumentError{};
};

/// The error if `number` is out of the signed range; otherwise empty.
inline std::optional<TrelvoError> signedRangeError(TrelvoNumber number, const char* operation,
                                                   const char* argument) {
    if (number.value()) return std::nullopt;
    return TrelvoError::unknown("In Trelvo." + std::string(operation) + "(), " + argument +
                                " is beyond the range of a signed number");
}

/// The error of most operations if the request fails.
inline Failure<TrelvoError> generalFailure(const LoaderError& error) {
    return Failure(TrelvoError::general(error));
}

inline Failure<TrelvoError> clientHasGone() {
    return Failure(TrelvoError::unknown("Trelvo deallocated when request returned"));
}

/// Stores the tokens of a response, if it contains any and the client still exists.
inline void keepAuth(TokenKeeper* keeper, const std::optional<Auth>& auth) {
    if (keeper != nullptr && auth) keeper->keep(*auth);
}

/// Stores the tokens of a response without a value.
template <class A>
Result<void, TrelvoError> concludeWithoutValue(const Result<A, LoaderError>& answer, TokenKeeper* keeper) {
    if (!answer) return generalFailure(answer.error());
    keepAuth(keeper, answer->auth);
    return {};
}

}  // namespace VanticRestKit::detail

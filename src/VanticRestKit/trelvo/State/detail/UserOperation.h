#pragma once

// What one operation on user data asks for and makes of the answer, whichever client runs it.

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

/// Keeps the tokens that answers bring.
class TokenKeeper {
public:
    virtual void keep(const Auth& auth) = 0;

protected:
    ~TokenKeeper() = default;
};

/// One operation with its arguments. Immutable once made, and run any number of times.
template <class A, class V>
struct UserOperation {
    using Answer = A;
    using Value = V;
    using Outcome = Result<V, TrelvoError>;

    /// How the error for neither token nor error names it.
    const char* name;
    std::function<ResourceURI(const std::string& uid, SourceSystem source)> route;
    /// Turns the answer, which it may move from, into the outcome. `keeper` is null if the client has gone.
    std::function<Outcome(Result<A, LoaderError>& answer, TokenKeeper* keeper)> conclude;
    /// What it ends with, before anything else, if its arguments cannot be sent.
    std::optional<TrelvoError> argumentError{};
};

/// The error of an argument that is beyond the signed range; empty if it is not.
inline std::optional<TrelvoError> signedRangeError(TrelvoNumber number, const char* operation,
                                                   const char* argument) {
    if (number.value()) return std::nullopt;
    return TrelvoError::unknown("In Trelvo." + std::string(operation) + "(), " + argument +
                                " is beyond the range of a signed number");
}

/// What a failed request is for most operations.
inline Failure<TrelvoError> generalFailure(const LoaderError& error) {
    return Failure(TrelvoError::general(error));
}

inline Failure<TrelvoError> clientHasGone() {
    return Failure(TrelvoError::unknown("Trelvo deallocated when request returned"));
}

/// Keeps the tokens of an answer, if it has some and the client is still there.
inline void keepAuth(TokenKeeper* keeper, const std::optional<Auth>& auth) {
    if (keeper != nullptr && auth) keeper->keep(*auth);
}

/// Keeps the tokens of an answer that has no value to give.
template <class A>
Result<void, TrelvoError> concludeWithoutValue(const Result<A, LoaderError>& answer, TokenKeeper* keeper) {
    if (!answer) return generalFailure(answer.error());
    keepAuth(keeper, answer->auth);
    return {};
}

}  // namespace VanticRestKit::detail

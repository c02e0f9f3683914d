#pragma once

// The state of the blocking client of the user data service, and how its operations get a token.

#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/platform/dispatch/DispatchGroup.h>
#include <VanticRestKit/platform/dispatch/Replaceable.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/trelvo/Common/Auth.h>
#include <VanticRestKit/trelvo/Common/TrelvoContextAuthDecorator.h>
#include <VanticRestKit/trelvo/Common/TrelvoError.h>
#include <VanticRestKit/trelvo/State/detail/UserOperation.h>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace VanticRestKit::detail {

/// The user and token of one operation.
struct Credentials {
    std::string uid;
    std::string accessToken;
};

/// Receives the outcome of an operation.
template <class T>
using TrelvoCompletion = UniqueFunction<void(Result<T, TrelvoError>)>;

class TrelvoState final : public TokenKeeper, public std::enable_shared_from_this<TrelvoState> {
public:
    using WillWait = std::function<void(const DispatchGroup&)>;

    /// `now` returns the seconds since 1970. `willWait`, for tests, is called with each group that an operation is
    /// about to wait for.
    explicit TrelvoState(std::function<double()> now, WillWait willWait = {})
        : now_(std::move(now)), willWait_(std::move(willWait)) {}

    Replaceable<std::optional<Auth>> auth;
    Replaceable<std::optional<TrelvoError>> authError;

    /// Gets a usable token, blocking the calling thread. If there is neither a token nor an error, the message names
    /// `operation`.
    Result<Credentials, TrelvoError> credentials(const char* operation, const TrelvoContext& context);

    /// Starts a request for new tokens. Returns an empty value if the token is usable or no user is signed in.
    /// Otherwise the group is left when the response has been stored; if the request cannot be built, the group is
    /// never left.
    std::optional<DispatchGroup> refreshAuth(const TrelvoContext& context);

    /// In seconds; negative if the token has expired, empty if there is none.
    std::optional<double> timeUntilAuthExpires() const;

    /// Also removes the cached responses for the previous tokens, which can no longer be used.
    void keep(const Auth& received) override;

private:
    struct Refresh {
        DispatchGroup group;
        /// Whether the calling code runs on the queue on which the response would be delivered.
        bool needsCurrentQueue = false;
    };

    std::optional<Refresh> beginRefresh(const TrelvoContext& context);
    void reportEndlessWait(const char* operation, const TrelvoContext& context);

    std::function<double()> now_;
    WillWait willWait_;
    std::atomic<bool> hasReported_{false};
};

/// Runs an operation: gets the credentials, sends the request and converts the response. If the request cannot be
/// built, the completion is never called.
template <class Answer, class Value>
void runOperation(TrelvoState& state, const UserOperation<Answer, Value>& operation,
                  const TrelvoContext& context, TrelvoCompletion<Value> completion) {
    if (operation.argumentError) {
        completion(Failure(*operation.argumentError));
        return;
    }
    Result<Credentials, TrelvoError> credentials = state.credentials(operation.name, context);
    if (!credentials) {
        completion(Failure(credentials.error()));
        return;
    }
    const TrelvoContextAuthDecorator decorator(context, credentials->accessToken);
    const auto resource =
        Resource<Answer>::make({.with = operation.route(credentials->uid, decorator.source())}, decorator);
    if (!resource) return;
    resource->load({.with = [completion = std::move(completion), conclude = operation.conclude,
                             weak = state.weak_from_this()](Result<Answer, LoaderError> answer) mutable {
        auto outcome = conclude(answer, weak.lock().get());
        completion(std::move(outcome));
    }});
}

}  // namespace VanticRestKit::detail

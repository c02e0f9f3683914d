#include <VanticRestKit/trelvo/State/detail/TrelvoState.h>

#include <VanticRestKit/Core/ObservableContext.h>
#include <VanticRestKit/Core/RequestObserver.h>
#include <VanticRestKit/trelvo/State/detail/StoredAnswers.h>
#include <VanticRestKit/trelvo/State/detail/TokenRules.h>
#include <VanticRestKit/trelvo/Token/TokenResponse.h>
#include <VanticRestKit/trelvo/Token/TokenRoutes.h>

#include <cassert>

namespace VanticRestKit::detail {

namespace {

void keepTokens(TrelvoState& self, const Result<TokenResponse, LoaderError>& answer) {
    if (!answer) {
        self.authError.store(tokenRequestError(answer.error()));
    } else if (answer->auth) {
        self.keep(*answer->auth);
        self.authError.store(std::nullopt);
    }
}

}  // namespace

void TrelvoState::keep(const Auth& received) {
    const std::optional<Auth> previous = auth.load();
    auth.store(received);
    removeStoredAnswers(previous, received);
}

std::optional<double> TrelvoState::timeUntilAuthExpires() const {
    const std::optional<Auth> saved = auth.load();
    if (!saved) return std::nullopt;
    return secondsUntilExpiry(*saved, now_());
}

std::optional<DispatchGroup> TrelvoState::refreshAuth(const TrelvoContext& context) {
    const std::optional<Refresh> refresh = beginRefresh(context);
    return refresh ? std::optional(refresh->group) : std::nullopt;
}

std::optional<TrelvoState::Refresh> TrelvoState::beginRefresh(const TrelvoContext& context) {
    const std::optional<std::string> uid = context.uid();
    if (!uid) return std::nullopt;
    const std::optional<double> left = timeUntilAuthExpires();
    if (left && lastsLongEnough(*left)) return std::nullopt;

    DispatchGroup group;
    group.enter();
    const std::optional<Auth> saved = auth.load();
    const TrelvoContextAuthDecorator decorator(
        context, saved ? std::optional<std::string>(saved->refreshToken) : std::nullopt);
    const TokenURI route{.uid = *uid, .source = decorator.source()};
    const auto resource = Resource<TokenResponse>::make({.with = route}, decorator);
    Refresh refresh{group};
    if (resource) {
        refresh.needsCurrentQueue = resource->needsCurrentQueue();
        resource->load({.with = [group, weak = weak_from_this()](Result<TokenResponse, LoaderError> answer) {
            if (const std::shared_ptr<TrelvoState> self = weak.lock()) keepTokens(*self, answer);
            group.leave();
        }});
    }
    return refresh;
}

void TrelvoState::reportEndlessWait(const char* operation, const TrelvoContext& context) {
    const ObservableContext* const observable = context.asObservable();
    const std::shared_ptr<RequestObserver> observer =
        observable == nullptr ? nullptr : observable->observer();
    if (observer && !hasReported_.exchange(true)) observer->operationWillNeverReturn(operation);
}

Result<Credentials, TrelvoError> TrelvoState::credentials(const char* operation,
                                                          const TrelvoContext& context) {
    std::optional<std::string> uid = context.uid();
    if (!uid) return Failure(TrelvoError::noUid());
    if (const std::optional<Refresh> refresh = beginRefresh(context)) {
        if (refresh->needsCurrentQueue) {
            reportEndlessWait(operation, context);
            // With a `willWait_` hook, as in tests, the hook ends the wait.
            assert(willWait_ && "an operation inside a completion waits for a token of the same queue");
        }
        if (willWait_) willWait_(refresh->group);
        refresh->group.wait();
    }
    const std::optional<Auth> saved = auth.load();
    if (saved) return Credentials{*std::move(uid), saved->accessToken};
    return Failure(noTokenError(operation, authError.load()));
}

}  // namespace VanticRestKit::detail

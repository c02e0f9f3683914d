#include <VanticRestKit/trelvo/detail/UserSession.h>

#include <VanticRestKit/platform/http/detail/URLErrors.h>
#include <VanticRestKit/trelvo/detail/UserCall.h>
#include <VanticRestKit/trelvo/State/detail/StoredAnswers.h>
#include <VanticRestKit/trelvo/State/detail/TokenRules.h>

#include <utility>

namespace VanticRestKit::detail {

namespace {

TrelvoError noRequest(const UserCall& call, const char* what) {
    return TrelvoError::unknown("In UserClient." + std::string(call.name()) +
                                "(), the context built no request for " + what);
}

}  // namespace

UserSession::UserSession(std::shared_ptr<const TrelvoContext> context, std::function<double()> now)
    : context_(std::move(context)), now_(std::move(now)) {}

// The life of a call.

void UserSession::enter(std::shared_ptr<UserCall> call) {
    queue_.async([self = shared_from_this(), call = std::move(call)] { self->entered(call); });
}

void UserSession::entered(const std::shared_ptr<UserCall>& call) {
    if (call->hasLeft()) return;
    const UserRequests& requests = call->requests();
    if (requests.uid != uid_) changeUser(requests.uid, std::nullopt);
    if (call->argumentError()) {
        call->fail(*call->argumentError());
    } else if (!requests.uid) {
        call->fail(TrelvoError::noUid());
    } else if (!requests.data) {
        call->fail(noRequest(*call, "the data"));
    } else {
        advance(entries_.emplace(call->number(), Entry{.call = call}).first->second);
    }
}

void UserSession::advance(Entry& entry) {
    if (isTokenGood()) {
        send(entry);
        return;
    }
    entry.isWaiting = true;
    ++waitingCount_;
    if (refresh_ || startRefresh(entry.call->requests())) return;
    if (auth_ || entry.refusal) {
        resumeAfterRefresh(entry, false);
    } else {
        endWait(entry);
        const std::shared_ptr<UserCall> call = entry.call;
        call->fail(noRequest(*call, "a token"));
    }
}

void UserSession::send(Entry& entry) {
    entry.accessToken = auth_->accessToken;
    entry.wasGood = isTokenGood();
    entry.refusal.reset();
    entry.call->send(serviceFor(withToken(*entry.call->requests().data, entry.accessToken), *context_,
                                entry.hasRepeated ? 2 : 1));
}

bool UserSession::sendsAgain(const UserCall& call, const LoaderError& error) {
    const auto found = entries_.find(call.number());
    if (found == entries_.end() || call.hasLeft() || !isUnauthorized(error)) return false;
    Entry& entry = found->second;
    if (!entry.wasGood || entry.hasRepeated) return false;
    entry.hasRepeated = true;
    const bool hasOtherToken = auth_ && auth_->accessToken != entry.accessToken;
    if (!hasOtherToken) {
        isTokenRejected_ = true;
        entry.refusal = error;
    }
    advance(entry);
    return true;
}

void UserSession::forget(std::uint64_t number) { entries_.erase(number); }

void UserSession::leave(std::uint64_t number) {
    queue_.async([self = shared_from_this(), number] {
        const auto found = self->entries_.find(number);
        if (found == self->entries_.end()) return;
        found->second.call->stop();
        if (found->second.isWaiting) self->endWait(found->second);
        self->entries_.erase(found);
        if (self->waitingCount_ == 0) self->refresh_.reset();
    });
}

// Tokens.

bool UserSession::isTokenGood() const {
    return auth_ && !isTokenRejected_ && lastsLongEnough(secondsUntilExpiry(*auth_, now_()));
}

bool UserSession::startRefresh(const UserRequests& requests) {
    const std::optional<URLRequest>& built = auth_ ? requests.refresh : requests.firstTokens;
    if (!built) return false;
    URLRequest request = auth_ ? withToken(*built, auth_->refreshToken) : *built;
    const Resource<TokenResponse> resource(
        {.withService = serviceFor(std::move(request), *context_), .andDecoder = JSONDecoder()});
    refresh_ = resource.start({.on = queue_},
                              [weak = weak_from_this()](const Result<TokenResponse, LoaderError>& answer) {
                                  if (const std::shared_ptr<UserSession> self = weak.lock())
                                      self->refreshed(answer);
                              });
    return true;
}

void UserSession::refreshed(const Result<TokenResponse, LoaderError>& answer) {
    refresh_.reset();
    const bool isRefreshed = answer && answer->auth;
    if (isRefreshed) {
        authError_.reset();
        replaceAuth(answer->auth);
    } else if (!answer) {
        authError_ = tokenRequestError(answer.error());
        publish();
    }
    forEachWaiting([&](Entry& entry) { resumeAfterRefresh(entry, isRefreshed); });
}

template <class Resume>
void UserSession::forEachWaiting(Resume resume) {
    for (auto next = entries_.begin(); next != entries_.end();) {
        // `resume` may erase its own entry, but no other one.
        Entry& entry = (next++)->second;
        if (entry.isWaiting) resume(entry);
    }
}

void UserSession::endWait(Entry& entry) {
    entry.isWaiting = false;
    --waitingCount_;
}

void UserSession::resumeAfterRefresh(Entry& entry, bool isRefreshed) {
    endWait(entry);
    const std::shared_ptr<UserCall> call = entry.call;
    // `leave` has been called and will erase the entry.
    if (call->hasLeft()) return;
    if (entry.refusal && !isRefreshed) {
        const LoaderError refusal = *entry.refusal;
        call->failAsAnswered(refusal);
    } else if (auth_) {
        send(entry);
    } else {
        call->fail(noTokenError(call->name(), authError_));
    }
}

void UserSession::keep(const Auth& auth) { replaceAuth(auth); }

void UserSession::replaceAuth(std::optional<Auth> auth) {
    const std::optional<Auth> previous = std::exchange(auth_, std::move(auth));
    // These tokens are not used any longer, so neither are the responses cached for them.
    removeStoredAnswers(previous, auth_);
    isTokenRejected_ = false;
    publish();
}

// Users.

void UserSession::changeUser(const std::optional<std::string>& uid, std::optional<Auth> auth) {
    uid_ = uid;
    authError_.reset();
    refresh_.reset();
    waitingCount_ = 0;
    const std::map<std::uint64_t, Entry> ended = std::move(entries_);
    entries_.clear();
    for (const auto& [number, entry] : ended) {
        entry.call->stop();
        entry.call->cancel();
    }
    replaceAuth(std::move(auth));
}

void UserSession::setAuth(std::optional<UserAuth> auth) {
    published_.store(auth);
    queue_.async([self = shared_from_this(), auth = std::move(auth)] {
        std::optional<Auth> tokens;
        if (auth) tokens = auth->auth;
        if (auth && auth->uid != self->uid_) {
            self->changeUser(auth->uid, std::move(tokens));
            return;
        }
        self->authError_.reset();
        // Its response would replace the new tokens.
        self->refresh_.reset();
        self->replaceAuth(std::move(tokens));
        self->forEachWaiting([&](Entry& entry) {
            self->endWait(entry);
            self->advance(entry);
        });
    });
}

void UserSession::signOut() {
    published_.store(std::nullopt);
    queue_.async([self = shared_from_this()] { self->changeUser(std::nullopt, std::nullopt); });
}

void UserSession::publish() {
    std::optional<UserAuth> auth;
    if (auth_) auth = UserAuth{.uid = *uid_, .auth = *auth_};
    SignInState state = auth_ ? SignInState::signedIn : SignInState::signedOut;
    if (authError_ == TrelvoError::accountReconsentRequired()) state = SignInState::consentNeeded;
    published_.store(auth);
    authChanges_.set(std::move(auth));
    signInState_.set(state);
}

template <class T>
AnyPublisher<T, Never> UserSession::observe(Observed<T> UserSession::*value) {
    return AnyPublisher<T, Never>::create(
               [self = shared_from_this(), value](const Subscriber<T, Never>& subscriber) {
                   const std::uint64_t number = self->nextNumber();
                   self->queue_.async(
                       [self, value, number, subscriber] { ((*self).*value).add(number, subscriber); });
                   return Cancellable([weak = std::weak_ptr(self), value, number] {
                       const std::shared_ptr<UserSession> there = weak.lock();
                       if (!there) return;
                       there->queue_.async([there, value, number] { ((*there).*value).remove(number); });
                   });
               })
        .receiveOn(deliveries_);
}

AnyPublisher<SignInState, Never> UserSession::signInState() { return observe(&UserSession::signInState_); }

AnyPublisher<std::optional<UserAuth>, Never> UserSession::authChanges() {
    return observe(&UserSession::authChanges_);
}

// Blocking waits, and starts that end early.

bool UserSession::needsCurrentQueue(const UserRequests::Route& route) const {
    if (queue_.isCurrent() || deliveries_.isCurrent()) return true;
    const UserRequests requests = UserRequests::read(*context_, route);
    if (!requests.data) return false;
    return context_->service({.withURLRequest = withoutToken(*requests.data)})->deliveryQueue().isCurrent();
}

Error UserSession::endedEarly(const UserRequests& requests, URLErrorCode code) const {
    if (!requests.data) return makeURLError({code}, std::nullopt);
    return context_->service({.withURLRequest = withoutToken(*requests.data)})->endedEarly(code);
}

}  // namespace VanticRestKit::detail

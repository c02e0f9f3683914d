#pragma once

// The state of a user client: its tokens, and the operations in progress.

#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/dispatch/Replaceable.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/URLErrorCode.h>
#include <VanticRestKit/platform/publisher/Cancellable.h>
#include <VanticRestKit/trelvo/detail/Observed.h>
#include <VanticRestKit/trelvo/detail/UserRequests.h>
#include <VanticRestKit/trelvo/State/detail/UserOperation.h>
#include <VanticRestKit/trelvo/Token/TokenResponse.h>
#include <VanticRestKit/trelvo/UserAuth.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace VanticRestKit::detail {

class UserCall;

/// All mutable state is used only on one serial queue, and nothing blocks. Shared by clients, operations and starts.
class UserSession final : public TokenKeeper, public std::enable_shared_from_this<UserSession> {
public:
    /// `now` returns the seconds since 1970, on the queue.
    UserSession(std::shared_ptr<const TrelvoContext> context, std::function<double()> now);

    // From any thread:

    const TrelvoContext& context() const noexcept { return *context_; }
    const DispatchQueue& queue() const noexcept { return queue_; }
    /// Delivers the outcomes of starts that name no queue, and the values of publishers.
    const DispatchQueue& deliveries() const noexcept { return deliveries_; }
    std::uint64_t nextNumber() noexcept { return nextNumber_.fetch_add(1); }

    void enter(std::shared_ptr<UserCall> call);
    void leave(std::uint64_t number);

    std::optional<UserAuth> auth() const { return published_.load(); }
    void setAuth(std::optional<UserAuth> auth);
    void signOut();
    AnyPublisher<SignInState, Never> signInState();
    AnyPublisher<std::optional<UserAuth>, Never> authChanges();

    /// Whether the calling code runs on a queue that is needed to deliver the outcome.
    bool needsCurrentQueue(const UserRequests::Route& route) const;
    /// The error of a start that ended early with `code`.
    Error endedEarly(const UserRequests& requests, URLErrorCode code) const;

    // On the queue:

    /// Whether the request of `call`, which failed with `error`, is sent again with other tokens.
    bool sendsAgain(const UserCall& call, const LoaderError& error);
    /// Removes a call that has an outcome.
    void forget(std::uint64_t number);
    void keep(const Auth& auth) override;

private:
    /// A call in progress.
    struct Entry {
        std::shared_ptr<UserCall> call;
        bool isWaiting = false;
        /// The token of its request, and whether it seemed valid.
        std::string accessToken{};
        bool wasGood = false;
        bool hasRepeated = false;
        /// The 401 response, while the call waits for other tokens.
        std::optional<LoaderError> refusal{};
    };

    void entered(const std::shared_ptr<UserCall>& call);
    void advance(Entry& entry);
    void send(Entry& entry);
    void endWait(Entry& entry);
    void resumeAfterRefresh(Entry& entry, bool isRefreshed);
    template <class Resume>
    void forEachWaiting(Resume resume);

    bool isTokenGood() const;
    bool startRefresh(const UserRequests& requests);
    void refreshed(const Result<TokenResponse, LoaderError>& answer);

    /// Cancels the calls in progress and continues with `uid` and its tokens.
    void changeUser(const std::optional<std::string>& uid, std::optional<Auth> auth);
    void replaceAuth(std::optional<Auth> auth);
    void publish();
    template <class T>
    AnyPublisher<T, Never> observe(Observed<T> UserSession::*value);

    const std::shared_ptr<const TrelvoContext> context_;
    const std::function<double()> now_;
    const DispatchQueue queue_{"VanticRestKit user client"};
    const DispatchQueue deliveries_{"VanticRestKit user outcomes"};
    std::atomic<std::uint64_t> nextNumber_{0};
    Replaceable<std::optional<UserAuth>> published_;

    // Used only on the queue:
    std::optional<std::string> uid_;
    std::optional<Auth> auth_;
    /// The service responded with 401 to the access token, even if it has not expired.
    bool isTokenRejected_ = false;
    /// The error of the last token request.
    std::optional<TrelvoError> authError_;
    std::map<std::uint64_t, Entry> entries_;
    std::size_t waitingCount_ = 0;
    /// The token request in progress, if any.
    std::optional<Cancellable> refresh_;
    Observed<SignInState> signInState_{SignInState::signedOut};
    Observed<std::optional<UserAuth>> authChanges_{std::nullopt};
};

}  // namespace VanticRestKit::detail

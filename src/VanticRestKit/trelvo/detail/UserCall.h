#pragma once

// One start of an operation of a user client.

#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/platform/async/AsyncCall.h>
#include <VanticRestKit/platform/async/Operation.h>
#include <VanticRestKit/trelvo/detail/UserRequests.h>
#include <VanticRestKit/trelvo/detail/UserSession.h>
#include <VanticRestKit/trelvo/State/detail/UserOperation.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace VanticRestKit::detail {

/// A start of an operation, as the session sees it. The session calls it on its queue.
class UserCall : public AsyncCall {
public:
    ~UserCall() override;

    const UserRequests& requests() const noexcept { return requests_; }
    /// The position in the order of starts.
    std::uint64_t number() const noexcept { return number_; }
    virtual const char* name() const = 0;
    /// The outcome if the arguments cannot be sent.
    virtual const std::optional<TrelvoError>& argumentError() const = 0;
    /// Whether it was cancelled or missed its deadline, so that the session ignores it. Any thread.
    bool hasLeft() const noexcept { return hasLeft_.load(); }

    /// Sends the request of the operation.
    virtual void send(std::shared_ptr<Serviceable> service) = 0;
    /// Cancels the request in progress; its response is not delivered.
    virtual void stop() = 0;
    /// Ends with `error`, without sending the request.
    virtual void fail(TrelvoError error) = 0;
    /// Ends as if the request had failed with `error`.
    virtual void failAsAnswered(LoaderError error) = 0;

protected:
    /// `companions` are started before this call and cancelled together with it; their outcomes are ignored.
    UserCall(std::shared_ptr<UserSession> session, UserRequests requests, LoadOptions options,
             std::vector<std::shared_ptr<PendingCall>> companions);

    UserSession& session() const noexcept { return *session_; }
    /// The outcome after a cancel or a missed deadline.
    TrelvoError endedEarly(URLErrorCode code) const;

private:
    Cancellable startWork() final;
    void leave();

    const std::shared_ptr<UserSession> session_;
    const UserRequests requests_;
    const std::uint64_t number_;
    const std::vector<std::shared_ptr<PendingCall>> companions_;
    std::atomic<bool> hasLeft_{false};
};

template <class A, class V>
class UserCallOf final : public UserCall {
public:
    using Outcome = Result<V, TrelvoError>;
    using Completion = UniqueFunction<void(Outcome)>;

    UserCallOf(std::shared_ptr<UserSession> session, std::shared_ptr<const UserOperation<A, V>> operation,
               LoadOptions options, Completion completion,
               std::vector<std::shared_ptr<PendingCall>> companions)
        : UserCall(session, UserRequests::read(session->context(), operation->route), std::move(options),
                   std::move(companions)),
          operation_(std::move(operation)),
          completion_(std::move(completion)) {}

private:
    const char* name() const override { return operation_->name; }
    const std::optional<TrelvoError>& argumentError() const override { return operation_->argumentError; }

    void send(std::shared_ptr<Serviceable> service) override {
        const Resource<A> resource({.withService = std::move(service), .andDecoder = JSONDecoder()});
        load_ = resource.start({.on = session().queue()},
                               [self = shared_from_this(), this](Result<A, LoaderError> answer) {
                                   answered(std::move(answer));
                               });
    }
    void stop() override { load_ = Cancellable(); }
    void fail(TrelvoError error) override { end(Failure(std::move(error))); }
    void failAsAnswered(LoaderError error) override { conclude(Failure(std::move(error))); }

    void answered(Result<A, LoaderError> answer) {
        if (!answer && session().sendsAgain(*this, answer.error())) return;
        conclude(std::move(answer));
    }
    void conclude(Result<A, LoaderError> answer) {
        Outcome outcome = operation_->conclude(answer, &session());
        end(std::move(outcome));
    }
    void end(Outcome outcome) {
        session().forget(number());
        if (!settle()) return;
        outcome_.emplace(std::move(outcome));
        settled();
    }

    void deliver(std::optional<URLErrorCode> early) override {
        if (early) outcome_.emplace(Failure(endedEarly(*early)));
        Completion completion = std::move(completion_);
        completion(*std::move(outcome_));
    }
    void release() override { const Completion released = std::move(completion_); }

    const std::shared_ptr<const UserOperation<A, V>> operation_;
    Completion completion_;
    std::optional<Outcome> outcome_;
    Cancellable load_;
};

/// Creates the calls of an `Operation` of a user client.
template <class A, class V>
class UserOperationSource final : public OperationSource<Result<V, TrelvoError>> {
public:
    using Outcome = Result<V, TrelvoError>;
    using Companion = Operation<Result<void, TrelvoError>>;

    UserOperationSource(std::shared_ptr<UserSession> session, UserOperation<A, V> operation,
                        std::vector<Companion> companions)
        : session_(std::move(session)),
          operation_(std::make_shared<const UserOperation<A, V>>(std::move(operation))),
          companions_(std::move(companions)) {}

    std::shared_ptr<PendingCall> prepare(LoadOptions options,
                                         UniqueFunction<void(Outcome)> completion) const override {
        std::vector<std::shared_ptr<PendingCall>> companions;
        for (const Companion& companion : companions_) {
            companions.push_back(companion.prepare(options, [](const Result<void, TrelvoError>&) {}));
        }
        return std::make_shared<UserCallOf<A, V>>(session_, operation_, std::move(options),
                                                  std::move(completion), std::move(companions));
    }
    bool needsCurrentQueue() const override { return session_->needsCurrentQueue(operation_->route); }
    Outcome failed(Error error) const override {
        return generalFailure(LoaderError::serverError(std::move(error)));
    }

private:
    const std::shared_ptr<UserSession> session_;
    const std::shared_ptr<const UserOperation<A, V>> operation_;
    const std::vector<Companion> companions_;
};

}  // namespace VanticRestKit::detail

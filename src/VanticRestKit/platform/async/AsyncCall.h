#pragma once

/// \file
/// `AsyncCall`: runs one load from start to outcome. Hosts use `Resource`, `Operation` and the user client.

#include <VanticRestKit/platform/async/LoadOptions.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/http/URLErrorCode.h>
#include <VanticRestKit/platform/publisher/Cancellable.h>
#include <VanticRestKit/Visibility.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>

namespace VanticRestKit::detail {

/// Prepared work; once started, a handle cancels it.
class VRK_EXPORT PendingCall : public CancelTarget {
public:
    ~PendingCall() override;

    /// Starts the work. Called once. The caller must not use its own state afterwards: the outcome may be delivered on
    /// another thread before this returns.
    virtual void begin() = 0;
};

/// Work with exactly one outcome: its result, a cancellation or a missed deadline. The first of them is delivered,
/// once, on the queue of the options; nothing is delivered after the handle was dropped. Any thread may call.
///
/// The work keeps this object alive, and this object owns the work's handle until there is an outcome.
class VRK_EXPORT AsyncCall : public PendingCall, public std::enable_shared_from_this<AsyncCall> {
public:
    ~AsyncCall() override;

    /// Starts the work, unless stop was already requested or the deadline is zero or less.
    void begin() final;

    /// Cancels the work, which is then its outcome.
    void cancel() final;

    /// The queue for work without its own queue. Made on first use and never destroyed.
    static DispatchQueue sharedQueue();

    /// Cancels the work without an outcome. Does not wait for a delivery in progress on another thread.
    void drop() final;

protected:
    /// `usualQueue` is used if `options` name no queue and the outcome does not come from the work.
    AsyncCall(LoadOptions options, DispatchQueue usualQueue);

    /// The receiver of the work's progress; empty if no progress is wanted. It does not keep this object alive.
    ProgressReceiver progressReceiver();

    /// Starts the work and returns the handle that cancels it.
    virtual Cancellable startWork() = 0;
    /// Delivers the outcome: the result of the work, or `early` if it was ended before. Called at most once.
    virtual void deliver(std::optional<URLErrorCode> early) = 0;
    /// Destroys the completion. Called once, after `deliver` or instead of it.
    virtual void release() = 0;

    /// Called when the work has a result. True for the one caller that may store it, which then calls `settled()`.
    bool settle();
    /// Delivers the stored result: immediately, unless the options name a queue.
    void settled();

private:
    enum State : std::uint8_t { open = 0, hasOutcome = 1, isFinished = 2 };

    void endEarly(URLErrorCode code);
    void finish(std::optional<URLErrorCode> early);
    void armDeadline();
    void armStop();
    void keep(Cancellable work);
    void letGoOfWork(bool hasEnded);
    void progressed(const LoadProgress& progress);
    void tell(const LoadProgress& progress);
    void letGoOfProgress();

    const std::optional<DispatchQueue> on_;
    const DispatchQueue usualQueue_;
    const std::optional<std::chrono::duration<double>> deadline_;
    const std::stop_token stop_;
    // Destroyed only with this object: another thread may be about to call it.
    std::optional<std::stop_callback<Block>> stopCallback_;
    std::atomic<std::uint8_t> state_{open};

    std::mutex workMutex_;
    Cancellable work_;
    ProgressReceiver progress_;
    UniqueFunction<void()> disarm_;
    bool isWorkOver_ = false;
    bool hasWorkEnded_ = false;
};

}  // namespace VanticRestKit::detail

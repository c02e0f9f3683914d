#pragma once

/// \file
/// `AsyncCall`: the life of one load from its start to its one outcome. Hosts use `Resource`, `Operation` and the
/// user client.

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

/// Work that was prepared and that a handle cancels once it has begun.
class VRK_EXPORT PendingCall : public CancelTarget {
public:
    ~PendingCall() override;

    /// Starts the work. Called once. The caller touches nothing of its own afterwards: the outcome may be delivered on
    /// another thread before this returns.
    virtual void begin() = 0;
};

/// One piece of work that has one outcome: that of the work, or that it was cancelled, or that its deadline passed.
/// Whichever comes first is delivered, once, on the queue of the options; nothing is delivered once the handle was
/// dropped. Any thread may call.
///
/// The work keeps this object, and this object keeps the work's handle until there is an outcome.
class VRK_EXPORT AsyncCall : public PendingCall, public std::enable_shared_from_this<AsyncCall> {
public:
    ~AsyncCall() override;

    /// Starts the work, unless stop was requested before or the deadline is not above zero.
    void begin() final;

    /// Ends the work; the outcome is that it was cancelled.
    void cancel() final;

    /// The queue of work that names none of its own. Made on first use; it lives as long as the process.
    static DispatchQueue sharedQueue();

    /// Ends the work without an outcome. Does not wait for a delivery that is under way on another thread.
    void drop() final;

protected:
    /// `usualQueue` delivers if `options` name no queue and the outcome does not come from the work.
    AsyncCall(LoadOptions options, DispatchQueue usualQueue);

    /// Starts the work and gives what cancels it.
    virtual Cancellable startWork() = 0;
    /// Delivers the outcome: that of the work, or `early` if the work was ended before it had one. Called once at
    /// most.
    virtual void deliver(std::optional<URLErrorCode> early) = 0;
    /// Drops the completion and what it holds. Called once, after `deliver` or in its place.
    virtual void release() = 0;

    /// The work has an outcome. True for the one caller that may keep it, who calls `settled()` when it is kept.
    bool settle();
    /// Delivers the outcome that `settle()` allowed to be kept: at once, unless the options name a queue.
    void settled();

private:
    enum State : std::uint8_t { open = 0, hasOutcome = 1, isFinished = 2 };

    void endEarly(URLErrorCode code);
    void finish(std::optional<URLErrorCode> early);
    void armDeadline();
    void armStop();
    void keep(Cancellable work);
    void letGoOfWork(bool hasEnded);

    const std::optional<DispatchQueue> on_;
    const DispatchQueue usualQueue_;
    const std::optional<std::chrono::duration<double>> deadline_;
    const std::stop_token stop_;
    // Goes with this object and not before: another thread may be about to call it.
    std::optional<std::stop_callback<Block>> stopCallback_;
    std::atomic<std::uint8_t> state_{open};

    std::mutex workMutex_;
    Cancellable work_;
    UniqueFunction<void()> disarm_;
    bool isWorkOver_ = false;
    bool hasWorkEnded_ = false;
};

}  // namespace VanticRestKit::detail

#pragma once

/// \file
/// `RetryRun`: one load of a retrying service.

#include <VanticRestKit/Core/Retrying.h>
#include <VanticRestKit/Core/Serviceable.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>

namespace VanticRestKit::detail {

/// Runs attempts and pauses until there is an outcome or `stop()` is called.
///
/// The current attempt or pause keeps this object alive, and this object owns its handle.
class RetryRun : public std::enable_shared_from_this<RetryRun> {
public:
    explicit RetryRun(RetryPolicy policy);
    virtual ~RetryRun();
    RetryRun(const RetryRun&) = delete;
    RetryRun& operator=(const RetryRun&) = delete;

    /// Makes the first attempt. Called once.
    void begin();

    /// Cancels the current attempt or pause; nothing follows. Any thread.
    void stop();

protected:
    /// The service that runs an attempt; null if it no longer exists, in which case the last failure is the outcome.
    virtual std::shared_ptr<Serviceable> service() const = 0;
    /// Starts an attempt, which ends by calling `succeeded()` or `failed()`.
    virtual Cancellable send(Serviceable& sender) = 0;
    /// Delivers the final failure.
    virtual void deliver(Error error) = 0;

    /// Whether a success may still be delivered; the attempt delivers it itself.
    bool succeeded() { return end(); }
    void failed(Error error);

    /// The number of the current attempt, counted from 1.
    int attemptNumber() const noexcept { return attempts_; }

private:
    enum class State { running, ended, stopped };

    void attempt();
    std::optional<std::chrono::duration<double>> pauseAfter(const Error& error) const;
    std::optional<std::uint64_t> nextStep();
    void keep(std::uint64_t step, Cancellable handle);
    bool end();

    const RetryPolicy policy_;
    // Attempts do not overlap, so the next two are never used by two threads at once.
    int attempts_ = 0;
    std::optional<Error> lastError_;

    std::mutex mutex_;
    State state_ = State::running;
    // Attempts and pauses are numbered, so that the handle of one that has already ended is not stored.
    std::uint64_t step_ = 0;
    Cancellable current_;
};

}  // namespace VanticRestKit::detail

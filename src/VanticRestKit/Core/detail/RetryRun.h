#pragma once

/// \file
/// `RetryRun`: one load of a service that tries again.

#include <VanticRestKit/Core/Retrying.h>
#include <VanticRestKit/Core/Serviceable.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>

namespace VanticRestKit::detail {

/// Attempts and pauses, one after another, until there is an outcome or `stop()` is called.
///
/// Whatever is under way keeps this object, and this object keeps the handle of what is under way.
class RetryRun : public std::enable_shared_from_this<RetryRun> {
public:
    explicit RetryRun(RetryPolicy policy);
    virtual ~RetryRun();
    RetryRun(const RetryRun&) = delete;
    RetryRun& operator=(const RetryRun&) = delete;

    /// Makes the first attempt. Called once.
    void begin();

    /// Ends what is under way; nothing follows. Any thread.
    void stop();

protected:
    /// The service that runs an attempt; null if it has gone, which makes the last failure the outcome.
    virtual std::shared_ptr<Serviceable> service() const = 0;
    /// Starts an attempt, which calls `succeeded()` or `failed()` at its end.
    virtual Cancellable send(Serviceable& sender) = 0;
    /// Hands on the failure that is the outcome.
    virtual void deliver(Error error) = 0;

    /// Whether the success is still wanted; the attempt hands it on itself.
    bool succeeded() { return end(); }
    void failed(Error error);

    /// The number of the attempt that is being sent, counted from 1.
    int attemptNumber() const noexcept { return attempts_; }

private:
    enum class State { running, ended, stopped };

    void attempt();
    std::optional<std::chrono::duration<double>> pauseAfter(const Error& error) const;
    std::optional<std::uint64_t> nextStep();
    void keep(std::uint64_t step, Cancellable handle);
    bool end();

    const RetryPolicy policy_;
    // Attempts follow each other, so the next two are never used by two threads at once.
    int attempts_ = 0;
    std::optional<Error> lastError_;

    std::mutex mutex_;
    State state_ = State::running;
    // Attempts and pauses are counted, so that the handle of one that is over by then is not kept.
    std::uint64_t step_ = 0;
    Cancellable current_;
};

}  // namespace VanticRestKit::detail

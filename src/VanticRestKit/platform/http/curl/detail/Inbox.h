#pragma once

/// \file
/// `Inbox`: how other threads tell the I/O thread what to do.

#include <VanticRestKit/platform/dispatch/detail/Bell.h>
#include <VanticRestKit/platform/http/curl/detail/WakeDescriptor.h>
#include <VanticRestKit/platform/http/detail/Transfer.h>

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace VanticRestKit::detail {

class StoredResponse;

/// A guarded list of messages, and the means to wake the thread that reads them out of its wait.
class Inbox {
public:
    struct Message {
        /// `resume`: a cache's store has answered; see `found`.
        enum class Kind { start, cancel, redirect, cancelAll, closeIdle, resume };
        Kind kind;
        std::shared_ptr<Transfer> transfer{};
        /// What the host has made of a redirect; empty if it is not to be followed.
        std::optional<URLRequest> next{};
        /// What a cache's store has for a transfer, and the number of the read; see `StoreReads`.
        std::uint64_t read = 0;
        std::vector<std::shared_ptr<const StoredResponse>> found{};
    };

    /// Adds a message. Returns whether there is no thread yet that reads it; it is the caller's to start one.
    bool post(Message message) {
        std::unique_lock lock(mutex_);
        messages_.push_back(std::move(message));
        const bool needsReader = !std::exchange(hasReader_, true);
        wakeReader(lock);
        return needsReader;
    }

    /// Says that no message follows.
    void close() {
        std::unique_lock lock(mutex_);
        isClosed_ = true;
        isWoken_ = true;
        wakeReader(lock);
    }

    /// Ends the reader's wait, also one that is only about to begin.
    void wake() {
        std::unique_lock lock(mutex_);
        isWoken_ = true;
        wakeReader(lock);
    }

    /// The reader is gone or could not be started; what is left goes to the caller.
    std::vector<Message> readerLeaves() {
        const std::lock_guard lock(mutex_);
        hasReader_ = false;
        return std::exchange(messages_, {});
    }

    /// Moves the messages behind `to`. Returns whether more may follow.
    bool take(std::vector<Message>& to) {
        const std::lock_guard lock(mutex_);
        isWoken_ = false;
        to.swap(messages_);
        return !isClosed_;
    }

    enum class Wait {
        /// There is something to read already.
        notNow,
        /// The wait has to watch `wakeDescriptor()`.
        watching,
        /// The system has no descriptor for that now: a wait is not ended by messages, and has to be short.
        blind,
    };

    /// Says that the reader is about to wait for sockets. It must not wait if the answer is `notNow`, and must call
    /// `endWait()` after it otherwise.
    Wait beginWait() {
        const std::lock_guard lock(mutex_);
        if (!messages_.empty() || isWoken_) return Wait::notNow;
        if (!wakeDescriptor_.make()) return Wait::blind;
        isWatched_ = true;
        return Wait::watching;
    }

    /// For the reader only.
    int wakeDescriptor() const noexcept { return wakeDescriptor_.descriptor(); }

    void endWait() {
        const std::lock_guard lock(mutex_);
        isWatched_ = false;
        if (std::exchange(isRung_, false)) wakeDescriptor_.silence();
    }

    /// Waits until there is something to read: cheaper than a wait in a multi handle, for a reader that has
    /// no socket to watch.
    void waitForMail() {
        std::unique_lock lock(mutex_);
        while (messages_.empty() && !isWoken_) {
            waitsForMail_ = true;
            lock.unlock();
            bell_.sleep();
            lock.lock();
        }
    }

private:
    // A reader that is awake looks here before it waits, so that only one that waits costs a system call.
    void wakeReader(std::unique_lock<std::mutex>& lock) {
        if (std::exchange(isWatched_, false)) {
            isRung_ = true;
            wakeDescriptor_.ring();
        }
        const bool sleeps = std::exchange(waitsForMail_, false);
        lock.unlock();
        if (sleeps) bell_.ring();
    }

    std::mutex mutex_;
    Bell bell_;
    std::vector<Message> messages_;
    WakeDescriptor wakeDescriptor_;
    /// Whether the reader watches the descriptor, and whether it was rung since.
    bool isWatched_ = false;
    bool isRung_ = false;
    bool waitsForMail_ = false;
    bool hasReader_ = false;
    bool isClosed_ = false;
    bool isWoken_ = false;
};

}  // namespace VanticRestKit::detail

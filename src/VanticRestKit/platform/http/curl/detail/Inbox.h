#pragma once

/// \file
/// `Inbox`: the messages to the I/O thread.

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

/// A thread-safe list of messages that can wake the thread that reads them.
class Inbox {
public:
    struct Message {
        /// `resume`: a read of a cache's store has finished; see `found`.
        enum class Kind { start, cancel, redirect, cancelAll, closeIdle, resume };
        Kind kind;
        std::shared_ptr<Transfer> transfer{};
        /// The host's request for a redirect; empty if the redirect is not to be followed.
        std::optional<URLRequest> next{};
        /// The number of a store read and its result; see `StoreReads`.
        std::uint64_t read = 0;
        std::vector<std::shared_ptr<const StoredResponse>> found{};
    };

    /// Adds a message. Returns true if no thread reads messages yet; the caller must then start one.
    bool post(Message message) {
        std::unique_lock lock(mutex_);
        messages_.push_back(std::move(message));
        const bool needsReader = !std::exchange(hasReader_, true);
        wakeReader(lock);
        return needsReader;
    }

    /// Closes the inbox: no more messages follow.
    void close() {
        std::unique_lock lock(mutex_);
        isClosed_ = true;
        isWoken_ = true;
        wakeReader(lock);
    }

    /// Ends the reader's current wait, or its next one.
    void wake() {
        std::unique_lock lock(mutex_);
        isWoken_ = true;
        wakeReader(lock);
    }

    /// Removes the reader, which could not be started. Returns the remaining messages.
    std::vector<Message> removeReader() {
        const std::lock_guard lock(mutex_);
        hasReader_ = false;
        return std::exchange(messages_, {});
    }

    /// Moves the messages into `to`, which is empty. Returns whether more may follow.
    bool take(std::vector<Message>& to) {
        const std::lock_guard lock(mutex_);
        isWoken_ = false;
        to.swap(messages_);
        return !isClosed_;
    }

    enum class Wait {
        /// There are messages to read already.
        notNow,
        /// The wait must watch `wakeDescriptor()`.
        watching,
        /// The system has no free descriptor: messages do not end a wait, so it must be short.
        blind,
    };

    /// Called before the reader waits for sockets. On `notNow` it must not wait; otherwise it must call `endWait()`
    /// afterwards.
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
        if (std::exchange(isSignalled_, false)) wakeDescriptor_.clear();
    }

    /// Waits until there are messages, for a reader without sockets to watch. Cheaper than waiting in a multi handle.
    void waitForMessages() {
        std::unique_lock lock(mutex_);
        while (messages_.empty() && !isWoken_) {
            isReaderAsleep_ = true;
            lock.unlock();
            bell_.sleep();
            lock.lock();
        }
    }

private:
    // A reader that is awake checks for messages before it waits, so only a waiting one costs a system call.
    void wakeReader(std::unique_lock<std::mutex>& lock) {
        if (std::exchange(isWatched_, false)) {
            isSignalled_ = true;
            wakeDescriptor_.signal();
        }
        const bool sleeps = std::exchange(isReaderAsleep_, false);
        lock.unlock();
        if (sleeps) bell_.ring();
    }

    std::mutex mutex_;
    Bell bell_;
    std::vector<Message> messages_;
    WakeDescriptor wakeDescriptor_;
    /// Whether the reader watches the descriptor, and whether the descriptor has been signalled since.
    bool isWatched_ = false;
    bool isSignalled_ = false;
    bool isReaderAsleep_ = false;
    bool hasReader_ = false;
    bool isClosed_ = false;
    bool isWoken_ = false;
};

}  // namespace VanticRestKit::detail

#pragma once

/// \file
/// `Inbox`: how other threads tell the I/O thread what to do.

#include <VanticRestKit/platform/dispatch/detail/Bell.h>
#include <VanticRestKit/platform/http/detail/Transfer.h>

#include <curl/curl.h>

#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace VanticRestKit::detail {

/// A guarded list of messages, and the means to wake the thread that reads them out of its wait.
class Inbox {
public:
    struct Message {
        enum class Kind { start, cancel };
        Kind kind;
        std::shared_ptr<Transfer> transfer;
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

    /// Says that the reader is about to wait in `multi`, unless there is something to read already: false
    /// then.
    bool beginWait(CURLM* multi) {
        const std::lock_guard lock(mutex_);
        if (!messages_.empty() || isWoken_) return false;
        waitsIn_ = multi;
        return true;
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

    /// The wait is over; nobody touches the multi handle after this.
    void endWait() {
        const std::lock_guard lock(mutex_);
        waitsIn_ = nullptr;
    }

private:
    // A reader that is awake looks here before it waits, so that only one that waits costs a system call.
    void wakeReader(std::unique_lock<std::mutex>& lock) {
        if (waitsIn_ != nullptr) curl_multi_wakeup(std::exchange(waitsIn_, nullptr));
        const bool sleeps = std::exchange(waitsForMail_, false);
        lock.unlock();
        if (sleeps) bell_.ring();
    }

    std::mutex mutex_;
    Bell bell_;
    std::vector<Message> messages_;
    CURLM* waitsIn_ = nullptr;
    bool waitsForMail_ = false;
    bool hasReader_ = false;
    bool isClosed_ = false;
    bool isWoken_ = false;
};

}  // namespace VanticRestKit::detail

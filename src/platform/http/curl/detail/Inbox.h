#pragma once

/// \file
/// `Inbox`: how other threads tell the I/O thread what to do.

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
        const std::lock_guard lock(mutex_);
        messages_.push_back(std::move(message));
        wakeReader();
        return !std::exchange(hasReader_, true);
    }

    /// Says that no message follows.
    void close() {
        const std::lock_guard lock(mutex_);
        isClosed_ = true;
        isWoken_ = true;
        wakeReader();
    }

    /// Ends the reader's wait, also one that is only about to begin.
    void wake() {
        const std::lock_guard lock(mutex_);
        isWoken_ = true;
        wakeReader();
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

    /// The wait is over; nobody touches the multi handle after this.
    void endWait() {
        const std::lock_guard lock(mutex_);
        waitsIn_ = nullptr;
    }

private:
    // A reader that is awake looks here before it waits, so that only one that waits costs a system call.
    void wakeReader() {
        if (waitsIn_ != nullptr) curl_multi_wakeup(std::exchange(waitsIn_, nullptr));
    }

    std::mutex mutex_;
    std::vector<Message> messages_;
    CURLM* waitsIn_ = nullptr;
    bool hasReader_ = false;
    bool isClosed_ = false;
    bool isWoken_ = false;
};

}  // namespace VanticRestKit::detail
